// The list of those who may access a file, beyond its mode, is an attribute of the file in Linux.
// It is copied as the bytes that the kernel gives, which spares a library for it; only where it
// cannot be set on the new file is it read, for the least that it granted.

#include "access_rights.hpp"

#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#ifdef __linux__
#include <sys/xattr.h>
#endif

namespace kelp::core::fs {
namespace {

constexpr mode_t group_shift = 3;
constexpr mode_t all_of_one = 07;

#ifdef __linux__

constexpr const char* access_list_name = "system.posix_acl_access";

bool is_absent(int error) {
  return error == ENODATA || error == ENOTSUP;
}

// Empty for a file without such an attribute; unset, with `errno`, when it cannot be told.
std::optional<std::string> attribute(int file, const char* name) {
  std::string value;
  while (true) {
    const ssize_t size = ::fgetxattr(file, name, nullptr, 0);
    if (size <= 0) {
      return size == 0 || is_absent(errno) ? std::optional(std::string()) : std::nullopt;
    }
    value.resize(static_cast<std::size_t>(size));
    const ssize_t count = ::fgetxattr(file, name, value.data(), value.size());
    if (count >= 0) {
      value.resize(static_cast<std::size_t>(count));
      return value;
    }
    if (errno != ERANGE) {
      return is_absent(errno) ? std::optional(std::string()) : std::nullopt;
    }
  }
}

bool set_attribute(int file, const char* name, const std::string& value) {
  return ::fsetxattr(file, name, value.data(), value.size(), 0) == 0;
}

// A new file may have inherited a list from its folder.
bool remove_access_list(int file) {
  return ::fremovexattr(file, access_list_name) == 0 || is_absent(errno);
}

std::optional<std::string> access_list(int file) {
  return attribute(file, access_list_name);
}

bool set_access_list(int file, const std::string& list) {
  return list.empty() ? remove_access_list(file) : set_attribute(file, access_list_name, list);
}

std::uint16_t number_at(const std::string& list, std::size_t at) {
  return static_cast<std::uint16_t>(static_cast<std::uint8_t>(list[at]) |
                                    static_cast<std::uint8_t>(list[at + 1]) << 8U);
}

// What every entry of a list but the owner's grants. An entry has a kind, permissions and an id, in
// little-endian order; four bytes with a version come first.
mode_t granted_to_all(const std::string& list) {
  constexpr std::size_t header = 4;
  constexpr std::size_t entry = 8;
  constexpr std::uint16_t owner = 1;
  mode_t granted = all_of_one;
  for (std::size_t at = header; at + entry <= list.size(); at += entry) {
    if (number_at(list, at) != owner) {
      granted &= number_at(list, at + 2);
    }
  }
  return granted;
}

#else

std::optional<std::string> access_list(int) {
  return std::string();
}

bool set_access_list(int, const std::string&) {
  return true;
}

bool remove_access_list(int) {
  return true;
}

mode_t granted_to_all(const std::string&) {
  return all_of_one;
}

#endif

// Whoever was in the group may now be one of the others, and the other way round.
mode_t narrowed(mode_t mode, const std::string& list) {
  constexpr mode_t group_and_others = 077;
  const mode_t all = mode & (mode >> group_shift) & all_of_one & granted_to_all(list);
  return (mode & ~group_and_others) | all << group_shift | all;
}

}  // namespace

// In this order, because a change of owner clears the set-id bits, and a list sets the mode.
bool keep_access_rights(int from, const struct stat& old, int to) {
  struct stat made {};
  const std::optional<std::string> list = access_list(from);
  if (!list || ::fstat(to, &made) != 0) {
    return false;
  }
  bool has_owner = made.st_uid == old.st_uid;
  bool has_group = made.st_gid == old.st_gid;
  if ((!has_owner || !has_group) && ::fchown(to, old.st_uid, old.st_gid) == 0) {
    has_owner = true;
    has_group = true;
  }
  // Who may not give a file away may still give it to a group of their own.
  has_group = has_group || ::fchown(to, static_cast<uid_t>(-1), old.st_gid) == 0;
  // Nobody's identity but the old owner's and group's was meant by these bits.
  mode_t mode = old.st_mode & static_cast<mode_t>(~S_IFMT);
  mode &= ~((has_owner ? 0U : S_ISUID) | (has_group ? 0U : S_ISGID));
  if (!has_group || !set_access_list(to, *list)) {
    if (!remove_access_list(to)) {
      return false;
    }
    mode = narrowed(mode, *list);
  }
  return ::fchmod(to, mode) == 0;
}

#ifdef __linux__

void keep_user_attributes(int from, int to) {
  const ssize_t size = ::flistxattr(from, nullptr, 0);
  if (size <= 0) {
    return;
  }
  std::string names(static_cast<std::size_t>(size), '\0');
  const ssize_t count = ::flistxattr(from, names.data(), names.size());
  if (count <= 0) {
    return;
  }
  std::string_view rest(names.data(), static_cast<std::size_t>(count));
  while (!rest.empty()) {
    const std::string name(rest.substr(0, rest.find('\0')));
    rest.remove_prefix(name.size() + (name.size() < rest.size() ? 1 : 0));
    if (name.starts_with("user.")) {
      if (const auto value = attribute(from, name.c_str())) {
        [[maybe_unused]] const bool ignored = set_attribute(to, name.c_str(), *value);
      }
    }
  }
}

#else

void keep_user_attributes(int, int) {}

#endif

}  // namespace kelp::core::fs
