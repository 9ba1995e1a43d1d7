#pragma once

/// @file
/// The environment, and files that come with the program. Paths are UTF-8 on every platform.

#include <string>
#include <vector>

namespace kelp::core::resource {

/// Returns an environment variable's value; empty when it is not set.
std::string getenv_string(const char* name);

/// Tells whether a path names an existing regular file, following symbolic links.
bool is_regular_file_path(const std::string& path);

/// Returns the path of a file of that name in the folder of another file; the name may lead on into
/// other folders.
std::string path_beside(const std::string& file, const std::string& name);

/// Returns a path that begins at the root, without `.` and `..`; links are not followed.
std::string full_path(const std::string& path);

/// Returns the folder that a full path lies in; the root lies in itself.
std::string folder_of(const std::string& full_path);

/// Tells whether a file lies in a folder itself, after all symbolic links on the way to both are
/// followed.
bool lies_in(const std::string& file, const std::string& folder);

/// Tells whether a file belongs to somebody whom its reader has no reason to trust: neither to the
/// user who runs the program, nor to the administrator, nor to the owner of the folder that it lies
/// in. A symbolic link and what it leads to must both be trusted. Always false on Windows.
bool belongs_to_stranger(const std::string& file);

/// Returns a file's name without its folder and its last ending: `a` of `b/a.inp`.
std::string stem_of(const std::string& file);

/// Returns the full path of the first existing regular file found for `relative`, or an empty text.
///
/// Searched are: the folder `hint` (or the folder of the file `hint`) unless it is empty, the
/// folder of the running module (the shared library), the folder of the executable; each with up to
/// `limit` parents, and at each level both directly and under `share/kelp/`; then the folders
/// `extra` themselves. The current folder is never searched, so that the folder of an input cannot
/// slip in a file.
std::string locate_file(const std::string& relative, const std::string& hint,
                        const std::vector<std::string>& extra, int limit);

}  // namespace kelp::core::resource
