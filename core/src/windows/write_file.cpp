// The new text goes into a file of its own in the target's folder, reaches the disk there, and
// takes the target's name in one step. `ReplaceFileW` is not used for that step: it takes two, and
// between them, or after a failure of the second, there is no file of that name at all.
//
// Until it is complete the new file is one that the system deletes when it is closed, so that a
// process that is killed leaves nothing.

#include <algorithm>
#include <cstddef>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "../file_error.hpp"
#include "../temporary_name.hpp"
#include "error_text.hpp"
#include "file_calls.hpp"
#include "final_path.hpp"
#include "handle.hpp"
#include "kelp/core/fs.hpp"
#include "replacing_lock.hpp"
#include "wide.hpp"
#include "wide_path.hpp"

namespace kelp::core::fs {
namespace {

constexpr std::size_t largest_write = std::size_t{1} << 30U;

[[noreturn]] void refuse(DWORD error) {
  throw WriteRefused(error_text(error));
}

// Virus scanners and indexers open every new file for a moment. Tries again while the action fails
// for such a reason, up to a sixth of a second altogether.
template <typename Action>
bool patiently(const FileCalls& calls, Action action) {
  constexpr DWORD longest_pause = 80;
  for (DWORD pause = 10; !action(); pause *= 2) {
    const DWORD error = ::GetLastError();
    const bool may_pass = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
    if (!may_pass || pause > longest_pause) {
      return false;
    }
    calls.pause(pause);
  }
  return true;
}

struct Target {
  std::wstring path;
  DWORD attributes = FILE_ATTRIBUTE_NORMAL;
  bool exists = false;
};

void expect_writable_file(DWORD attributes) {
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    const DWORD error = ::GetLastError();
    throw WriteRefused(error == ERROR_PATH_NOT_FOUND ? no_folder_cause : error_text(error));
  }
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    throw WriteRefused(is_folder_cause);
  }
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    throw WriteRefused(is_protected_cause);
  }
}

