#include <cstddef>
#include <optional>
#include <vector>

#include "file_calls.hpp"

namespace kelp::core::fs {
namespace {

using Descriptor = std::vector<std::byte>;

// Empty when the rights cannot be told; an empty list when the file system has none to tell.
std::optional<Descriptor> access_rights(const wchar_t* path) {
  Descriptor descriptor;
  DWORD size = 0;
  while (::GetFileSecurityW(path, DACL_SECURITY_INFORMATION, descriptor.data(),
                            static_cast<DWORD>(descriptor.size()), &size) == 0) {
    switch (::GetLastError()) {
      case ERROR_INSUFFICIENT_BUFFER:
        descriptor.resize(size);
        break;
      case ERROR_NOT_SUPPORTED:
      case ERROR_INVALID_FUNCTION:
        return Descriptor();
      default:
        return std::nullopt;
    }
  }
  return descriptor;
}

// Whether later changes of the folder's rights reach the file is part of its rights.
SECURITY_INFORMATION what_to_set(Descriptor& descriptor) {
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  const bool is_protected =
      ::GetSecurityDescriptorControl(descriptor.data(), &control, &revision) != 0 &&
      (control & SE_DACL_PROTECTED) != 0;
  return DACL_SECURITY_INFORMATION | (is_protected ? PROTECTED_DACL_SECURITY_INFORMATION
                                                   : UNPROTECTED_DACL_SECURITY_INFORMATION);
}

}  // namespace

bool copy_access_rights(const wchar_t* from, const wchar_t* to) {
  std::optional<Descriptor> wanted = access_rights(from);
  if (!wanted) {
    return false;
  }
  // Mostly both have their folder's rights; a network drive need not let us set any then.
  if (wanted->empty() || access_rights(to) == wanted) {
    return true;
  }
  return ::SetFileSecurityW(to, what_to_set(*wanted), wanted->data()) != 0;
}

}  // namespace kelp::core::fs
