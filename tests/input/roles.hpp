#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "kelp/input/bdf/parsed_input.hpp"

namespace kelp::input::bdf {

/// Returns the roles of an input's lines, a letter for each: M and E begin and end a module, k is a
/// keyword, v a value, b the end of a block, u an unknown line; the rest reads by itself.
inline std::string roles_of(const ParsedInput& input) {
  constexpr std::string_view letters = " #!hGalgMEkvbuSDo";
  std::string roles;
  for (std::size_t number = 1; number <= input.source().line_count(); ++number) {
    roles += letters[static_cast<std::size_t>(input.line(number).role)];
  }
  return roles;
}

}  // namespace kelp::input::bdf
