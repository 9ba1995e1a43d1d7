#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <system_error>

#include "../file_error.hpp"
#include "../utf8_path.hpp"
#include "kelp/core/fs.hpp"

namespace kelp::core::fs {
namespace {

namespace stdfs = std::filesystem;

void add_error(const stdfs::path& path, const std::error_code& error, FolderContents& contents) {
  contents.errors.push_back("cannot read '" + utf8_from_path(path) + "': " + error.message());
}

using FolderRule = std::function<bool(const std::string&)>;

void add_entry(const stdfs::directory_entry& entry, const FolderRule& is_wanted,
               std::vector<stdfs::path>& folders, FolderContents& contents) {
  std::error_code error;
  switch (entry.status(error).type()) {
    case stdfs::file_type::directory:
      if (!entry.is_symlink(error) && (!is_wanted || is_wanted(utf8_from_path(entry.path())))) {
        folders.push_back(entry.path());
      }
      return;
    case stdfs::file_type::regular:
    // A link that leads nowhere, or a file that nobody may look at: reading it tells.
    case stdfs::file_type::not_found:
    case stdfs::file_type::none:
    case stdfs::file_type::unknown:
      contents.files.push_back(utf8_from_path(entry.path()));
      return;
    default:
      return;
  }
}

}  // namespace

bool is_directory(const std::string& path) {
  std::error_code error;
  return stdfs::is_directory(path_from_utf8(path), error);
}

void make_folder(const std::string& path) {
  std::error_code error;
  stdfs::create_directories(path_from_utf8(path), error);
  if (error) {
    throw_no_folder(path, error.message());
  }
}

FolderContents files_below(const std::string& folder, const FolderRule& is_wanted) {
  FolderContents contents;
  std::vector<stdfs::path> folders = {path_from_utf8(folder)};
  while (!folders.empty()) {
    const stdfs::path current = folders.back();
    folders.pop_back();
    std::error_code error;
    stdfs::directory_iterator entries(current, error);
    for (; !error && entries != stdfs::directory_iterator(); entries.increment(error)) {
      add_entry(*entries, is_wanted, folders, contents);
    }
    if (error) {
      add_error(current, error, contents);
    }
  }
  std::sort(contents.files.begin(), contents.files.end());
  return contents;
}

}  // namespace kelp::core::fs
