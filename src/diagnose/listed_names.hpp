#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelp::input::bdf {

/// Tells whether a name is a listed one with one slip of the fingers: two neighbours swapped, a
/// letter too many or too few, or the key beside the right one. What may as well be another name is
/// none: functionals and basis sets differ by a digit or a plus, by their first or last letter, or
/// in parentheses (`rpbe` and `pbe`, `m06` and `m06l`, `def2-svpd` and `def2-svp`). Both are given
/// in lower case.
bool is_slip_of(std::string_view name, std::string_view listed);

/// Returns the names of an open list that a name is a slip of; none when it is in the list itself,
/// and at most three.
std::vector<std::string> likely_names(std::string_view name,
                                      const std::vector<std::string>& listed);

}  // namespace kelp::input::bdf
