#pragma once

#include <algorithm>
#include <filesystem>
#include <vector>

#include "support/folders.hpp"

namespace kelp::test {

/// Returns the published inputs, sorted; none where their folder is absent.
inline std::vector<std::filesystem::path> published_inputs() {
  std::vector<std::filesystem::path> files;
  std::error_code absent;
  for (const auto& item :
       std::filesystem::recursive_directory_iterator(test::corpus_folder(), absent)) {
    if (item.path().extension() == ".inp") {
      files.push_back(item.path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace kelp::test
