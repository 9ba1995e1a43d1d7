#include "old_file.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <ctime>
#include <utility>

#include "system_call.hpp"

namespace kelp::core::fs {
namespace {

namespace stdfs = std::filesystem;

// Mostly it may be read; where not, its rights can be told all the same.
int open_for_status(const stdfs::path& path) {
  constexpr int flags = O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC | O_NOCTTY;
  const int file = uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | flags); });
  return file >= 0 || errno != EACCES
             ? file
             : uninterrupted([&] { return ::open(path.c_str(), O_WRONLY | flags); });
}

}  // namespace

OldFile::OldFile(stdfs::path path) : path_(std::move(path)), file_(open_for_status(path_)) {
  if (!file_.is_open() || ::fstat(file_.get(), &status_) != 0) {
    refuse(errno);
  }
  if (!S_ISREG(status_.st_mode)) {
    throw WriteRefused(is_no_file_cause);
  }
}

void OldFile::lock() const {
  constexpr int tries = 200;
  constexpr timespec pause = {0, 10'000'000};
  for (int i = 0; i < tries; ++i) {
    if (uninterrupted([this] { return ::flock(file_.get(), LOCK_EX | LOCK_NB); }) == 0 ||
        errno != EWOULDBLOCK) {
      return;
    }
    ::nanosleep(&pause, nullptr);
  }
  throw WriteRefused(busy_cause);
}

bool OldFile::is_unchanged(std::string_view text) const {
  struct stat now {};
  return ::stat(path_.c_str(), &now) == 0 && now.st_dev == status_.st_dev &&
         now.st_ino == status_.st_ino && now.st_mode == status_.st_mode &&
         now.st_uid == status_.st_uid && now.st_gid == status_.st_gid && has_text(text);
}

bool OldFile::has_text(std::string_view text) const {
  std::array<char, 65536> buffer;
  std::size_t at = 0;
  while (true) {
    const ssize_t count = uninterrupted(
        [&] { return ::pread(file_.get(), buffer.data(), buffer.size(), static_cast<off_t>(at)); });
    if (count <= 0) {
      return count == 0 && at == text.size();
    }
    const std::string_view read(buffer.data(), static_cast<std::size_t>(count));
    if (text.substr(at, read.size()) != read) {
      return false;
    }
    at += read.size();
  }
}

void open_old_file(const stdfs::path& path, std::optional<OldFile>& old) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    if (errno != ENOENT) {
      refuse(errno);
    }
    return;
  }
  if (!S_ISREG(status.st_mode)) {
    throw WriteRefused(S_ISDIR(status.st_mode) ? is_folder_cause : is_no_file_cause);
  }
  if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0) {
    if (errno != EACCES) {
      refuse(errno);
    }
    throw WriteRefused(is_protected_cause);
  }
  old.emplace(path);
}

}  // namespace kelp::core::fs
