#pragma once

#include <unistd.h>

namespace kelp::core::fs {

/// Owns a file descriptor.
class FileDescriptor {
 public:
  explicit FileDescriptor(int descriptor = -1) noexcept : descriptor_(descriptor) {}
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor(FileDescriptor&&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  FileDescriptor& operator=(FileDescriptor&&) = delete;
  ~FileDescriptor() { close(); }

  bool is_open() const noexcept { return descriptor_ >= 0; }
  int get() const noexcept { return descriptor_; }

  /// Owns another descriptor instead.
  void reset(int descriptor) noexcept {
    close();
    descriptor_ = descriptor;
  }

  /// Closes it; false when the system reports that data was lost.
  bool close() noexcept {
    const int descriptor = descriptor_;
    descriptor_ = -1;
    return descriptor < 0 || ::close(descriptor) == 0;
  }

 private:
  int descriptor_;
};

}  // namespace kelp::core::fs
