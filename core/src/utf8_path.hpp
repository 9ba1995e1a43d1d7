#pragma once

#include <filesystem>
#include <string>

#ifdef _WIN32
#include "windows/wide.hpp"
#endif

namespace kelp::core {

/// Makes a path from UTF-8. A plain string would be taken as the ANSI code page on Windows.
inline std::filesystem::path path_from_utf8(const std::string& text) {
#ifdef _WIN32
  return wide_from_utf8(text);
#else
  return text;
#endif
}

/// Returns a path as UTF-8.
inline std::string utf8_from_path(const std::filesystem::path& path) {
#ifdef _WIN32
  return utf8_from_wide(path.native());
#else
  return path.native();
#endif
}

}  // namespace kelp::core
