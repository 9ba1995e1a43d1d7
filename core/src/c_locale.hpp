#pragma once

#include <optional>
#include <string>

namespace kelp::core::number::c_locale {

/// `strtod` in the "C" locale, over the whole text; empty when it stops early or reports `ERANGE`.
std::optional<double> strtod_whole(const std::string& text);

}  // namespace kelp::core::number::c_locale
