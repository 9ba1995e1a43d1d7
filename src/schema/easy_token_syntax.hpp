#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelp::input::bdf {

/// A `key=value` token cut at its first `=`; the parts are views, as they stand.
struct KeyAndValue {
  std::string_view key;
  std::optional<std::string_view> value;  ///< unset when the token has no `=`
};

/// Returns a token without its `#` comment and surrounding white space.
std::string_view prepare_easy_token(std::string_view token);

/// Tells whether a prepared token has a `/` that no `=` precedes.
bool is_method_specification(std::string_view prepared);

/// Cuts a text at every `/`; empty parts are kept.
std::vector<std::string_view> split_at_slashes(std::string_view text);

/// Cuts a text at its first `=`.
KeyAndValue split_at_equals(std::string_view text);

}  // namespace kelp::input::bdf
