#pragma once

/// @file
/// Files. Paths are UTF-8 on every platform.

#include <string>
#include <string_view>
#include <vector>

namespace kelp::core::fs {

/// Returns all bytes of a file, of any size; pipes and devices work too.
/// @throws std::runtime_error naming the path and the cause, for a directory too.
std::string read_text_file(const std::string& path);

/// Replaces a file by a text, as a whole: whoever opens the path sees the old or the new bytes,
/// also after a crash. An existing file keeps its permissions, a symbolic link its target's place.
///
/// Returns false when the text could not be written; the old file is then untouched and no
/// temporary file is left. A target that is no regular file, or that may not be written, is
/// refused.
bool write_text_file_atomic(const std::string& path, std::string_view text);

/// Tells whether a path names a folder, following symbolic links.
bool is_directory(const std::string& path);

/// What lies below a folder.
struct FolderContents {
  std::vector<std::string> files;   ///< files and links to files, at any depth, sorted
  std::vector<std::string> errors;  ///< what could not be read, each with path and cause
};

/// Lists the files below a folder; also links that lead nowhere, because reading them tells that.
/// Links to folders are not followed, so that a loop is harmless.
FolderContents files_below(const std::string& folder);

}  // namespace kelp::core::fs
