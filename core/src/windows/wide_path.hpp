#pragma once

#include <string>
#include <string_view>

namespace kelp::core {

/// Returns the full path that a UTF-8 path means now, in the form that the system's calls take at
/// any length; empty when it can mean none.
std::wstring wide_path(std::string_view path);

/// Gives a full path the prefix that lifts the limit on its length, if it is too long without.
std::wstring extended_path(std::wstring full);

/// Takes that prefix off again, for people and for `std::filesystem`, which do not know it.
std::wstring plain_path(std::wstring_view path);

/// Tells whether a full path names a device, such as `NUL`, and not a file on a disk.
bool is_device_path(std::wstring_view full);

/// Returns the path of the folder that holds what a full path names, with the separator.
std::wstring folder_of(std::wstring_view full);

}  // namespace kelp::core
