#pragma once

#include <string>
#include <string_view>

#include "win32.hpp"

namespace kelp::core::fs {

/// Gives the file `to` the access rights of the file `from`, where the file system has any.
bool copy_access_rights(const wchar_t* from, const wchar_t* to);

/// The system's calls that replacing a file makes. Tests put others in their place, to see what
/// happens when the system refuses.
struct FileCalls {
  decltype(&::CreateFileW) open = &::CreateFileW;
  decltype(&::WriteFile) write = &::WriteFile;
  decltype(&::FlushFileBuffers) flush = &::FlushFileBuffers;
  decltype(&::SetFileInformationByHandle) set_information = &::SetFileInformationByHandle;
  decltype(&::MoveFileExW) move = &::MoveFileExW;
  decltype(&::GetFileAttributesW) attributes = &::GetFileAttributesW;
  decltype(&::GetFinalPathNameByHandleW) final_path = &::GetFinalPathNameByHandleW;
  decltype(&::Sleep) pause = &::Sleep;
  decltype(&copy_access_rights) copy_rights = &copy_access_rights;
};

/// Does the work of `write_text_file`, or with an old text of `replace_text_file`, through the
/// given calls.
/// @throws WriteRefused with the cause, which does not name the path; FileChanged, which does.
void replace_or_refuse(const FileCalls& calls, const std::string& path,
                       const std::string_view* old_text, std::string_view text);

/// Does the work of `write_text_file_atomic` through the given calls.
bool replace_file(const FileCalls& calls, const std::string& path, std::string_view text);

}  // namespace kelp::core::fs
