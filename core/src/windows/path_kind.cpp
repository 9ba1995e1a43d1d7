// Asked of the system itself: the standard library stops at 260 characters.

#include "../path_kind.hpp"

#include "handle.hpp"
#include "wide_path.hpp"

namespace kelp::core {
namespace {

// The attributes of a link are its own; opening it without any access follows it.
DWORD attributes_behind_link(const std::wstring& path) {
  const Handle file(::CreateFileW(path.c_str(), 0, share_all, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  BY_HANDLE_FILE_INFORMATION information{};
  if (!file.is_open() || ::GetFileInformationByHandle(file.get(), &information) == 0) {
    return INVALID_FILE_ATTRIBUTES;
  }
  return information.dwFileAttributes;
}

}  // namespace

PathKind path_kind(const std::string& path) {
  const std::wstring wide = wide_path(path);
  if (wide.empty()) {
    return PathKind::Nothing;
  }
  if (is_device_path(wide)) {
    return PathKind::Other;
  }
  DWORD attributes = ::GetFileAttributesW(wide.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
    attributes = attributes_behind_link(wide);
  }
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    return PathKind::Nothing;
  }
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? PathKind::Folder : PathKind::File;
}

}  // namespace kelp::core
