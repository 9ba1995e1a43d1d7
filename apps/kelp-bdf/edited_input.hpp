#pragma once

#include "checked_input.hpp"
#include "edit.hpp"
#include "rewrite.hpp"

namespace kelp::app {

/// Changes an input, and looks for reasons not to write what comes out: what the canonical form
/// would not carry, unless it was to go; errors that were not there; values that would not be read
/// back as they were given; a geometry in another unit. A change that changes nothing leaves the
/// text as it is.
/// @throws ImpossibleEdit saying which change is impossible, and why.
Rewrite edit_input(const CheckedInput& before, const Edit& edit);

}  // namespace kelp::app
