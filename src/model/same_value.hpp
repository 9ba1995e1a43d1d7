#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelp::input::bdf {

/// Tells whether two lines of values say the same, however they are spelt: numbers by their value,
/// words without regard to case, but for names of files.
bool same_value_line(std::string_view left, std::string_view right);

/// The same of all lines of two values; comments and blank lines say nothing.
bool same_values(const std::vector<std::string>& left, const std::vector<std::string>& right);

/// Returns a text that is the same for all lines that say the same: its fields, a blank between
/// each two.
std::string normal_value_line(std::string_view line);

}  // namespace kelp::input::bdf
