#include "wide.hpp"

#include <limits>
#include <stdexcept>

#include "win32.hpp"

namespace kelp::core {
namespace {

int checked_length(std::size_t length) {
  // A quarter of it, because a unit of UTF-16 takes up to three bytes.
  if (length > std::numeric_limits<int>::max() / 4) {
    throw std::length_error("text too long for a path");
  }
  return static_cast<int>(length);
}

}  // namespace

std::wstring wide_from_utf8(std::string_view text) {
  const int length = checked_length(text.size());
  // No text has more units in UTF-16 than bytes in UTF-8.
  std::wstring wide(text.size(), L'\0');
  if (length > 0) {
    const int made = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), length);
    wide.resize(static_cast<std::size_t>(made));
  }
  return wide;
}

std::string utf8_from_wide(std::wstring_view text) {
  constexpr int bytes_of_a_unit = 3;
  const int length = checked_length(text.size());
  std::string utf8(text.size() * bytes_of_a_unit, '\0');
  if (length > 0) {
    const int made = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(),
                                           length * bytes_of_a_unit, nullptr, nullptr);
    utf8.resize(static_cast<std::size_t>(made));
  }
  return utf8;
}

}  // namespace kelp::core
