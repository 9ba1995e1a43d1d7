// The new text goes into a file of its own in the target's folder, reaches the disk there, and
// takes the target's name in one step. Until that step the old file is whole, after it the new one
// is.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "../temporary_name.hpp"
#include "file_descriptor.hpp"
#include "kelp/core/fs.hpp"

namespace kelp::core::fs {
namespace {

namespace stdfs = std::filesystem;

// As many as Linux itself follows before it speaks of a loop.
constexpr int max_links = 40;

std::optional<stdfs::path> follow_links(stdfs::path path) {
  for (int links = 0; links < max_links; ++links) {
    std::error_code error;
    if (!stdfs::is_symlink(stdfs::symlink_status(path, error))) {
      return path;
    }
    const stdfs::path target = stdfs::read_symlink(path, error);
    if (error) {
      return std::nullopt;
    }
    path = path.parent_path() / target;
  }
  return std::nullopt;
}

bool write_all(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(file, text.data(), text.size());
    if (count >= 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

bool flush(int file) {
  while (::fsync(file) != 0) {
    // Some file systems cannot flush; the write itself has succeeded then.
    if (errno != EINTR) {
      return errno == EINVAL || errno == ENOTSUP;
    }
  }
  return true;
}

// The owner is kept where the system lets us, the permissions always; in this order, because a
// change of owner clears the set-id bits.
bool copy_permissions(int file, const struct stat& old) {
  struct stat made {};
  if (::fstat(file, &made) != 0) {
    return false;
  }
  if (made.st_uid != old.st_uid || made.st_gid != old.st_gid) {
    [[maybe_unused]] const int ignored = ::fchown(file, old.st_uid, old.st_gid);
  }
  return ::fchmod(file, old.st_mode & 07777) == 0;
}

/// A file that disappears again unless it is renamed into place.
class TemporaryFile {
 public:
  explicit TemporaryFile(stdfs::path path)
      : path_(std::move(path)),
        file_(::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666)),
        exists_(file_.is_open()) {}
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile(TemporaryFile&&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  TemporaryFile& operator=(TemporaryFile&&) = delete;
  ~TemporaryFile() {
    if (exists_) {
      ::unlink(path_.c_str());
    }
  }

  bool fill(std::string_view text, const struct stat* old) {
    return exists_ && (old == nullptr || copy_permissions(file_.get(), *old)) &&
           write_all(file_.get(), text) && flush(file_.get()) && file_.close();
  }

  bool take_place_of(const stdfs::path& target) {
    exists_ = ::rename(path_.c_str(), target.c_str()) != 0;
    return !exists_;
  }

 private:
  stdfs::path path_;
  FileDescriptor file_;
  bool exists_;
};

// Only the name's durability depends on this; the file's contents are on the disk already.
void flush_folder(const stdfs::path& folder) {
  const FileDescriptor file(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (file.is_open()) {
    flush(file.get());
  }
}

bool replace_file(const std::string& path, std::string_view text) {
  const auto target = follow_links(path);
  if (!target || target->empty()) {
    return false;
  }
  struct stat old {};
  const bool exists = ::stat(target->c_str(), &old) == 0;
  // Renaming over a device or a read-only file would succeed, and is not what a user means.
  if (exists &&
      (!S_ISREG(old.st_mode) || ::faccessat(AT_FDCWD, target->c_str(), W_OK, AT_EACCESS) != 0)) {
    return false;
  }
  const stdfs::path folder = target->has_parent_path() ? target->parent_path() : stdfs::path(".");
  TemporaryFile temporary(folder / temporary_name());
  if (!temporary.fill(text, exists ? &old : nullptr) || !temporary.take_place_of(*target)) {
    return false;
  }
  flush_folder(folder);
  return true;
}

}  // namespace

bool write_text_file_atomic(const std::string& path, std::string_view text) {
  try {
    return replace_file(path, text);
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace kelp::core::fs
