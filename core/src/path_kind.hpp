#pragma once

#include <string>

namespace kelp::core {

/// What a path names, symbolic links followed.
enum class PathKind { Nothing, File, Folder, Other };

/// Tells what a UTF-8 path names; a file is a regular one.
PathKind path_kind(const std::string& path);

}  // namespace kelp::core
