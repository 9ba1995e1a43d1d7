#pragma once

/// @file
/// Files. Paths are UTF-8 on every platform.

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kelp::core::fs {

/// Returns all bytes of a file, of any size; pipes and devices work too.
/// @throws std::runtime_error naming the path and the cause, for a directory too.
std::string read_text_file(const std::string& path);

/// A file holds more than may be read of it.
class FileTooLarge : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Returns all bytes of a file or a pipe that holds at most `most`; no more than that is read.
/// @throws FileTooLarge naming the path when there is more.
/// @throws std::runtime_error naming the path and the cause, for a device too, which may have no
/// end.
std::string read_text_file(const std::string& path, std::size_t most);

/// Tells whether a regular file holds exactly the bytes of a text, without a copy of them. False
/// when it cannot be read, and for pipes and devices, from which nothing is taken.
bool file_holds(const std::string& path, std::string_view text);

/// Replaces a file by a text, as a whole: whoever opens the path sees the old or the new bytes,
/// also after a crash. A symbolic link stays, and its target is replaced; another hard link to the
/// file keeps the old text.
///
/// Nobody gets rights that the old file did not give: the new one has its permissions, its access
/// list and, as far as the system lets us, its owner, group and attributes of users. Where group or
/// access list cannot be kept, group and others get only what everybody but the owner had.
///
/// Returns false when the text could not be written; the old file is then untouched and no
/// temporary file is left. A target that is no regular file, or that may not be written, is
/// refused.
bool write_text_file_atomic(const std::string& path, std::string_view text);

/// Does what `write_text_file_atomic` does.
/// @throws std::runtime_error naming the path and the cause when the text could not be written.
void write_text_file(const std::string& path, std::string_view text);

/// A file that was to be replaced holds another text than the one that was read.
class FileChanged : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Replaces the text of a file that was read, as `write_text_file` does, unless it was changed
/// since: right before the replacement the file must hold `old_text`. Of several that replace one
/// old text in this way at the same moment, one succeeds.
/// @throws FileChanged naming the path when the file was changed or removed.
/// @throws std::runtime_error naming the path and the cause when the text could not be written.
void replace_text_file(const std::string& path, std::string_view old_text,
                       std::string_view new_text);

/// Tells whether a path names a folder, following symbolic links.
bool is_directory(const std::string& path);

/// Makes a folder, and those above it that are missing; one that is there stays as it is.
/// @throws std::runtime_error naming the path and the cause.
void make_folder(const std::string& path);

/// What lies below a folder.
struct FolderContents {
  std::vector<std::string> files;   ///< files and links to files, at any depth, sorted
  std::vector<std::string> errors;  ///< what could not be read, each with path and cause
};

/// Lists the files below a folder; also links that lead nowhere, because reading them tells that.
/// Links to folders are not followed, so that a loop is harmless. Neither are folders below it that
/// `is_wanted` says no to; it is asked with their paths.
FolderContents files_below(const std::string& folder,
                           const std::function<bool(const std::string&)>& is_wanted = {});

}  // namespace kelp::core::fs
