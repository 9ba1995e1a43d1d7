#pragma once

#include <cstddef>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/parser.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "source/line_reader.hpp"

namespace kelp::input::bdf {

/// Reads the module whose header is the current line, up to its `$end`, the next module's header or
/// the end of the input, into a new record, the `index`-th module of the document.
void parse_module(LineReader& reader, std::size_t index, const InputSchema& schema,
                  const ParseOptions& options, Module& module);

}  // namespace kelp::input::bdf
