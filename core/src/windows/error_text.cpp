#include "error_text.hpp"

#include <string_view>
#include <system_error>

#include "wide.hpp"

namespace kelp::core {
namespace {

// The system's own words, in the user's language.
std::string system_text(DWORD error) {
  constexpr DWORD flags =
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
  constexpr DWORD longest = 1024;
  wchar_t buffer[longest];
  const DWORD length = ::FormatMessageW(flags, nullptr, error, 0, buffer, longest, nullptr);
  std::wstring_view text(buffer, length);
  while (!text.empty() && (text.back() == L' ' || text.back() == L'.')) {
    text.remove_suffix(1);
  }
  return text.empty() ? "system error " + std::to_string(error) : utf8_from_wide(text);
}

std::string common_text(std::errc error) {
  return std::generic_category().message(static_cast<int>(error));
}

}  // namespace

std::string error_text(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return common_text(std::errc::no_such_file_or_directory);
    case ERROR_ACCESS_DENIED:
      return common_text(std::errc::permission_denied);
    case ERROR_DIRECTORY:
      return common_text(std::errc::is_a_directory);
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
      return "another program is using the file";
    default:
      return system_text(error);
  }
}

}  // namespace kelp::core
