#pragma once

/// @file
/// How grave findings are.

#include <cstdint>
#include <string_view>

#include "kelp/input/bdf/export.hpp"

namespace kelp::input::bdf {

/// How grave a finding is.
enum class Severity : std::int32_t {
  Note = 0,     ///< worth knowing; never a reason to fail
  Warning = 1,  ///< probably not what was meant
  Error = 2,    ///< will not run, or not as written
};

/// Returns "note", "warning" or "error"; "unknown" for a number that is none. The view lives for
/// ever, and any number of threads may ask at once.
KELP_BDF_INP_EXPORT std::string_view to_string(Severity severity) noexcept;

}  // namespace kelp::input::bdf
