// The new text goes into a file of its own in the target's folder, reaches the disk there, and
// takes the target's name in one step. Until that step the old file is whole, after it the new one
// is.
//
// Where the system can, the new file has no name until it is complete, so that a process that is
// killed leaves nothing. From the moment that it has one, signals wait that would end the process.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "../file_error.hpp"
#include "../temporary_name.hpp"
#include "access_rights.hpp"
#include "file_descriptor.hpp"
#include "kelp/core/fs.hpp"
#include "old_file.hpp"
#include "system_call.hpp"

namespace kelp::core::fs {
namespace {

namespace stdfs = std::filesystem;

stdfs::path end_of_links(stdfs::path path) {
  // As many as Linux itself follows before it speaks of a loop.
  constexpr int max_links = 40;
  for (int links = 0; links <= max_links; ++links) {
    std::error_code error;
    if (!stdfs::is_symlink(stdfs::symlink_status(path, error))) {
      return path;
    }
    const stdfs::path target = stdfs::read_symlink(path, error);
    if (error) {
      refuse(error.value());
    }
    path = path.parent_path() / target;
  }
  refuse(ELOOP);
}

stdfs::path folder_of(const stdfs::path& path) {
  return path.has_parent_path() ? path.parent_path() : stdfs::path(".");
}

// Holds back the signals that users and systems end a process with.
class SignalsHeldBack {
 public:
  SignalsHeldBack() {
    sigset_t held;
    sigemptyset(&held);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
      sigaddset(&held, signal);
    }
    ::pthread_sigmask(SIG_BLOCK, &held, &before_);
  }
  SignalsHeldBack(const SignalsHeldBack&) = delete;
  SignalsHeldBack(SignalsHeldBack&&) = delete;
  SignalsHeldBack& operator=(const SignalsHeldBack&) = delete;
  SignalsHeldBack& operator=(SignalsHeldBack&&) = delete;
  ~SignalsHeldBack() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

 private:
  sigset_t before_{};
};

bool write_all(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = uninterrupted([&] { return ::write(file, text.data(), text.size()); });
    if (count <= 0) {
      errno = count == 0 ? EIO : errno;
      return false;
    }
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

// Some file systems cannot flush; the write itself has succeeded then.
bool flush(int file) {
  return uninterrupted([file] { return ::fsync(file); }) == 0 || errno == EINVAL ||
         errno == ENOTSUP;
}

// Some file systems tell only when a descriptor is closed that they lost data. The file itself must
// stay open for as long as it has no name. Without another descriptor nobody can tell.
bool is_kept_when_closed(int file) {
  const int copy = ::fcntl(file, F_DUPFD_CLOEXEC, 0);
  return copy < 0 || ::close(copy) == 0 || errno == EINTR;
}

/// A new file in a folder, which disappears again unless it takes the place of another.
class NewFile {
 public:
  NewFile(stdfs::path folder, mode_t mode) : folder_(std::move(folder)), mode_(mode) {}
  NewFile(const NewFile&) = delete;
  NewFile(NewFile&&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  NewFile& operator=(NewFile&&) = delete;
  ~NewFile() {
    if (!name_.empty()) {
      ::unlink(name_.c_str());
    }
  }

  // False when the system or the file system knows no files without a name.
  bool make_unnamed() {
#ifdef O_TMPFILE
    constexpr int flags = O_TMPFILE | O_WRONLY | O_CLOEXEC;
    file_.reset(uninterrupted([this] { return ::open(folder_.c_str(), flags, mode_); }));
#endif
    return file_.is_open();
  }

  void make_named() {
    held_.emplace();
    stdfs::path name = folder_ / temporary_name();
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;
    file_.reset(uninterrupted([&] { return ::open(name.c_str(), flags, mode_); }));
    if (file_.is_open()) {
      name_ = std::move(name);
      return;
    }
    switch (errno) {
      case ENOENT:
        throw WriteRefused(no_folder_cause);
      case EACCES:
        throw WriteRefused(folder_is_protected_cause);
      default:
        refuse(errno);
    }
  }

  // Until the rights are those of the old file, nobody else may open this one. They come last,
  // because writing takes the set-id bits away.
  void fill(std::string_view text, const std::optional<OldFile>& old) {
    if (!write_all(file_.get(), text) ||
        (old && !keep_access_rights(old->get(), old->status(), file_.get()))) {
      refuse(errno);
    }
    if (old) {
      keep_user_attributes(old->get(), file_.get());
    }
    if (!flush(file_.get()) || !is_kept_when_closed(file_.get())) {
      refuse(errno);
    }
  }

  // Gives a file its name that has none; false when the system does not let us.
  bool give_name() {
    if (!name_.empty()) {
      return true;
    }
    held_.emplace();
    stdfs::path name = folder_ / temporary_name();
    const std::string self = "/proc/self/fd/" + std::to_string(file_.get());
    if (::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) != 0) {
      held_.reset();
      return false;
    }
    name_ = std::move(name);
    return true;
  }

  void take_place_of(const stdfs::path& target) {
    if (::rename(name_.c_str(), target.c_str()) != 0) {
      refuse(errno);
    }
    name_.clear();
  }

 private:
  std::optional<SignalsHeldBack> held_;
  stdfs::path folder_;
  mode_t mode_;
  FileDescriptor file_;
  stdfs::path name_;  // empty while it has none
};

// Only the name's durability depends on this; the file's contents are on the disk already.
void flush_folder(const stdfs::path& folder) {
  const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.is_open()) {
    [[maybe_unused]] const bool ignored = flush(opened.get());
  }
}

// Those who lock do it one after the other, and the second sees what the first did. Of programs
// that do not lock, the comparison notices all but what they do between it and the replacement.
void expect_unchanged(const std::string& path, const std::optional<OldFile>& old,
                      const std::string_view* old_text) {
  if (old_text == nullptr) {
    return;
  }
  if (old) {
    old->lock();
  }
  if (!old || !old->is_unchanged(*old_text)) {
    throw_changed(path);
  }
}

void replace_file(const std::string& path, const std::string_view* old_text,
                  std::string_view text) {
  if (path.empty() || path.find('\0') != std::string::npos) {
    refuse(path.empty() ? ENOENT : EINVAL);
  }
  const stdfs::path target = end_of_links(path);
  const stdfs::path folder = folder_of(target);
  std::optional<OldFile> old;
  open_old_file(target, old);
  constexpr mode_t private_mode = 0600;
  constexpr mode_t usual_mode = 0666;
  NewFile made(folder, old ? private_mode : usual_mode);
  const auto complete = [&] {
    made.fill(text, old);
    expect_unchanged(path, old, old_text);
  };
  bool is_named = false;
  if (made.make_unnamed()) {
    complete();
    is_named = made.give_name();
  }
  if (!is_named) {
    made.make_named();
    complete();
  }
  made.take_place_of(target);
  flush_folder(folder);
}

void replace_or_throw(const std::string& path, const std::string_view* old_text,
                      std::string_view text) {
  try {
    replace_file(path, old_text, text);
  } catch (const WriteRefused& refused) {
    throw_unwritable(path, refused.what());
  }
}

}  // namespace

void write_text_file(const std::string& path, std::string_view text) {
  replace_or_throw(path, nullptr, text);
}

void replace_text_file(const std::string& path, std::string_view old_text,
                       std::string_view new_text) {
  replace_or_throw(path, &old_text, new_text);
}

bool write_text_file_atomic(const std::string& path, std::string_view text) {
  try {
    replace_file(path, nullptr, text);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace kelp::core::fs
