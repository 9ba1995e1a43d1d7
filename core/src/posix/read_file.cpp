#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>

#include "../file_error.hpp"
#include "file_descriptor.hpp"
#include "kelp/core/fs.hpp"

namespace kelp::core::fs {
namespace {

constexpr std::size_t chunk = std::size_t{64} * 1024;

[[noreturn]] void throw_errno(const std::string& path) {
  throw_unreadable(path, std::generic_category().message(errno));
}

/// What may be read.
struct Limits {
  std::size_t most = std::numeric_limits<std::size_t>::max();
  bool devices = true;
};

// A size is only a hint: pipes and files under /proc say 0, and a file may grow while it is read.
std::size_t expected_size(int file, const std::string& path, const Limits& limits) {
  struct stat status {};
  if (::fstat(file, &status) != 0) {
    throw_errno(path);
  }
  if (!limits.devices && (S_ISCHR(status.st_mode) || S_ISBLK(status.st_mode))) {
    throw_unreadable(path, is_device_cause);
  }
  const std::size_t size = S_ISREG(status.st_mode) ? static_cast<std::size_t>(status.st_size) : 0;
  if (size > limits.most) {
    throw_too_large(path);
  }
  return size;
}

std::string read_whole(const std::string& path, const Limits& limits) {
  if (path.find('\0') != std::string::npos) {
    throw_unreadable(path, std::generic_category().message(EINVAL));
  }
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
  if (!file.is_open()) {
    throw_errno(path);
  }
  std::string text;
  text.resize(expected_size(file.get(), path, limits) + 1);
  std::size_t used = 0;
  while (true) {
    if (used == text.size()) {
      text.resize(text.size() + text.size() / 2 + chunk);
    }
    const ssize_t count = ::read(file.get(), text.data() + used, text.size() - used);
    if (count == 0) {
      break;
    }
    if (count > 0) {
      used += static_cast<std::size_t>(count);
    } else if (errno != EINTR) {
      throw_errno(path);
    }
    if (used > limits.most) {
      throw_too_large(path);
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
  struct stat status {};
  // To open a pipe could wait, or take what others are to read.
  if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode) ||
      static_cast<std::size_t>(status.st_size) != text.size()) {
    return false;
  }
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  std::array<char, chunk / 4> bytes;
  ssize_t count = 0;
  while ((count = ::read(file.get(), bytes.data(), bytes.size())) > 0) {
    const auto size = static_cast<std::size_t>(count);
    if (text.substr(0, size) != std::string_view(bytes.data(), size)) {
      return false;
    }
    text.remove_prefix(size);
  }
  return count == 0 && text.empty();
}

}  // namespace kelp::core::fs
