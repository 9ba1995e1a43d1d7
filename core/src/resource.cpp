#include "kelp/core/resource.hpp"

#include <filesystem>
#include <optional>
#include <system_error>

#include "module_path.hpp"
#include "path_kind.hpp"
#include "utf8_path.hpp"

namespace kelp::core::resource {
namespace {

namespace stdfs = std::filesystem;

std::optional<stdfs::path> regular_file(const stdfs::path& path) {
  if (is_regular_file_path(utf8_from_path(path))) {
    return path;
  }
  return std::nullopt;
}

// The folder of a build tree holds the file directly, an install prefix under share/kelp.
std::optional<stdfs::path> find_upwards(stdfs::path folder, const stdfs::path& relative,
                                        int parents) {
  for (int level = 0; level <= parents && !folder.empty(); ++level) {
    if (auto found = regular_file(folder / relative)) {
      return found;
    }
    if (auto found = regular_file(folder / "share" / "kelp" / relative)) {
      return found;
    }
    const stdfs::path parent = folder.parent_path();
    if (parent == folder) {
      break;
    }
    folder = parent;
  }
  return std::nullopt;
}

stdfs::path folder_of_hint(const std::string& hint) {
  std::error_code error;
  const stdfs::path given = path_from_utf8(hint);
  stdfs::path path = stdfs::absolute(given, error);
  if (error) {
    path = given;
  }
  path = path.lexically_normal();
  if (path_kind(utf8_from_path(path)) != PathKind::Folder || !path.has_filename()) {
    path = path.parent_path();
  }
  return path;
}

std::vector<stdfs::path> starting_folders(const std::string& hint) {
  std::vector<stdfs::path> folders;
  if (!hint.empty()) {
    folders.push_back(folder_of_hint(hint));
  }
  for (const std::string& file : {running_module_path(), executable_path()}) {
    if (!file.empty()) {
      folders.push_back(path_from_utf8(file).parent_path());
    }
  }
  return folders;
}

}  // namespace

bool is_regular_file_path(const std::string& path) {
  return path_kind(path) == PathKind::File;
}

std::string path_beside(const std::string& file, const std::string& name) {
  return utf8_from_path(path_from_utf8(file).parent_path() / path_from_utf8(name));
}

std::string full_path(const std::string& path) {
  std::error_code error;
  const stdfs::path given = path_from_utf8(path);
  const stdfs::path full = stdfs::absolute(given, error);
  stdfs::path normal = (error ? given : full).lexically_normal();
  // "a/b/" is the folder "a/b".
  if (!normal.has_filename() && normal != normal.root_path()) {
    normal = normal.parent_path();
  }
  return utf8_from_path(normal);
}

std::string folder_of(const std::string& full_path) {
  return utf8_from_path(path_from_utf8(full_path).parent_path());
}

bool lies_in(const std::string& file, const std::string& folder) {
  std::error_code error;
  const stdfs::path real_file = stdfs::canonical(path_from_utf8(file), error);
  if (error) {
    return false;
  }
  const stdfs::path real_folder = stdfs::canonical(path_from_utf8(folder), error);
  return !error && real_file.parent_path() == real_folder;
}

std::string stem_of(const std::string& file) {
  return utf8_from_path(path_from_utf8(file).stem());
}

std::string locate_file(const std::string& relative, const std::string& hint,
                        const std::vector<std::string>& extra, int limit) {
  stdfs::path wanted = path_from_utf8(relative);
  wanted.make_preferred();
  for (const stdfs::path& folder : starting_folders(hint)) {
    if (const auto found = find_upwards(folder, wanted, limit)) {
      return utf8_from_path(*found);
    }
  }
  for (const std::string& folder : extra) {
    if (const auto found = regular_file(path_from_utf8(folder) / wanted)) {
      return utf8_from_path(*found);
    }
  }
  return {};
}

}  // namespace kelp::core::resource
