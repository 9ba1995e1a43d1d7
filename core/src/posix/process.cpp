#include "kelp/core/process.hpp"

#include <sys/types.h>

#include <cerrno>
#include <csignal>
#include <limits>

namespace kelp::core::process {

bool is_running(std::int64_t number) {
  // Zero and negative numbers are groups of processes.
  if (number <= 0 || number > std::numeric_limits<pid_t>::max()) {
    return false;
  }
  return ::kill(static_cast<pid_t>(number), 0) == 0 || errno != ESRCH;
}

}  // namespace kelp::core::process
