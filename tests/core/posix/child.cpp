#include "core/posix/child.hpp"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

namespace kelp::test {

pid_t start_child(const std::function<int()>& run) {
  const pid_t child = ::fork();
  if (child == 0) {
    int status = 99;
    try {
      status = run();
    } catch (...) {
      status = 98;
    }
    ::_exit(status);
  }
  return child;
}

int wait_for(pid_t child) {
  int status = 0;
  while (::waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) {
      return -1000;
    }
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

int status_of_child(const std::function<int()>& run) {
  return wait_for(start_child(run));
}

void drop_privileges() {
  if (::geteuid() != 0) {
    return;
  }
  constexpr uid_t nobody = 65534;
  if (::setgid(nobody) != 0 || ::setuid(nobody) != 0) {
    ::_exit(97);
  }
}

}  // namespace kelp::test
