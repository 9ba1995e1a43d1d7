#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelp::input::bdf {

/// Returns the symbols that the letters of a label may have been meant to be, at most three: the
/// symbol itself, where something else is wrong about the label; two letters in the wrong order; or
/// else a letter too many, or another one behind the first.
std::vector<std::string> similar_elements(std::string_view letters);

/// Returns the symbol that an atomic number stands for; none for a text that is no such number. A
/// zero was meant to be oxygen.
std::vector<std::string> elements_of_number(std::string_view label);

}  // namespace kelp::input::bdf
