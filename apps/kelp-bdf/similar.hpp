#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelp::app {

/// Returns those of the candidates that a name is likely to be a slip of, the nearest first; none
/// that is the name itself, and at most three.
std::vector<std::string> similar_names(std::string_view name,
                                       const std::vector<std::string>& candidates);

/// Returns a message about an unknown name, with the names that may have been meant.
std::string with_similar(std::string message, std::string_view name,
                         const std::vector<std::string>& candidates);

/// Returns "'a'", "'a' or 'b'", "'a', 'b' or 'c'".
std::string quoted_choice(const std::vector<std::string>& names);

}  // namespace kelp::app
