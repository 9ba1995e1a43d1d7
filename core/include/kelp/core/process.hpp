#pragma once

/// @file
/// Other processes.

#include <cstdint>

namespace kelp::core::process {

/// Tells whether there is a process of that number; true when the system does not tell.
bool is_running(std::int64_t number);

}  // namespace kelp::core::process
