#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelp::input::bdf {

/// Cuts a header line of an easy input into tokens, joining the pieces of `key = value`.
std::vector<std::string> split_header_line(std::string_view line);

}  // namespace kelp::input::bdf
