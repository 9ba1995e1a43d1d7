#pragma once

#include <string>
#include <string_view>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/parser.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "source_text.hpp"

namespace kelp::app {

/// An input as read: its text, and what the library understood of it.
struct CheckedInput {
  CheckedInput(std::string file_name, std::string file_text,
               const input::bdf::InputSchema& vocabulary);

  std::string name;
  SourceText source;
  const input::bdf::InputSchema& schema;
  input::bdf::ParseResult result;
};

}  // namespace kelp::app
