#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "kelp/input/bdf/schema.hpp"

namespace kelp::input::bdf {

// What a misspelt border looks like. Each looks at the line without the white space around it and
// without its comment.

/// The first byte of the signs that look like a dollar.
inline constexpr char first_of_wide_dollar = '\xEF';

/// Returns what stands behind a sign that looks like a dollar but is none (U+FF04, U+FE69); nothing
/// for any other line.
std::optional<std::string_view> behind_wide_dollar(std::string_view line);

/// Tells whether such a sign stands before the name of a module.
bool is_header_behind_wide_dollar(std::string_view line, const InputSchema& schema);

/// A blank line, or a comment.
bool says_nothing(std::string_view line);

/// `$edn`, `$ end`, `$end scf`: a dollar, and all but the word, or more than it.
bool is_near_module_end(std::string_view line);

/// `$end geometry`: a terminator behind a dollar.
bool is_terminator_behind_dollar(std::string_view line, std::string_view terminator);

/// `end`, `4end`, `end$`: the word, but for its dollar.
bool is_end_without_dollar(std::string_view line);

/// `edn`, `en`: all but the word, and no dollar.
bool is_near_end_without_dollar(std::string_view line);

/// `End Geom`, `endgeometry`, `end`: a misspelt `terminator` of the block that `keyword` opens.
bool is_near_terminator(std::string_view line, std::string_view terminator,
                        std::string_view keyword);

/// `Gemoetry`, `Geom`.
bool is_near_geometry_start(std::string_view line);

/// Tells whether a line is one word.
bool is_one_word(std::string_view line);

}  // namespace kelp::input::bdf
