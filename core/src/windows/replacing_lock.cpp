#include "replacing_lock.hpp"

#include <utility>

#include "../file_error.hpp"

namespace kelp::core::fs {
namespace {

// Volume and number of a file, which all ways to write its path have in common.
std::wstring identity_of(const std::wstring& path) {
  const Handle file(::CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, share_all, nullptr,
                                  OPEN_EXISTING, 0, nullptr));
  BY_HANDLE_FILE_INFORMATION known{};
  if (!file.is_open() || ::GetFileInformationByHandle(file.get(), &known) == 0) {
    return {};
  }
  return std::to_wstring(known.dwVolumeSerialNumber) + L'-' +
         std::to_wstring(known.nFileIndexHigh) + L'-' + std::to_wstring(known.nFileIndexLow);
}

}  // namespace

ReplacingLock::ReplacingLock(std::wstring path)
    : path_(std::move(path)),
      identity_(identity_of(path_)),
      mutex_(::CreateMutexW(nullptr, FALSE, (L"Local\\kelp-bdf-" + identity_).c_str())),
      is_held_(false) {
  constexpr DWORD longest_wait = 2000;
  if (mutex_ == nullptr) {
    return;
  }
  const DWORD outcome = ::WaitForSingleObject(mutex_, longest_wait);
  if (outcome == WAIT_TIMEOUT) {
    ::CloseHandle(mutex_);
    throw WriteRefused(busy_cause);
  }
  is_held_ = outcome == WAIT_OBJECT_0 || outcome == WAIT_ABANDONED;
}

ReplacingLock::~ReplacingLock() {
  if (is_held_) {
    ::ReleaseMutex(mutex_);
  }
  if (mutex_ != nullptr) {
    ::CloseHandle(mutex_);
  }
}

bool ReplacingLock::is_of_present_file() const {
  return identity_of(path_) == identity_;
}

}  // namespace kelp::core::fs
