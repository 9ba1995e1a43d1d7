// Asked of the system itself: the standard library stops at 260 characters.

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "../file_error.hpp"
#include "../path_kind.hpp"
#include "error_text.hpp"
#include "kelp/core/fs.hpp"
#include "kelp/core/resource.hpp"
#include "wide.hpp"
#include "wide_path.hpp"

namespace kelp::core::fs {
namespace {

std::string inside(const std::string& folder, std::string_view name) {
  const bool has_separator =
      !folder.empty() && std::string_view("/\\:").find(folder.back()) != std::string_view::npos;
  return folder + (has_separator ? "" : "\\") + std::string(name);
}

// Files in the cloud are marked like links, but hold what they say.
bool is_link(const WIN32_FIND_DATAW& item) {
  return (item.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
         (item.dwReserved0 == IO_REPARSE_TAG_SYMLINK ||
          item.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT);
}

using FolderRule = std::function<bool(const std::string&)>;

void add_item(const std::string& folder, const WIN32_FIND_DATAW& item, const FolderRule& is_wanted,
              std::vector<std::string>& folders, FolderContents& contents) {
  const std::wstring_view name = item.cFileName;
  if (name == L"." || name == L"..") {
    return;
  }
  std::string path = inside(folder, utf8_from_wide(name));
  const bool is_folder = (item.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  if (is_folder && !is_link(item)) {
    if (!is_wanted || is_wanted(path)) {
      folders.push_back(std::move(path));
    }
  } else if (!is_folder) {
    contents.files.push_back(std::move(path));
  }
}

void add_error(const std::string& folder, DWORD error, FolderContents& contents) {
  contents.errors.push_back("cannot read '" + folder + "': " + error_text(error));
}

void add_folder(const std::string& folder, const FolderRule& is_wanted,
                std::vector<std::string>& folders, FolderContents& contents) {
  WIN32_FIND_DATAW item{};
  const std::wstring pattern = wide_path(inside(folder, "*"));
  const HANDLE search = ::FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &item,
                                           FindExSearchNameMatch, nullptr, 0);
  if (search == INVALID_HANDLE_VALUE) {
    add_error(folder, ::GetLastError(), contents);
    return;
  }
  try {
    do {
      add_item(folder, item, is_wanted, folders, contents);
    } while (::FindNextFileW(search, &item) != 0);
    if (const DWORD error = ::GetLastError(); error != ERROR_NO_MORE_FILES) {
      add_error(folder, error, contents);
    }
  } catch (...) {
    ::FindClose(search);
    throw;
  }
  ::FindClose(search);
}

// Somebody else may make one at the same time.
DWORD make_folders(const std::string& path) {
  if (path_kind(path) == PathKind::Folder) {
    return ERROR_SUCCESS;
  }
  const std::string full = resource::full_path(path);
  const std::string parent = resource::folder_of(full);
  if (parent != full) {
    if (const DWORD error = make_folders(parent); error != ERROR_SUCCESS) {
      return error;
    }
  }
  if (::CreateDirectoryW(wide_path(path).c_str(), nullptr) != 0) {
    return ERROR_SUCCESS;
  }
  const DWORD error = ::GetLastError();
  return path_kind(path) == PathKind::Folder ? ERROR_SUCCESS : error;
}

}  // namespace

bool is_directory(const std::string& path) {
  return path_kind(path) == PathKind::Folder;
}

void make_folder(const std::string& path) {
  if (const DWORD error = make_folders(path); error != ERROR_SUCCESS) {
    throw_no_folder(path, error_text(error));
  }
}

FolderContents files_below(const std::string& folder, const FolderRule& is_wanted) {
  FolderContents contents;
  std::vector<std::string> folders = {folder};
  while (!folders.empty()) {
    const std::string current = std::move(folders.back());
    folders.pop_back();
    add_folder(current, is_wanted, folders, contents);
  }
  std::sort(contents.files.begin(), contents.files.end());
  return contents;
}

}  // namespace kelp::core::fs
