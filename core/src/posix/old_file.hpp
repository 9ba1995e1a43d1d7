#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <optional>
#include <string_view>

#include "file_descriptor.hpp"

namespace kelp::core::fs {

/// The file that is to be replaced. It is held open, so that its rights, its text and its lock are
/// those of one file, whatever becomes of the name.
class OldFile {
 public:
  /// @throws WriteRefused when it cannot be opened or is no regular file.
  explicit OldFile(std::filesystem::path path);

  int get() const noexcept { return file_.get(); }
  const struct stat& status() const noexcept { return status_; }

  /// Takes the lock for comparing and replacing; goes without on a file system that has none.
  /// @throws WriteRefused when another program keeps it.
  void lock() const;

  /// Tells whether the path still leads to this file, with the same owner and mode and with this
  /// text.
  bool is_unchanged(std::string_view text) const;

 private:
  bool has_text(std::string_view text) const;

  std::filesystem::path path_;
  FileDescriptor file_;
  struct stat status_ {};
};

/// Opens the file at a path; leaves `old` unset when there is none. Renaming over a device or a
/// read-only file would succeed, and is not what a user means.
/// @throws WriteRefused for what may not be replaced.
void open_old_file(const std::filesystem::path& path, std::optional<OldFile>& old);

}  // namespace kelp::core::fs
