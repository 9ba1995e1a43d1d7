#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "diagnose/draft.hpp"
#include "kelp/input/bdf/diagnostics.hpp"

namespace kelp::input::bdf {

/// Return the listed names that a method, a functional or a basis set is a slip of the fingers for:
/// two neighbours swapped, a letter too many or too few, the key beside the right one, or other
/// marks between the same letters. None when the name is listed, is known elsewhere, is that of a
/// basis file beside the input, or may as well be another of its family, as `6-31+g(3d)` beside
/// `6-31+g(d)`. At most three.
std::vector<std::string> likely_methods(std::string_view name, DiagnoseContext& context);
std::vector<std::string> likely_functionals(std::string_view name, DiagnoseContext& context);
std::vector<std::string> likely_basis_sets(std::string_view name, DiagnoseContext& context,
                                           const DiagnoseOptions& options);

/// Returns the listed basis sets that a text of several words differs from by other marks only:
/// `cc pvdz`. None when it is a name itself.
std::vector<std::string> basis_sets_with_other_marks(std::string_view name,
                                                     DiagnoseContext& context,
                                                     const DiagnoseOptions& options);

/// Tells whether a name is near to a method, and to no functional that is listed or known
/// elsewhere.
bool is_near_to_methods_alone(std::string_view name, DiagnoseContext& context);

/// Tells whether a name is that of a method of other programs, and no functional.
bool is_method_elsewhere(std::string_view name);

/// Tell whether a name, listed or not, can be that of a functional of any library, or that of a
/// basis set: quotes, brackets and a comma at an end are of neither.
bool can_be_functional(std::string_view name);
bool can_be_basis_set(std::string_view name);

}  // namespace kelp::input::bdf
