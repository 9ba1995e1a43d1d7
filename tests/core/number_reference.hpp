#pragma once

// What the C library itself makes of a number, asked while the process is in the "C" locale.

#include <bit>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>

namespace kelp::core::number {

inline std::string trimmed(const std::string& text) {
  const char* const spaces = " \t\n\v\f\r";
  const auto begin = text.find_first_not_of(spaces);
  return begin == std::string::npos ? std::string()
                                    : text.substr(begin, text.find_last_not_of(spaces) + 1 - begin);
}

inline std::optional<std::int64_t> strtoll_says(const std::string& text) {
  const std::string number = trimmed(text);
  char* stopped = nullptr;
  errno = 0;
  const long long value = std::strtoll(number.c_str(), &stopped, 10);
  if (number.empty() || errno == ERANGE || stopped != number.c_str() + number.size()) {
    return std::nullopt;
  }
  return value;
}

/// The bits of a double, since equal numbers can differ in sign and no NaN equals another.
using Bits = std::optional<std::uint64_t>;

inline Bits bits(const std::optional<double>& value) {
  return value ? Bits(std::bit_cast<std::uint64_t>(*value)) : std::nullopt;
}

inline Bits strtod_says(const std::string& text) {
  std::string number = trimmed(text);
  for (char& byte : number) {
    byte = byte == 'D' ? 'E' : byte == 'd' ? 'e' : byte;
  }
  char* stopped = nullptr;
  errno = 0;
  const double value = std::strtod(number.c_str(), &stopped);
  if (number.empty() || errno == ERANGE || stopped != number.c_str() + number.size()) {
    return std::nullopt;
  }
  return bits(value);
}

}  // namespace kelp::core::number
