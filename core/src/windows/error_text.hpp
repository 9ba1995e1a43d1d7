#pragma once

#include <string>

#include "win32.hpp"

namespace kelp::core {

/// Returns what an error of the system means, in words. The usual ones read as they do on other
/// systems.
std::string error_text(DWORD error);

}  // namespace kelp::core
