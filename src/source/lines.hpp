#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/document.hpp"

namespace kelp::input::bdf {

/// Lines without their line ends, as views into the text.
using Lines = std::vector<std::string_view>;

using core::text::take_line;

/// Returns the place of a line, given by its index.
inline SourceSpan span_of_line(std::size_t index, std::string_view line) {
  return {index + 1, 1, line.size()};
}

/// Returns a line without the comment behind what it says. A line that is a comment as a whole
/// stays as it is.
std::string_view without_comment(std::string_view line);

/// Tells whether two lines say the same: case and the white space around them aside.
inline bool is_same_line(std::string_view line, std::string_view other) {
  return core::text::equals_ignoring_case(core::text::trim_view(line),
                                          core::text::trim_view(other));
}

/// Returns a text up to the first blank, tab or line end.
inline std::string_view up_to_blank(std::string_view text) {
  std::size_t end = 0;
  while (end < text.size() && text[end] != ' ' && text[end] != '\t' && text[end] != '\r' &&
         text[end] != '\n') {
    ++end;
  }
  return text.substr(0, end);
}

/// Returns a line's text up to the first blank, tab or line end; empty for a blank line.
inline std::string_view first_word(std::string_view line) {
  std::size_t begin = 0;
  while (begin < line.size() && core::text::is_space(line[begin])) {
    ++begin;
  }
  const std::string_view word = up_to_blank(line.substr(begin));
  // A vertical tab or a form feed is a letter within what a line says, and white space at its end.
  const bool is_plain = word.empty() || !core::text::is_space(word.back());
  return is_plain ? word : up_to_blank(core::text::trim_view(line));
}

// Each classifier looks at the line without the white space around it. They are asked of every
// line, most often in vain, so the first byte that says something comes first.

/// Returns the first byte of what a line says; NUL for a blank line.
inline char first_byte(std::string_view line) {
  for (const char byte : line) {
    if (!core::text::is_space(byte)) {
      return byte;
    }
  }
  return '\0';
}

inline bool is_blank(std::string_view line) {
  for (const char byte : line) {
    if (!core::text::is_space(byte)) {
      return false;
    }
  }
  return true;
}
/// A module's header or its end: nothing that belongs to a module goes beyond.
inline bool is_module_border(std::string_view line) {
  return first_byte(line) == '$' && core::text::trim_view(line).size() >= 2;
}
/// `$end`
inline bool is_module_end(std::string_view line) {
  return first_byte(line) == '$' && is_same_line(line, "$end");
}
/// `$name`; the name may be anything but `end`.
inline bool is_module_header(std::string_view line) {
  return is_module_border(line) && !is_module_end(line);
}
/// `% command`
inline bool is_shell_line(std::string_view line) {
  return first_byte(line) == '%';
}
/// `&database`
inline bool is_database_start(std::string_view line) {
  return first_byte(line) == '&' && is_same_line(line, "&database");
}
/// `&end`
inline bool is_database_end(std::string_view line) {
  return first_byte(line) == '&' && is_same_line(line, "&end");
}
/// Begins with `#` or `*`.
inline bool is_remark(std::string_view line) {
  const char first = first_byte(line);
  return first == '#' || first == '*';
}
/// A comment whose `*` stands in the first column.
inline bool is_star_comment(std::string_view line) {
  return line.starts_with('*');
}
/// `#! name`
inline bool is_script_line(std::string_view line) {
  return first_byte(line) == '#' && core::text::trim_view(line).starts_with("#!");
}
/// `Geometry`, alone or followed by white space or `#`.
bool is_geometry_start(std::string_view line);
/// `End Geometry`, whatever follows.
bool is_geometry_end(std::string_view line);

/// Starts what can stand in the body of an input only: a module, a shell line or a database.
inline bool starts_body(std::string_view line) {
  return is_module_header(line) || is_shell_line(line) || is_database_start(line);
}

/// Tells whether a line begins with a blank or a tab.
inline bool is_indented(std::string_view line) {
  return line.starts_with(' ') || line.starts_with('\t');
}

}  // namespace kelp::input::bdf
