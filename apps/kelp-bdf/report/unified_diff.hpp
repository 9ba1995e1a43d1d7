#pragma once

#include <string>
#include <string_view>

namespace kelp::app {

/// Returns a unified diff with three lines of context, as `patch -p1` reads it; empty when the
/// texts are the same. A line without a line end is told from one that has it.
std::string unified_diff(std::string_view name, std::string_view old_text,
                         std::string_view new_text);

}  // namespace kelp::app
