// Calls of the system refuse paths of 260 units and more, unless a path is full, normalised and
// marked by a prefix that also turns off all further interpretation. Short paths stay as they are:
// not every file system driver knows the prefix.

#include "wide_path.hpp"

#include <algorithm>

#include "wide.hpp"
#include "win32.hpp"

namespace kelp::core {
namespace {

constexpr std::wstring_view long_prefix = L"\\\\?\\";
constexpr std::wstring_view long_unc_prefix = L"\\\\?\\UNC\\";
constexpr std::wstring_view unc_prefix = L"\\\\";
constexpr std::wstring_view device_prefix = L"\\\\.\\";

// Folders must stay below 260 with room for a short name within.
constexpr std::size_t longest_plain_path = 247;

std::wstring full_path(const std::wstring& path) {
  std::wstring full(MAX_PATH, L'\0');
  while (true) {
    const DWORD length =
        ::GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    const bool complete = length < full.size();
    full.resize(length);
    if (complete) {
      return full;
    }
  }
}

}  // namespace

std::wstring extended_path(std::wstring full) {
  if (full.size() <= longest_plain_path || full.starts_with(long_prefix) ||
      full.starts_with(device_prefix)) {
    return full;
  }
  if (full.starts_with(unc_prefix)) {
    return std::wstring(long_unc_prefix) + full.substr(unc_prefix.size());
  }
  return std::wstring(long_prefix) + full;
}

std::wstring plain_path(std::wstring_view path) {
  if (path.starts_with(long_unc_prefix)) {
    return std::wstring(unc_prefix).append(path.substr(long_unc_prefix.size()));
  }
  if (path.starts_with(long_prefix)) {
    path.remove_prefix(long_prefix.size());
  }
  return std::wstring(path);
}

bool is_device_path(std::wstring_view full) {
  return full.starts_with(device_prefix);
}

std::wstring folder_of(std::wstring_view full) {
  return std::wstring(full.substr(0, full.find_last_of(L"\\/") + 1));
}

std::wstring wide_path(std::string_view path) {
  std::wstring wide = wide_from_utf8(path);
  if (wide.empty() || wide.find(L'\0') != std::wstring::npos) {
    return {};
  }
  if (wide.starts_with(long_prefix)) {
    std::replace(wide.begin(), wide.end(), L'/', L'\\');
    return wide;
  }
  return extended_path(full_path(wide));
}

}  // namespace kelp::core
