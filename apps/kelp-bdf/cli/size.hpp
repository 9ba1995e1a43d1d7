#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kelp::app {

/// Reads a number of bytes: `1000`, `20k`, `256M`, `1.5G`, `1T`, in powers of 1000 and either case;
/// a `B` may follow. Nothing when it is none.
std::optional<std::size_t> parse_size(std::string_view text);

/// Returns a number of bytes as people like to read it: `256 MB`.
std::string size_text(std::size_t bytes);

}  // namespace kelp::app
