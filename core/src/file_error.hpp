#pragma once

#include <stdexcept>
#include <string>
#include <system_error>

namespace kelp::core::fs {

/// Raises the one kind of error that reading a file has.
[[noreturn]] inline void throw_unreadable(const std::string& path, const std::string& cause) {
  throw std::runtime_error("cannot read '" + path + "': " + cause);
}

}  // namespace kelp::core::fs
