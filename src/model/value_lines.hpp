#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/document.hpp"

namespace kelp::input::bdf {

/// Returns a value line without its `#` comment and outer white space, as a view into it.
std::string_view clean_value_line(std::string_view line);

/// Returns an entry's value lines without `#` comments and outer white space; blank ones are left
/// out. The views point into the entry.
std::vector<std::string_view> cleaned_lines(const ModuleEntry& entry);

/// Appends these lines to a list.
void add_cleaned_lines(const ModuleEntry& entry, std::vector<std::string_view>& lines);

/// A cleaned value line and which one it is.
struct ValueLine {
  std::size_t index;      ///< of the value line
  std::string_view text;  ///< a view into it
};

/// Returns the lines that `cleaned_lines` does, numbered.
std::vector<ValueLine> numbered_lines(const std::vector<std::string>& values);

/// Returns the first of an entry's cleaned lines, normalised; empty if there is none.
std::string first_value(const ModuleEntry& entry);

/// Cuts the first field, which white space or commas end, off `rest` and returns it; empty when
/// none is left.
std::string_view take_value_token(std::string_view& rest);

/// Appends a line's fields, which white space and commas separate, to `tokens`.
void split_value_tokens(std::string_view line, std::vector<std::string_view>& tokens);

}  // namespace kelp::input::bdf
