#include "kelp/core/console.hpp"

#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace kelp::core::console {

bool is_terminal(Stream stream) {
  switch (stream) {
    case Stream::Input:
      return ::isatty(STDIN_FILENO) == 1;
    case Stream::Output:
      return ::isatty(STDOUT_FILENO) == 1;
    case Stream::Error:
      return ::isatty(STDERR_FILENO) == 1;
  }
  return false;
}

void use_plain_bytes() {}

void let_size_limits_be_errors() {
  static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
}

void let_closed_pipes_be_errors() {
  static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
}

std::size_t read_input(char* buffer, std::size_t size) {
  ssize_t count = 0;
  do {
    count = ::read(STDIN_FILENO, buffer, size);
  } while (count < 0 && errno == EINTR);
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

bool reader_went_away() {
  return errno == EPIPE;
}

std::vector<std::string> arguments(int count, const char* const* values) {
  if (count <= 1) {
    return {};
  }
  return {values + 1, values + count};
}

}  // namespace kelp::core::console
