#pragma once

#include <string>
#include <string_view>

namespace kelp::core {

/// Turns UTF-8 into the system's UTF-16. What is no UTF-8 becomes the replacement character: such a
/// text then names nothing, as it should.
std::wstring wide_from_utf8(std::string_view text);

/// Turns the system's UTF-16 into UTF-8; half a surrogate pair becomes the replacement character.
std::string utf8_from_wide(std::wstring_view text);

}  // namespace kelp::core
