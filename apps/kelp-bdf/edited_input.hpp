#pragma once

#include "checked_input.hpp"
#include "edit.hpp"
#include "rewrite.hpp"

namespace kelp::app {

/// Changes an input. Lines that the change does not concern stay as they are; where it cannot be
/// made line by line, the input is laid out in the canonical form.
///
/// Looks for reasons not to write what comes out: text that would get lost without being meant to;
/// errors that were not there; values that would not be read back as they were given; a geometry in
/// another unit.
/// @throws ImpossibleEdit saying which change is impossible, and why.
Rewrite edit_input(const CheckedInput& before, const Edit& edit);

}  // namespace kelp::app
