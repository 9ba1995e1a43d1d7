// The new text goes into a file of its own in the target's folder, reaches the disk there, and
// takes the target's name in one step. `ReplaceFileW` is not used for that step: it takes two, and
// between them, or after a failure of the second, there is no file of that name at all.

#include <algorithm>
#include <cstddef>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "../temporary_name.hpp"
#include "file_calls.hpp"
#include "final_path.hpp"
#include "handle.hpp"
#include "kelp/core/fs.hpp"
#include "wide.hpp"
#include "wide_path.hpp"

namespace kelp::core::fs {
namespace {

constexpr std::size_t largest_write = std::size_t{1} << 30U;

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

bool is_plain_writable_file(DWORD attributes) {
  return attributes != INVALID_FILE_ATTRIBUTES &&
         (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) == 0;
}

// Opening it for writing tells, before anything is done, whether the file may be written, whether
// another program keeps it to itself, and where a symbolic link leads.
std::optional<Target> open_target(const FileCalls& calls, Target target) {
  HANDLE opened = INVALID_HANDLE_VALUE;
  patiently(calls, [&] {
    opened = calls.open(target.path.c_str(), GENERIC_WRITE, share_all, nullptr, OPEN_EXISTING, 0,
                        nullptr);
    return opened != INVALID_HANDLE_VALUE;
  });
  const Handle file(opened);
  if (!file.is_open() || ::GetFileType(file.get()) != FILE_TYPE_DISK) {
    return std::nullopt;
  }
  if ((target.attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
    target.path = final_path(file.get(), calls.final_path);
    target.attributes = calls.attributes(target.path.c_str());
    if (!is_plain_writable_file(target.attributes)) {
      return std::nullopt;
    }
  }
  return target;
}

std::optional<Target> find_target(const FileCalls& calls, const std::string& path) {
  Target target;
  target.path = wide_path(path);
  if (target.path.empty() || is_device_path(target.path)) {
    return std::nullopt;
  }
  const DWORD attributes = calls.attributes(target.path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES && ::GetLastError() == ERROR_FILE_NOT_FOUND) {
    return target;
  }
  if (!is_plain_writable_file(attributes)) {
    return std::nullopt;
  }
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
        file_(
            calls.open(path_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, attributes, nullptr)),
        exists_(file_.is_open()) {}
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

  // The rights come first, so that nobody reads the text whom the old file shuts out.
  bool fill(const Target& target, std::string_view text) {
    const bool filled =
        exists_ && (!target.exists || calls_.copy_rights(target.path.c_str(), path_.c_str())) &&
        write_all(text) && calls_.flush(file_.get()) != 0;
    file_.close();
    return filled;
  }

  bool take_place_of(const Target& target) {
    const bool moved = patiently(calls_, [&] {
      return calls_.move(path_.c_str(), target.path.c_str(),
                         MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
    });
    exists_ = !moved;
    return moved;
  }

 private:
  bool write_all(std::string_view text) {
    while (!text.empty()) {
      const auto size = static_cast<DWORD>(std::min(text.size(), largest_write));
      DWORD count = 0;
      if (calls_.write(file_.get(), text.data(), size, &count, nullptr) == 0 || count == 0) {
        return false;
      }
      text.remove_prefix(count);
    }
    return true;
  }

  const FileCalls& calls_;
  std::wstring path_;
  Handle file_;
  bool exists_;
};

// Those of a file's attributes that a new file can be given.
DWORD lasting_attributes(DWORD attributes) {
  constexpr DWORD lasting = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                            FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | FILE_ATTRIBUTE_ENCRYPTED;
  const DWORD kept = attributes & lasting;
  return kept == 0 ? FILE_ATTRIBUTE_NORMAL : kept;
}

}  // namespace

bool replace_file(const FileCalls& calls, const std::string& path, std::string_view text) {
  const auto target = find_target(calls, path);
  if (!target) {
    return false;
  }
  std::wstring name = folder_of(target->path) + wide_from_utf8(temporary_name());
  TemporaryFile temporary(calls, extended_path(std::move(name)),
                          lasting_attributes(target->attributes));
  return temporary.fill(*target, text) && temporary.take_place_of(*target);
}

bool write_text_file_atomic(const std::string& path, std::string_view text) {
  try {
    return replace_file(FileCalls(), path, text);
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace kelp::core::fs
