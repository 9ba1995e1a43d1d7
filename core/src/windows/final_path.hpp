#pragma once

#include <string>

#include "win32.hpp"

namespace kelp::core {

/// Returns the path of an open file with all links followed; empty when the system knows none.
std::wstring final_path(HANDLE file,
                        decltype(&::GetFinalPathNameByHandleW) call = &::GetFinalPathNameByHandleW);

}  // namespace kelp::core
