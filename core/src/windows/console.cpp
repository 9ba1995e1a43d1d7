#include "kelp/core/console.hpp"

#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#include <stdlib.h>

#include "wide.hpp"
#include "win32.hpp"

#include <shellapi.h>

namespace kelp::core::console {
namespace {

DWORD standard_handle(Stream stream) {
  switch (stream) {
    case Stream::Input:
      return STD_INPUT_HANDLE;
    case Stream::Output:
      return STD_OUTPUT_HANDLE;
    case Stream::Error:
      break;
  }
  return STD_ERROR_HANDLE;
}

}  // namespace

bool is_terminal(Stream stream) {
  DWORD mode = 0;
  return ::GetConsoleMode(::GetStdHandle(standard_handle(stream)), &mode) != 0;
}

void use_plain_bytes() {
  for (FILE* const stream : {stdin, stdout, stderr}) {
    ::_setmode(::_fileno(stream), _O_BINARY);
  }
  ::SetConsoleOutputCP(CP_UTF8);
  // Terminals understand colours, but must be asked to.
  for (const Stream stream : {Stream::Output, Stream::Error}) {
    const HANDLE handle = ::GetStdHandle(standard_handle(stream));
    DWORD mode = 0;
    if (::GetConsoleMode(handle, &mode) != 0) {
      ::SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    }
  }
}

// The C library has no EPIPE for most of these.
void let_size_limits_be_errors() {}

void let_closed_pipes_be_errors() {}  // they are

std::size_t read_input(char* buffer, std::size_t size) {
  const int count = ::_read(::_fileno(stdin), buffer, static_cast<unsigned int>(size));
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

bool reader_went_away() {
  const unsigned long cause = _doserrno;
  return cause == ERROR_BROKEN_PIPE || cause == ERROR_NO_DATA || cause == ERROR_PIPE_NOT_CONNECTED;
}

// What `main` is given went through the ANSI code page and has lost other letters.
std::vector<std::string> arguments(int count, const char* const* values) {
  int found = 0;
  wchar_t** const words = ::CommandLineToArgvW(::GetCommandLineW(), &found);
  std::vector<std::string> list;
  if (words == nullptr) {
    for (int index = 1; index < count; ++index) {
      list.emplace_back(values[index]);
    }
    return list;
  }
  for (int index = 1; index < found; ++index) {
    list.push_back(utf8_from_wide(words[index]));
  }
  ::LocalFree(words);
  return list;
}

}  // namespace kelp::core::console
