#include "kelp/core/resource.hpp"

#include <string>

#include "../module_path.hpp"
#include "final_path.hpp"
#include "handle.hpp"
#include "wide.hpp"
#include "wide_path.hpp"

namespace kelp::core::resource {
namespace {

// A module started through a link belongs where the link leads: its files lie there.
std::wstring follow_link(const std::wstring& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
    return path;
  }
  const Handle file(::CreateFileW(path.c_str(), 0, share_all, nullptr, OPEN_EXISTING, 0, nullptr));
  const std::wstring target = file.is_open() ? final_path(file.get()) : std::wstring();
  return target.empty() ? path : target;
}

std::string module_path(HMODULE module) {
  std::wstring path(MAX_PATH, L'\0');
  while (true) {
    const DWORD length = ::GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    // A path that was cut off fills all the room.
    if (length < path.size()) {
      path.resize(length);
      return utf8_from_wide(plain_path(follow_link(extended_path(path))));
    }
    path.resize(path.size() * 2);
  }
}

}  // namespace

bool belongs_to_stranger(const std::string& /*file*/) {
  return false;
}

std::string getenv_string(const char* name) {
  const std::wstring wide_name = wide_from_utf8(name);
  std::wstring value;
  // The C library keeps a copy of its own, which misses what the host sets by the system's call.
  while (true) {
    const DWORD length = ::GetEnvironmentVariableW(wide_name.c_str(), value.data(),
                                                   static_cast<DWORD>(value.size()));
    if (length <= value.size()) {
      value.resize(length);
      return utf8_from_wide(value);
    }
    value.resize(length);
  }
}

std::string running_module_path() {
  constexpr DWORD flags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  HMODULE module = nullptr;
  const auto* const address = reinterpret_cast<const wchar_t*>(&running_module_path);
  return ::GetModuleHandleExW(flags, address, &module) == 0 ? std::string() : module_path(module);
}

std::string executable_path() {
  return module_path(nullptr);
}

}  // namespace kelp::core::resource
