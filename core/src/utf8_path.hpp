#pragma once

#include <filesystem>
#include <string>

namespace kelp::core {

/// Makes a path from UTF-8. A plain string would be taken as the ANSI code page on Windows.
inline std::filesystem::path path_from_utf8(const std::string& text) {
  return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

/// Returns a path as UTF-8.
inline std::string utf8_from_path(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
}

}  // namespace kelp::core
