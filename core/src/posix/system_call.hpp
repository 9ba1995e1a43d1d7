#pragma once

#include <cerrno>
#include <system_error>

#include "../file_error.hpp"

namespace kelp::core::fs {

/// Refuses to write for the reason that a call of the system gave.
[[noreturn]] inline void refuse(int error) {
  throw WriteRefused(std::generic_category().message(error));
}

/// Repeats a call of the system for as long as signals interrupt it.
template <typename Call>
auto uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) {
    result = call();
  }
  return result;
}

}  // namespace kelp::core::fs
