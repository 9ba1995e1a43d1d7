#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/files.hpp"
#include "windows/wide.hpp"
#include "windows/wide_path.hpp"
#include "windows/win32.hpp"

namespace kelp::core {

/// A folder whose path is longer than the 260 characters that the system takes by itself, and which
/// the standard library could neither make nor remove.
class DeepFolder {
 public:
  DeepFolder() {
    std::string path = test::utf8(top_.path());
    for (int level = 0; level < 3; ++level) {
      path += "\\" + std::string(100, 'd') + "水";
      EXPECT_NE(::CreateDirectoryW(wide_path(path).c_str(), nullptr), 0);
      folders_.push_back(path);
    }
  }
  DeepFolder(const DeepFolder&) = delete;
  DeepFolder(DeepFolder&&) = delete;
  DeepFolder& operator=(const DeepFolder&) = delete;
  DeepFolder& operator=(DeepFolder&&) = delete;
  ~DeepFolder() {
    for (const std::string& name : names()) {
      ::DeleteFileW(wide_path(path() + "\\" + name).c_str());
    }
    for (; !folders_.empty(); folders_.pop_back()) {
      ::RemoveDirectoryW(wide_path(folders_.back()).c_str());
    }
  }

  const std::string& top() const { return folders_.front(); }
  const std::string& path() const { return folders_.back(); }

  /// Returns the names of the files in the deepest folder.
  std::vector<std::string> names() const {
    std::vector<std::string> names;
    WIN32_FIND_DATAW item{};
    const HANDLE search = ::FindFirstFileW(wide_path(path() + "\\*").c_str(), &item);
    if (search == INVALID_HANDLE_VALUE) {
      return names;
    }
    do {
      if ((item.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        names.push_back(utf8_from_wide(item.cFileName));
      }
    } while (::FindNextFileW(search, &item) != 0);
    ::FindClose(search);
    return names;
  }

 private:
  test::TemporaryFolder top_;
  std::vector<std::string> folders_;
};

}  // namespace kelp::core
