#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kelp::input::bdf {

// What a misspelt border looks like. Each looks at the line without the white space around it and
// without its comment.

/// Returns what stands behind a sign that looks like a dollar but is none (U+FF04, U+FE69); nothing
/// for any other line.
std::optional<std::string_view> behind_wide_dollar(std::string_view line);

/// `$edn`, `$ end`: a dollar, and all but the word.
bool is_near_module_end(std::string_view line);

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
