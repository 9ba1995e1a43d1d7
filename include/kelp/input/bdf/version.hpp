#pragma once

#include "kelp/input/bdf/export.hpp"

namespace kelp::input::bdf {

/// Returns the version of the library that is running, for example "1.2.3"; valid for ever.
KELP_BDF_INP_EXPORT const char* library_version() noexcept;

}  // namespace kelp::input::bdf
