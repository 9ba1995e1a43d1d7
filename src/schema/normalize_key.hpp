#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "kelp/core/text.hpp"

namespace kelp::input::bdf {

/// Returns the text itself.
/// @throws std::logic_error for a null pointer with a length, as making a string of it would.
std::string_view require_text(std::string_view text);

/// Returns the part of a text that is a name, in its own case: trimmed, without one leading `$`.
constexpr std::string_view bare_key(std::string_view text) noexcept {
  const std::string_view key = core::text::trim_view(text);
  return key.starts_with('$') ? key.substr(1) : key;
}

/// The schema's name rule: the bare key in lower case.
std::string normalize_key(std::string_view text);

/// Tells whether a bare key is `normal` by that rule.
constexpr bool is_normally(std::string_view bare, std::string_view normal) noexcept {
  if (bare.size() != normal.size()) {
    return false;
  }
  for (std::size_t i = 0; i < bare.size(); ++i) {
    if (core::text::to_lower(bare[i]) != normal[i]) {
      return false;
    }
  }
  return true;
}

}  // namespace kelp::input::bdf
