#pragma once

#include <string>
#include <string_view>

namespace kelp::input::bdf {

/// Returns a script name without its `#!` and the white space around it; `job.bdf` when nothing is
/// left.
std::string normalize_script_name(std::string_view name);

}  // namespace kelp::input::bdf
