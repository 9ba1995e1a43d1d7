#pragma once

#include <vector>

#include "checked_input.hpp"
#include "finding.hpp"

namespace kelp::app {

/// Makes the full record of a finding: the exact place, the path, a hint, similar names.
Finding make_finding(const input::bdf::ValidationIssue& issue, const CheckedInput& input);

/// Makes the finding about an input that holds nothing.
Finding make_empty_input_finding(const CheckedInput& input);

/// Tells whether an issue is about a comment or a blank line inside a module. The library keeps and
/// reports them like any other line that is no keyword, but a remark is not a mistake.
bool is_about_remark(const input::bdf::ValidationIssue& issue, const CheckedInput& input);

}  // namespace kelp::app
