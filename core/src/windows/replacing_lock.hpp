#pragma once

#include <string>
#include <string_view>

#include "handle.hpp"

namespace kelp::core::fs {

/// Keeps other programs that use this class from replacing a file while it lives. The lock lies
/// beside the file, because Windows replaces no file that somebody has open.
class ReplacingLock {
 public:
  /// Takes the lock of the file at a path; without one when the system gives none.
  /// @throws WriteRefused when somebody else keeps it.
  explicit ReplacingLock(std::wstring path);
  ReplacingLock(const ReplacingLock&) = delete;
  ReplacingLock(ReplacingLock&&) = delete;
  ReplacingLock& operator=(const ReplacingLock&) = delete;
  ReplacingLock& operator=(ReplacingLock&&) = delete;
  ~ReplacingLock();

  /// Tells whether the path still leads to the file whose lock this is.
  bool is_of_present_file() const;

 private:
  std::wstring path_;
  std::wstring identity_;  // empty when the system cannot tell
  HANDLE mutex_;
  bool is_held_;
};

}  // namespace kelp::core::fs
