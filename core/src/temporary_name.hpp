#pragma once

#include <string>

namespace kelp::core::fs {

/// Returns a file name that nobody can guess, short enough for every file system.
/// @throws std::exception when the system gives no random numbers.
std::string temporary_name();

}  // namespace kelp::core::fs
