#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/document.hpp"

namespace kelp::input::bdf {

/// Lines without their line ends, as views into the text.
using Lines = std::vector<std::string_view>;

/// Cuts a text at each line feed; a carriage return before it, or at the end, goes too. A final
/// line feed makes no further line.
Lines split_lines(std::string_view text);

using core::text::take_line;

/// Returns the place of a line, given by its index.
SourceSpan span_of_line(std::size_t index, std::string_view line);

/// Returns a line without the comment behind what it says. A line that is a comment as a whole
/// stays as it is.
std::string_view without_comment(std::string_view line);

/// Tells whether two lines say the same: case and the white space around them aside.
bool is_same_line(std::string_view line, std::string_view other);

/// Returns a line's text up to the first blank, tab or line end; empty for a blank line.
std::string_view first_word(std::string_view line);

// Each classifier looks at the line without the white space around it.

bool is_blank(std::string_view line);
/// `$name`; the name may be anything but `end`.
bool is_module_header(std::string_view line);
/// `$end`
bool is_module_end(std::string_view line);
/// A module's header or its end: nothing that belongs to a module goes beyond.
bool is_module_border(std::string_view line);
/// `% command`
bool is_shell_line(std::string_view line);
/// `&database`
bool is_database_start(std::string_view line);
/// `&end`
bool is_database_end(std::string_view line);
/// Begins with `#` or `*`.
bool is_remark(std::string_view line);
/// `#! name`
bool is_script_line(std::string_view line);
/// `Geometry`, alone or followed by white space or `#`.
bool is_geometry_start(std::string_view line);
/// `End Geometry`, whatever follows.
bool is_geometry_end(std::string_view line);

/// Starts what can stand in the body of an input only: a module, a shell line or a database.
bool starts_body(std::string_view line);

/// Tells whether a line begins with a blank or a tab.
bool is_indented(std::string_view line);

}  // namespace kelp::input::bdf
