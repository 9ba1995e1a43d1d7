// Most numbers of an input are plain decimals, which `std::from_chars` reads exactly and without
// regard to locale. What it reads differently from `strtod` (hexadecimal, infinities, range errors)
// goes to the C library, told to use the "C" locale.

#include "kelp/core/number.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

#include "c_locale.hpp"
#include "kelp/core/text.hpp"

namespace kelp::core::number {
namespace {

bool is_digit(char byte) {
  return byte >= '0' && byte <= '9';
}

// from_chars knows no leading plus sign; strtod and strtoll take one, but not two signs.
std::string_view without_plus(std::string_view text) {
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') {
    text.remove_prefix(1);
  }
  return text;
}

bool is_plain_decimal(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char byte) {
    return is_digit(byte) || byte == '.' || byte == '+' || byte == '-' || byte == 'e' ||
           byte == 'E';
  });
}

// Only what is clearly above underflow: strtod reports a range error also for some numbers below
// the smallest normal one that round up to it.
std::optional<double> parse_plain_decimal(std::string_view text) {
  const std::string_view digits = without_plus(text);
  double value = 0.0;
  const char* const end = digits.data() + digits.size();
  const auto [stopped, error] = std::from_chars(digits.data(), end, value);
  const bool safe = std::abs(value) > std::numeric_limits<double>::min();
  if (error != std::errc() || stopped != end || !safe) {
    return std::nullopt;
  }
  return value;
}

}  // namespace

std::optional<std::int64_t> parse_integer(std::string_view text) {
  const std::string_view digits = without_plus(text::trim_view(text));
  std::int64_t value = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stopped, error] = std::from_chars(digits.data(), end, value);
  if (error != std::errc() || stopped != end) {
    return std::nullopt;
  }
  return value;
}

std::optional<double> parse_float(std::string_view text) {
  std::string number = text::trim(text);
  if (number.empty()) {
    return std::nullopt;
  }
  std::replace(number.begin(), number.end(), 'D', 'E');
  std::replace(number.begin(), number.end(), 'd', 'e');
  if (is_plain_decimal(number)) {
    if (const auto value = parse_plain_decimal(number)) {
      return value;
    }
  }
  return c_locale::strtod_whole(number);
}

std::string to_text(double value) {
  const double size = std::abs(value);
  const bool plain = size == 0.0 || (size >= 1e-4 && size < 1e16);
  std::array<char, 32> digits;
  const auto written =
      std::to_chars(digits.data(), digits.data() + digits.size(), value,
                    plain ? std::chars_format::fixed : std::chars_format::scientific);
  return {digits.data(), written.ptr};
}

}  // namespace kelp::core::number
