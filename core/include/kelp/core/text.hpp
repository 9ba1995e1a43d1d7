#pragma once

/// @file
/// Bytes and white space. White space is that of C's `isspace` in the "C" locale, lower case that
/// of ASCII; the host's locale changes nothing.

#include <cstdint>
#include <string>
#include <string_view>

namespace kelp::core::text {

/// Tells whether a byte is white space: blank, tab, line feed, vertical tab, form feed, return.
constexpr bool is_space(char byte) noexcept {
  return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

/// Returns the text without leading and trailing white space, as a view into it.
constexpr std::string_view trim_view(std::string_view text) noexcept {
  while (!text.empty() && is_space(text.front())) {
    text.remove_prefix(1);
  }
  while (!text.empty() && is_space(text.back())) {
    text.remove_suffix(1);
  }
  return text;
}

/// Returns the text without leading and trailing white space.
std::string trim(std::string_view text);

/// Returns an ASCII letter in lower case, every other byte as it is.
constexpr char to_lower(char byte) noexcept {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

/// Returns the text with every ASCII letter in lower case.
std::string to_lower(std::string_view text);

/// Returns the first eight bytes of a text as a number, ASCII letters in lower case; of a shorter
/// text, all of its bytes. Texts of one length that differ there, but for case, have different
/// ones.
std::uint64_t lower_start(std::string_view text) noexcept;

/// Returns the text with every ASCII letter in upper case.
std::string to_upper(std::string_view text);

/// Returns the texts of a list in a row, with a separator between each two.
template <typename Texts>
std::string join(const Texts& texts, std::string_view separator) {
  std::string joined;
  bool first = true;
  for (const std::string_view text : texts) {
    joined += first ? std::string_view() : separator;
    joined += text;
    first = false;
  }
  return joined;
}

/// Tells whether two texts are equal but for the case of ASCII letters.
bool equals_ignoring_case(std::string_view left, std::string_view right) noexcept;

/// Cuts the first word, up to white space, off `rest` and returns it; empty when none is left.
std::string_view take_word(std::string_view& rest) noexcept;

/// Cuts the first line off `rest`, which must not be empty, and returns it without its line end: a
/// line feed, and a carriage return before it or at the end of the text.
std::string_view take_line(std::string_view& rest) noexcept;

}  // namespace kelp::core::text
