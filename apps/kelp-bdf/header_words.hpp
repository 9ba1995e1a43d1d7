#pragma once

#include <cstddef>
#include <string_view>

#include "kelp/input/bdf/schema.hpp"
#include "source_text.hpp"

namespace kelp::app {

/// Returns where a word of the header stands on its line, looked for from a byte on. The pieces of
/// "key = value" may stand apart.
LinePart find_header_word(const SourceText& source, std::size_t line, std::size_t from,
                          std::string_view word);

/// Tells whether the schema knows all names in a word of the header, so that their case says
/// nothing.
bool knows_all_names(const input::bdf::InputSchema& schema, std::string_view word);

}  // namespace kelp::app
