#include "kelp/core/process.hpp"

#include <limits>

#include "win32.hpp"

namespace kelp::core::process {

bool is_running(std::int64_t number) {
  if (number <= 0 || number > std::numeric_limits<DWORD>::max()) {
    return false;
  }
  const HANDLE process = ::OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(number));
  if (process == nullptr) {
    return ::GetLastError() != ERROR_INVALID_PARAMETER;
  }
  const bool runs = ::WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
  ::CloseHandle(process);
  return runs;
}

}  // namespace kelp::core::process
