#pragma once

#include <string>
#include <string_view>

namespace kelp::input::bdf {

/// Returns the text itself.
/// @throws std::logic_error for a null pointer with a length, as making a string of it would.
std::string_view require_text(std::string_view text);

/// Returns the part of a text that is a name, in its own case: trimmed, without one leading `$`.
std::string_view bare_key(std::string_view text) noexcept;

/// The schema's name rule: the bare key in lower case.
std::string normalize_key(std::string_view text);

}  // namespace kelp::input::bdf
