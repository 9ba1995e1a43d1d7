#pragma once

#include <string_view>
#include <vector>

#include "checked_input.hpp"
#include "finding.hpp"

namespace kelp::app {

/// Compares an input with the text that would be written in its place, and returns a finding for
/// everything that would not come along: text that is lost (`bdf.format_loss`) or changes its place
/// (`bdf.format_move`), and lines that nobody wrote (`bdf.format_addition`). An input that has
/// nothing to lose gives none.
///
/// Nothing of this is taken on trust: the new text is read again, and every word of the old one has
/// to be found in it, in the same order.
std::vector<Finding> find_departures(const CheckedInput& before, const CheckedInput& after);

/// Returns the errors of an input that another one has not.
std::vector<Finding> find_added_errors(const CheckedInput& before, const CheckedInput& after);

}  // namespace kelp::app
