#pragma once

#include <stdexcept>
#include <string>

#include "kelp/core/fs.hpp"

namespace kelp::core::fs {

/// Raises the one kind of error that reading a file has.
[[noreturn]] inline void throw_unreadable(const std::string& path, const std::string& cause) {
  throw std::runtime_error("cannot read '" + path + "': " + cause);
}

/// Raises the error of a file that is larger than it may be.
[[noreturn]] inline void throw_too_large(const std::string& path) {
  throw FileTooLarge("cannot read '" + path + "': it is too large");
}

/// Why a file is not written. Carries the cause alone; the path is added at the edge.
class WriteRefused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Raises the one kind of error that writing a file has.
[[noreturn]] inline void throw_unwritable(const std::string& path, const std::string& cause) {
  throw std::runtime_error("cannot write '" + path + "': " + cause);
}

/// Raises the error of a file that is not as it was read.
[[noreturn]] inline void throw_changed(const std::string& path) {
  throw FileChanged("cannot write '" + path + "': it was changed since it was read");
}

/// Raises the one kind of error that making a folder has.
[[noreturn]] inline void throw_no_folder(const std::string& path, const std::string& cause) {
  throw std::runtime_error("cannot make the folder '" + path + "': " + cause);
}

// Causes that either system has.
constexpr const char* is_folder_cause = "it is a folder";
constexpr const char* is_device_cause = "it is a device";
constexpr const char* is_no_file_cause = "it is no regular file";
constexpr const char* no_folder_cause = "its folder does not exist";
constexpr const char* is_protected_cause = "it is write-protected";
constexpr const char* folder_is_protected_cause = "its folder is write-protected";
constexpr const char* busy_cause = "another program is changing it";

}  // namespace kelp::core::fs
