#pragma once

// Child processes, for what would change or kill the test itself.

#include <sys/types.h>

#include <functional>

namespace kelp::test {

/// Runs a function in a child process and returns its id; the child leaves with what it returns.
pid_t start_child(const std::function<int()>& run);

/// Waits for a child; returns its exit status, or minus the signal that ended it.
int wait_for(pid_t child);

/// Runs a function in a child process and returns its status, as `wait_for` does.
int status_of_child(const std::function<int()>& run);

/// Makes an ordinary user of root, for whom no file would be forbidden.
void drop_privileges();

}  // namespace kelp::test
