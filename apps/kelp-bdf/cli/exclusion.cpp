#include "cli/exclusion.hpp"

#include <algorithm>

#include "kelp/core/glob.hpp"

namespace kelp::app {
namespace {

// Patterns have slashes everywhere. Where a backslash is no separator it may stand in a name.
std::string with_slashes(std::string_view path) {
  std::string text(path);
#ifdef _WIN32
  std::replace(text.begin(), text.end(), '\\', '/');
#endif
  return text;
}

std::string_view without_prefix(std::string_view text, std::string_view prefix) {
  return text.starts_with(prefix) ? text.substr(prefix.size()) : text;
}

bool matches_any(const std::vector<std::string>& patterns, std::string_view path) {
  return std::any_of(patterns.begin(), patterns.end(), [path](const std::string& pattern) {
    return core::glob::matches(pattern, path);
  });
}

}  // namespace

Exclusion::Exclusion(std::string_view folder, const std::vector<std::string>& patterns)
    : folder_(with_slashes(folder)) {
  if (!folder_.empty() && !folder_.ends_with('/')) {
    folder_ += '/';
  }
  for (std::string pattern : patterns) {
    // "old/" is what the shell makes of the folder "old".
    while (pattern.size() > 1 && pattern.ends_with('/')) {
      pattern.pop_back();
    }
    const std::string_view path = without_prefix(pattern, "./");
    (path.find('/') == std::string_view::npos ? names_ : paths_).emplace_back(path);
  }
}

bool Exclusion::leaves_out(std::string_view path) const {
  const std::string text = with_slashes(path);
  const std::string_view written = without_prefix(text, "./");
  const std::string_view below = without_prefix(text, folder_);
  const std::string_view name = below.substr(below.rfind('/') + 1);
  return matches_any(names_, name) || matches_any(paths_, below) || matches_any(paths_, written);
}

}  // namespace kelp::app
