#include "kelp/core/resource.hpp"

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "../module_path.hpp"

namespace kelp::core::resource {
namespace {

std::string canonical_or_empty(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::path canonical = std::filesystem::canonical(path, error);
  return error ? std::string() : canonical.string();
}

}  // namespace

std::string getenv_string(const char* name) {
  const char* const value = ::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

bool belongs_to_stranger(const std::string& file) {
  struct stat link {};
  struct stat target {};
  struct stat folder {};
  if (::lstat(file.c_str(), &link) != 0 || ::stat(file.c_str(), &target) != 0 ||
      ::stat(folder_of(full_path(file)).c_str(), &folder) != 0) {
    return true;
  }
  const auto is_trusted = [&folder](const struct stat& owned) {
    return owned.st_uid == ::geteuid() || owned.st_uid == 0 || owned.st_uid == folder.st_uid;
  };
  return !is_trusted(link) || !is_trusted(target);
}

std::string running_module_path() {
  Dl_info info{};
  const auto* const address = reinterpret_cast<const void*>(&running_module_path);
  // A relative name was relative to the current folder of the time of loading.
  if (::dladdr(address, &info) == 0 || info.dli_fname == nullptr || info.dli_fname[0] != '/') {
    return {};
  }
  return canonical_or_empty(info.dli_fname);
}

std::string executable_path() {
  return canonical_or_empty("/proc/self/exe");
}

}  // namespace kelp::core::resource
