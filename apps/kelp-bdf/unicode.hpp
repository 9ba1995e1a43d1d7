#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kelp::app {

/// Returns the number of code points of a text; a byte that is no UTF-8 counts as one.
std::size_t count_code_points(std::string_view text);

/// Returns how many columns a terminal needs for a text: two for a wide character, none for a mark
/// that combines with the one before.
std::size_t display_width(std::string_view text);

/// Returns a text that is safe to show: a tab becomes blanks, a control character or a byte that is
/// no UTF-8 becomes a replacement character.
std::string displayable(std::string_view text);

}  // namespace kelp::app
