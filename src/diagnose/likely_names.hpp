#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "diagnose/draft.hpp"
#include "kelp/input/bdf/diagnostics.hpp"

namespace kelp::input::bdf {

/// Return the listed names that a method, a functional or a basis set is a slip of the fingers for:
/// two neighbours swapped, a letter too many or too few, or the key beside the right one. None when
/// the name is listed, is known elsewhere, is that of a basis file beside the input, or may as well
/// be another of its family, as `6-31+g(3d)` beside `6-31+g(d)`. At most three.
std::vector<std::string> likely_methods(std::string_view name, DiagnoseContext& context);
std::vector<std::string> likely_functionals(std::string_view name, DiagnoseContext& context);
std::vector<std::string> likely_basis_sets(std::string_view name, DiagnoseContext& context,
                                           const DiagnoseOptions& options);

}  // namespace kelp::input::bdf
