#pragma once

// Documents and paths for the tests of this folder.

#include <string_view>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/parser.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "support/print.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {

inline BDFData read(std::string_view text, const InputSchema& schema = shipped_schema()) {
  return BDFParser::parse_string(text, schema, {}).data;
}

/// Reads a path that is one.
inline ValuePath path(std::string_view text) {
  return parse_path(text).path.value();
}

}  // namespace kelp::input::bdf
