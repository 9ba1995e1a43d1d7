#pragma once

#include <string_view>

namespace kelp::input::bdf {

/// The look-ups' name rule, looser than the schema's: any mix of blanks, tabs, line ends and `$` is
/// passed over in front, blanks, tabs and line ends behind; case does not matter.
bool names_match(std::string_view wanted, std::string_view candidate) noexcept;

}  // namespace kelp::input::bdf
