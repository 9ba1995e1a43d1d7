// Calls of the system that fail on demand. Loaded before the C library, it stands in for what the
// command writes files with; KELP_FAULTS names calls and what becomes of them, for example
// "write=short,close=EIO". The shared library's own streams do not pass through here.

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

// Returns what is to become of a call; empty for nothing.
std::string_view fault_of(std::string_view call) {
  const char* const variable = ::getenv("KELP_FAULTS");
  std::string_view rest = variable == nullptr ? "" : variable;
  while (!rest.empty()) {
    const std::string_view item = rest.substr(0, rest.find(','));
    rest.remove_prefix(std::min(item.size() + 1, rest.size()));
    if (item.size() > call.size() && item.substr(0, call.size()) == call &&
        item[call.size()] == '=') {
      return item.substr(call.size() + 1);
    }
  }
  return {};
}

int number_of(std::string_view error) {
  struct Known {
    std::string_view name;
    int number;
  };
  constexpr Known known[] = {{"EBUSY", EBUSY}, {"EINTR", EINTR},   {"EINVAL", EINVAL},
                             {"EIO", EIO},     {"ENOSPC", ENOSPC}, {"EOPNOTSUPP", EOPNOTSUPP},
                             {"EPERM", EPERM}, {"EXDEV", EXDEV}};
  for (const Known& each : known) {
    if (each.name == error) {
      return each.number;
    }
  }
  return 0;
}

// Fails with the error that a fault names; 0 when it names none.
int failure(std::string_view fault) {
  if (const int number = number_of(fault)) {
    errno = number;
    return -1;
  }
  return 0;
}

// An interrupted call succeeds when it is made again.
bool is_passing_now(std::string_view fault) {
  static bool interrupted = false;
  interrupted = !interrupted;
  return fault == "EINTR" && !interrupted;
}

void raise_signal(std::string_view fault) {
  struct Known {
    std::string_view name;
    int number;
  };
  constexpr Known known[] = {
      {"SIGHUP", SIGHUP}, {"SIGINT", SIGINT}, {"SIGKILL", SIGKILL}, {"SIGTERM", SIGTERM}};
  for (const Known& each : known) {
    if (each.name == fault) {
      ::kill(::getpid(), each.number);
    }
  }
}

template <typename Call>
Call next(const char* name, Call) {
  return reinterpret_cast<Call>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = va_arg(arguments, mode_t);
  va_end(arguments);
  const bool is_unnamed = (flags & O_TMPFILE) == O_TMPFILE;
  if ((is_unnamed && failure(fault_of("open-unnamed")) != 0) ||
      ((flags & O_CREAT) != 0 && failure(fault_of("open-new")) != 0)) {
    return -1;
  }
  return next("open", static_cast<int (*)(const char*, int, ...)>(nullptr))(path, flags, mode);
}

ssize_t write(int file, const void* bytes, size_t size) {
  static int calls = 0;
  const std::string_view fault = fault_of("write");
  const auto real = next("write", static_cast<ssize_t (*)(int, const void*, size_t)>(nullptr));
  if (fault == "zero") {
    return 0;
  }
  if (fault == "short") {
    return real(file, bytes, std::min<size_t>(size, 3));
  }
  if (fault == "ENOSPC" && ++calls == 1) {
    return real(file, bytes, size / 2);
  }
  if (!fault.empty() && !is_passing_now(fault) && failure(fault) != 0) {
    return -1;
  }
  const ssize_t count = real(file, bytes, fault.empty() ? size : (size + 1) / 2);
  raise_signal(fault);
  return count;
}

int fsync(int file) {
  const std::string_view fault = fault_of("fsync");
  if (!fault.empty() && !is_passing_now(fault) && failure(fault) != 0) {
    return -1;
  }
  return next("fsync", static_cast<int (*)(int)>(nullptr))(file);
}

// What close reports, it has closed all the same.
int close(int file) {
  const int result = next("close", static_cast<int (*)(int)>(nullptr))(file);
  return failure(fault_of("close")) != 0 ? -1 : result;
}

int linkat(int old_folder, const char* old_path, int folder, const char* path, int flags) {
  const std::string_view fault = fault_of("linkat");
  if (failure(fault) != 0) {
    return -1;
  }
  const int result =
      next("linkat", static_cast<int (*)(int, const char*, int, const char*, int)>(nullptr))(
          old_folder, old_path, folder, path, flags);
  raise_signal(fault);
  return result;
}

int fchmod(int file, mode_t mode) {
  return failure(fault_of("fchmod")) != 0
             ? -1
             : next("fchmod", static_cast<int (*)(int, mode_t)>(nullptr))(file, mode);
}

int rename(const char* from, const char* to) {
  const std::string_view fault = fault_of("rename");
  if (failure(fault) != 0) {
    return -1;
  }
  raise_signal(fault);
  return next("rename", static_cast<int (*)(const char*, const char*)>(nullptr))(from, to);
}
}