// Opening it for writing tells, before anything is done, whether the file may be written, whether
// another program keeps it to itself, and where a symbolic link leads.
Target open_target(const FileCalls& calls, Target target) {
  HANDLE opened = INVALID_HANDLE_VALUE;
  const bool is_open = patiently(calls, [&] {
    opened = calls.open(target.path.c_str(), GENERIC_WRITE, share_all, nullptr, OPEN_EXISTING, 0,
                        nullptr);
    return opened != INVALID_HANDLE_VALUE;
  });
  if (!is_open) {
    refuse(::GetLastError());
  }
  const Handle file(opened);
  if (::GetFileType(file.get()) != FILE_TYPE_DISK) {
    throw WriteRefused(is_no_file_cause);
  }
  if ((target.attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
    target.path = final_path(file.get(), calls.final_path);
    target.attributes = calls.attributes(target.path.c_str());
    expect_writable_file(target.attributes);
  }
  return target;
}

Target find_target(const FileCalls& calls, const std::string& path) {
  Target target;
  target.path = wide_path(path);
  if (target.path.empty()) {
    refuse(ERROR_INVALID_NAME);
  }
  if (is_device_path(target.path)) {
    throw WriteRefused(is_no_file_cause);
  }
  const DWORD attributes = calls.attributes(target.path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES && ::GetLastError() == ERROR_FILE_NOT_FOUND) {
    return target;
  }
  expect_writable_file(attributes);
  target.attributes = attributes;
  target.exists = true;
  return open_target(calls, std::move(target));
}

/// A file that disappears again unless it is renamed into place.
class TemporaryFile {
 public:
  TemporaryFile(const FileCalls& calls, std::wstring path, DWORD attributes)
      : calls_(calls),
        path_(std::move(path)),
        file_(calls.open(path_.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW, attributes,
                         nullptr)),
        exists_(file_.is_open()) {
    if (!exists_) {
      const DWORD error = ::GetLastError();
      throw WriteRefused(error == ERROR_ACCESS_DENIED ? folder_is_protected_cause
                                                      : error_text(error));
    }
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile(TemporaryFile&&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  TemporaryFile& operator=(TemporaryFile&&) = delete;
  ~TemporaryFile() {
    file_.close();
    if (exists_) {
      ::DeleteFileW(path_.c_str());
    }
  }

  // The rights come first, so that nobody reads the text whom the old file shuts out, and because a
  // file that is to be deleted opens no more.
  void fill(const Target& target, std::string_view text) {
    if (target.exists && !calls_.copy_rights(target.path.c_str(), path_.c_str())) {
      refuse(::GetLastError());
    }
    static_cast<void>(delete_when_closed(true));
    if (!write_all(text) || calls_.flush(file_.get()) == 0 || !delete_when_closed(false)) {
      refuse(::GetLastError());
    }
    file_.close();
  }

  void take_place_of(const Target& target) {
    const bool moved = patiently(calls_, [&] {
      return calls_.move(path_.c_str(), target.path.c_str(),
                         MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
    });
    if (!moved) {
      refuse(::GetLastError());
    }
    exists_ = false;
  }

 private:
  bool write_all(std::string_view text) {
    while (!text.empty()) {
      const auto size = static_cast<DWORD>(std::min(text.size(), largest_write));
      DWORD count = 0;
      if (calls_.write(file_.get(), text.data(), size, &count, nullptr) == 0) {
        return false;
      }
      if (count == 0) {
        ::SetLastError(ERROR_WRITE_FAULT);
        return false;
      }
      text.remove_prefix(count);
    }
    return true;
  }

  // A file system that cannot do it leaves the mark out, and has none to take back.
  bool delete_when_closed(bool wanted) {
    if (wanted || is_marked_) {
      FILE_DISPOSITION_INFO mark{};
      mark.DeleteFile = wanted ? TRUE : FALSE;
      if (calls_.set_information(file_.get(), FileDispositionInfo, &mark, sizeof mark) == 0) {
        return false;
      }
      is_marked_ = wanted;
    }
    return true;
  }

  const FileCalls& calls_;
  std::wstring path_;
  Handle file_;
  bool exists_;
  bool is_marked_ = false;
};

// Those of a file's attributes that a new file can be given.
DWORD lasting_attributes(DWORD attributes) {
  constexpr DWORD lasting = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                            FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | FILE_ATTRIBUTE_ENCRYPTED;
  const DWORD kept = attributes & lasting;
  return kept == 0 ? FILE_ATTRIBUTE_NORMAL : kept;
}

// Nobody who locks replaces the file between the comparison and the end of the lock.
void expect_unchanged(const std::string& path, const Target& target,
                      const std::string_view* old_text, std::optional<ReplacingLock>& lock) {
  if (old_text == nullptr) {
    return;
  }
  if (target.exists) {
    lock.emplace(target.path);
  }
  if (!lock || !lock->is_of_present_file() || read_text_file(path) != *old_text) {
    throw_changed(path);
  }
}

void replace_or_throw(const std::string& path, const std::string_view* old_text,
                      std::string_view text) {
  try {
    replace_or_refuse(FileCalls(), path, old_text, text);
  } catch (const WriteRefused& refused) {
    throw_unwritable(path, refused.what());
  }
}

}  // namespace

void replace_or_refuse(const FileCalls& calls, const std::string& path,
                       const std::string_view* old_text, std::string_view text) {
  const Target target = find_target(calls, path);
  std::wstring name = folder_of(target.path) + wide_from_utf8(temporary_name());
  TemporaryFile temporary(calls, extended_path(std::move(name)),
                          lasting_attributes(target.attributes));
  temporary.fill(target, text);
  std::optional<ReplacingLock> lock;
  expect_unchanged(path, target, old_text, lock);
  temporary.take_place_of(target);
}

bool replace_file(const FileCalls& calls, const std::string& path, std::string_view text) {
  try {
    replace_or_refuse(calls, path, nullptr, text);
    return true;
  } catch (const WriteRefused&) {
    return false;
  }
}

void write_text_file(const std::string& path, std::string_view text) {
  replace_or_throw(path, nullptr, text);
}

void replace_text_file(const std::string& path, std::string_view old_text,
                       std::string_view new_text) {
  replace_or_throw(path, &old_text, new_text);
}

bool write_text_file_atomic(const std::string& path, std::string_view text) {
  try {
    return replace_file(FileCalls(), path, text);
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace kelp::core::fs
