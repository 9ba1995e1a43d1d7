#include "kelp/core/text.hpp"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace kelp::core::text {

std::string trim(std::string_view text) {
  return std::string(trim_view(text));
}

std::string to_lower(std::string_view text) {
  std::string lower(text);
  for (char& byte : lower) {
    byte = to_lower(byte);
  }
  return lower;
}

// The eighth bit of each byte tells of it whether it is a capital letter; no sum of the lower seven
// goes beyond its byte.
std::uint64_t lower_start(std::string_view text) noexcept {
  constexpr std::uint64_t ones = 0x0101010101010101U;
  constexpr std::uint64_t high = 0x80 * ones;
  std::uint64_t bytes = 0;
  std::memcpy(&bytes, text.data(), std::min(text.size(), sizeof bytes));
  const std::uint64_t low = bytes & ~high;
  const std::uint64_t from_a = low + (0x80 - 'A') * ones;
  const std::uint64_t beyond_z = low + (0x7f - 'Z') * ones;
  return bytes | ((from_a & ~beyond_z & ~bytes & high) >> 2U);
}

std::string to_upper(std::string_view text) {
  std::string upper(text);
  for (char& byte : upper) {
    byte = byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
  }
  return upper;
}

bool equals_ignoring_case(std::string_view left, std::string_view right) noexcept {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return to_lower(a) == to_lower(b); });
}

std::string_view take_word(std::string_view& rest) noexcept {
  std::size_t begin = 0;
  while (begin < rest.size() && is_space(rest[begin])) {
    ++begin;
  }
  std::size_t end = begin;
  while (end < rest.size() && !is_space(rest[end])) {
    ++end;
  }
  const std::string_view word = rest.substr(begin, end - begin);
  rest.remove_prefix(end);
  return word;
}

std::string_view take_line(std::string_view& rest) noexcept {
  const std::size_t end = std::min(rest.find('\n'), rest.size());
  std::string_view line = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  if (!line.empty() && line.back() == '\r') {
    line.remove_suffix(1);
  }
  return line;
}

}  // namespace kelp::core::text
