#pragma once

/// @file
/// Characters of UTF-8 texts: how many, how wide, and whether they are safe to show.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kelp::core::unicode {

/// Returns the length in bytes of a text's first character, 1 for a byte that is no UTF-8; the text
/// must not be empty.
std::size_t character_length(std::string_view text);

/// Moves a place in a text forward, if need be, to where a character begins.
std::size_t next_character(std::string_view text, std::size_t at);

/// Returns the number of code points of a text; a byte that is no UTF-8 counts as one.
std::size_t count_code_points(std::string_view text);

/// Returns the number of UTF-16 code units of a text; a byte that is no UTF-8 counts as one.
std::size_t count_utf16_units(std::string_view text);

/// Returns how many columns a terminal needs for what `displayable` makes of a text: two for a wide
/// character, none for a mark that combines with the one before.
std::size_t display_width(std::string_view text);

/// Returns a text that is safe to show on one line: a tab becomes blanks; a control character, one
/// that turns the direction of writing or has no shape, or a byte that is no UTF-8 becomes an
/// escape such as `\n`, `\x1b` or `\u202e`.
std::string displayable(std::string_view text);

/// Returns a text of many lines that is safe to show: each of them as `displayable` makes it,
/// without the carriage return of its line end.
std::string displayable_lines(std::string_view text);

/// Cuts a text into lines of at most `columns` columns, at blanks, which are left out, and beside
/// wide characters, but so that no line begins with what closes and none ends with what opens. A
/// word that is wider has a line of its own. None for a text of blanks. The lines are views into
/// the text.
std::vector<std::string_view> wrap(std::string_view text, std::size_t columns);

/// Returns a text that takes at most `columns` columns, at least four: one that takes more ends in
/// three dots, behind a whole word if there is one.
std::string fitted(std::string_view text, std::size_t columns);

/// Returns a text without its middle when it is so long that nobody would read it.
std::string abridged(std::string_view text);

}  // namespace kelp::core::unicode
