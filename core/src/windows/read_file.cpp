#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "../file_error.hpp"
#include "../path_kind.hpp"
#include "error_text.hpp"
#include "handle.hpp"
#include "kelp/core/fs.hpp"
#include "wide_path.hpp"

namespace kelp::core::fs {
namespace {

constexpr std::size_t chunk = std::size_t{64} * 1024;
constexpr std::size_t largest_read = std::size_t{1} << 30U;

[[noreturn]] void throw_error(const std::string& path, DWORD error) {
  throw_unreadable(path, error_text(error));
}

// Opening a folder is refused like a file that may not be read.
[[noreturn]] void throw_not_opened(const std::string& path, const std::wstring& wide) {
  const DWORD error = ::GetLastError();
  const DWORD attributes = ::GetFileAttributesW(wide.c_str());
  const bool is_folder =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  throw_error(path, is_folder ? ERROR_DIRECTORY : error);
}

/// What may be read.
struct Limits {
  std::size_t most = std::numeric_limits<std::size_t>::max();
  bool devices = true;
};

// A size is only a hint: pipes and devices have none, and a file may grow while it is read.
std::size_t expected_size(HANDLE file) {
  LARGE_INTEGER size{};
  const bool known = ::GetFileType(file) == FILE_TYPE_DISK && ::GetFileSizeEx(file, &size) != 0;
  return known ? static_cast<std::size_t>(size.QuadPart) : 0;
}

std::size_t allowed_size(HANDLE file, const std::string& path, const Limits& limits) {
  if (!limits.devices && ::GetFileType(file) == FILE_TYPE_CHAR) {
    throw_unreadable(path, is_device_cause);
  }
  const std::size_t size = expected_size(file);
  if (size > limits.most) {
    throw_too_large(path);
  }
  return size;
}

// Returns the number of bytes read, 0 at the end.
std::size_t read_some(HANDLE file, char* to, std::size_t room, const std::string& path) {
  DWORD count = 0;
  if (::ReadFile(file, to, static_cast<DWORD>(std::min(room, largest_read)), &count, nullptr) !=
      0) {
    return count;
  }
  switch (const DWORD error = ::GetLastError()) {
    case ERROR_HANDLE_EOF:
    case ERROR_BROKEN_PIPE:
      return 0;
    case ERROR_MORE_DATA:
      return count;
    default:
      throw_error(path, error);
  }
}

HANDLE open_to_read(const std::wstring& wide) {
  return ::CreateFileW(wide.c_str(), GENERIC_READ, share_all, nullptr, OPEN_EXISTING,
                       FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
}

std::string read_whole(const std::string& path, const Limits& limits) {
  const std::wstring wide = wide_path(path);
  if (wide.empty()) {
    throw_error(path, ERROR_INVALID_NAME);
  }
  const Handle file(open_to_read(wide));
  if (!file.is_open()) {
    throw_not_opened(path, wide);
  }
  std::string text;
  text.resize(allowed_size(file.get(), path, limits) + 1);
  std::size_t used = 0;
  while (const std::size_t count =
             read_some(file.get(), text.data() + used, text.size() - used, path)) {
    used += count;
    if (used > limits.most) {
      throw_too_large(path);
    }
    if (used == text.size()) {
      text.resize(text.size() + text.size() / 2 + chunk);
    }
  }
  text.resize(used);
  return text;
}

}  // namespace

std::string read_text_file(const std::string& path) {
  return read_whole(path, {});
}

std::string read_text_file(const std::string& path, std::size_t most) {
  return read_whole(path, {most, false});
}

bool file_holds(const std::string& path, std::string_view text) {
  // To open a pipe could wait, or take what others are to read.
  if (path_kind(path) != PathKind::File) {
    return false;
  }
  const Handle file(open_to_read(wide_path(path)));
  if (!file.is_open() || expected_size(file.get()) != text.size()) {
    return false;
  }
  std::array<char, chunk / 4> bytes;
  DWORD count = 0;
  while (::ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) !=
             0 &&
         count > 0) {
    if (text.substr(0, count) != std::string_view(bytes.data(), count)) {
      return false;
    }
    text.remove_prefix(count);
  }
  return text.empty();
}

}  // namespace kelp::core::fs
