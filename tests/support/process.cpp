#include "support/process.hpp"

#include <stdexcept>

#include "support/environment.hpp"

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <cerrno>
#include <csignal>
#include <deque>
#include <system_error>

namespace kelp::test {
namespace {

/// The test's own environment as a child is to inherit it. A variable may be set twice, so that the
/// last change is undone first.
class ChangedEnvironment {
 public:
  explicit ChangedEnvironment(const ProcessSetup& setup) {
    for (const auto& [name, value] : setup.variables) {
      changes_.emplace_back(name, value);
    }
  }
  ~ChangedEnvironment() {
    while (!changes_.empty()) {
      changes_.pop_back();
    }
  }
  ChangedEnvironment(const ChangedEnvironment&) = delete;
  ChangedEnvironment& operator=(const ChangedEnvironment&) = delete;

 private:
  std::deque<EnvironmentVariable> changes_;
};

#ifdef _WIN32

[[noreturn]] void fail(const char* what) {
  throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), what);
}

/// Owns a handle that children inherit.
class Handle {
 public:
  Handle(const std::filesystem::path& path, DWORD access, DWORD disposition) {
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    handle_ = CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                          disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle_ == INVALID_HANDLE_VALUE) {
      fail("cannot open a stream");
    }
  }
  Handle(const Handle&) = delete;
  Handle(Handle&&) = delete;
  Handle& operator=(const Handle&) = delete;
  Handle& operator=(Handle&&) = delete;
  ~Handle() { CloseHandle(handle_); }

  HANDLE get() const { return handle_; }

 private:
  HANDLE handle_ = INVALID_HANDLE_VALUE;
};

std::wstring wide(const std::string& text) {
  return std::filesystem::path(std::u8string(text.begin(), text.end())).wstring();
}

// Backslashes are plain unless a quotation mark follows them.
std::wstring in_quotes(const std::wstring& argument) {
  std::wstring text = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t character : argument) {
    if (character == L'"') {
      text.append(backslashes + 1, L'\\');
    }
    backslashes = character == L'\\' ? backslashes + 1 : 0;
    text += character;
  }
  text.append(backslashes, L'\\');
  return text + L'"';
}

std::wstring command_line(const ProcessSetup& setup) {
  std::wstring line = in_quotes(setup.program.wstring());
  for (const std::string& argument : setup.arguments) {
    line += L' ' + in_quotes(wide(argument));
  }
  return line;
}

PROCESS_INFORMATION start(const ProcessSetup& setup) {
  const Handle input(setup.input, GENERIC_READ, OPEN_EXISTING);
  const Handle output(setup.output, GENERIC_WRITE, CREATE_ALWAYS);
  const Handle errors(setup.errors, GENERIC_WRITE, CREATE_ALWAYS);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = input.get();
  startup.hStdOutput = output.get();
  startup.hStdError = errors.get();
  PROCESS_INFORMATION process{};
  std::wstring line = command_line(setup);
  const ChangedEnvironment changes(setup);
  if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, setup.folder.c_str(),
                     &startup, &process) == FALSE) {
    fail("cannot start the program");
  }
  return process;
}

#else

void redirect(int stream, const std::filesystem::path& path, int flags) {
  const int file = ::open(path.c_str(), flags | O_CLOEXEC, 0600);
  if (file < 0 || ::dup2(file, stream) < 0) {
    ::_exit(127);
  }
}

[[noreturn]] void become(const ProcessSetup& setup, char* const* arguments) {
  // Where tests run in the background, or beyond the end of a terminal, these are ignored.
  for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM}) {
    static_cast<void>(std::signal(signal, SIG_DFL));
  }
  redirect(STDIN_FILENO, setup.input, O_RDONLY);
  redirect(STDOUT_FILENO, setup.output, O_WRONLY | O_CREAT | O_TRUNC);
  redirect(STDERR_FILENO, setup.errors, O_WRONLY | O_CREAT | O_TRUNC);
  if (::chdir(setup.folder.c_str()) == 0) {
    ::execv(setup.program.c_str(), arguments);
  }
  ::_exit(127);
}

#endif

}  // namespace

#ifdef _WIN32

int run_process(const ProcessSetup& setup) {
  const PROCESS_INFORMATION process = start(setup);
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD status = 0;
  GetExitCodeProcess(process.hProcess, &status);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return static_cast<int>(status);
}

#else

int run_process(const ProcessSetup& setup) {
  const ChangedEnvironment changes(setup);
  std::string program = setup.program.string();
  std::vector<std::string> texts = setup.arguments;
  std::vector<char*> arguments = {program.data()};
  for (std::string& text : texts) {
    arguments.push_back(text.data());
  }
  arguments.push_back(nullptr);
  const pid_t child = ::fork();
  if (child == 0) {
    become(setup, arguments.data());
  }
  if (child < 0) {
    throw std::system_error(errno, std::generic_category(), "cannot start the program");
  }
  int status = 0;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

#endif

}  // namespace kelp::test
