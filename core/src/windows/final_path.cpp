#include "final_path.hpp"

namespace kelp::core {

std::wstring final_path(HANDLE file, decltype(&::GetFinalPathNameByHandleW) call) {
  constexpr DWORD flags = FILE_NAME_NORMALIZED | VOLUME_NAME_DOS;
  std::wstring path(MAX_PATH, L'\0');
  while (true) {
    const DWORD length = call(file, path.data(), static_cast<DWORD>(path.size()), flags);
    const bool complete = length < path.size();
    path.resize(length);
    if (complete) {
      return path;
    }
  }
}

}  // namespace kelp::core
