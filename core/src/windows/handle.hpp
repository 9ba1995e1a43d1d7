#pragma once

#include "win32.hpp"

namespace kelp::core {

/// Owns a handle to a file.
class Handle {
 public:
  explicit Handle(HANDLE handle) noexcept : handle_(handle) {}
  Handle(const Handle&) = delete;
  Handle(Handle&&) = delete;
  Handle& operator=(const Handle&) = delete;
  Handle& operator=(Handle&&) = delete;
  ~Handle() { close(); }

  bool is_open() const noexcept { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const noexcept { return handle_; }

  void close() noexcept {
    if (is_open()) {
      ::CloseHandle(handle_);
      handle_ = INVALID_HANDLE_VALUE;
    }
  }

 private:
  HANDLE handle_;
};

/// Others may read, write, rename and delete a file that this program has open, as they may on
/// other systems.
constexpr DWORD share_all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

}  // namespace kelp::core
