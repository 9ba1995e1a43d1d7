// Most numbers of an input are plain decimals, which `std::from_chars` reads where they stand,
// exactly and without regard to locale. What it reads differently from `strtod` (hexadecimal,
// infinities, range errors) goes to the C library, told to use the "C" locale.

#include "kelp/core/number.hpp"

#include <algorithm>
#include <array>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <system_error>

#include "c_locale.hpp"
#include "kelp/core/text.hpp"

namespace kelp::core::number {
namespace {

// Where the processor keeps more digits than a double has, a quotient is rounded twice.
constexpr bool divides_exactly = FLT_EVAL_METHOD == 0;

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

// Tells whether a number begins as a decimal one does. Then from_chars takes it for no infinity and
// for nothing else that has letters, beside an exponent.
bool begins_as_decimal(std::string_view number) {
  const std::string_view digits = number.substr(number.starts_with('-') ? 1 : 0);
  return !digits.empty() && (is_digit(digits.front()) || digits.front() == '.');
}

// Tells whether a number is zero as it is written, and not because it is too small.
bool is_written_as_zero(std::string_view number) {
  for (const char byte : number) {
    if (byte == 'e' || byte == 'E') {
      break;
    }
    if (byte >= '1' && byte <= '9') {
      return false;
    }
  }
  return true;
}

// Reads a number of a sign, a few digits and a point among them: a coordinate, most often. Its
// digits are an integer that a double holds exactly, and so is the power of ten that it is divided
// by; the quotient of the two is rounded once, to what from_chars makes of the text.
std::optional<double> parse_few_digits(std::string_view number) {
  constexpr std::size_t most_digits = 15;
  static constexpr std::array<double, most_digits + 1> powers = {
      1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  const bool is_negative = number.front() == '-';
  std::uint64_t digits = 0;
  std::size_t count = 0;
  std::size_t decimals = 0;
  bool has_point = false;
  for (const char byte : number.substr(is_negative ? 1 : 0)) {
    if (is_digit(byte)) {
      digits = digits * 10 + static_cast<std::uint64_t>(byte - '0');
      decimals += has_point ? 1 : 0;
      if (++count > most_digits) {
        return std::nullopt;
      }
    } else if (byte == '.' && !has_point) {
      has_point = true;
    } else {
      return std::nullopt;
    }
  }
  if (count == 0 || !divides_exactly) {
    return std::nullopt;
  }
  const double value = static_cast<double>(digits) / powers[decimals];
  return is_negative ? -value : value;
}

// Reads in place what is a decimal number from its first byte to its last; nothing else, and no
// number that strtod might report a range error for, which it also does for some below the smallest
// normal one that round up to it.
std::optional<double> parse_plain_decimal(std::string_view text) {
  const std::string_view number = without_plus(text);
  if (!begins_as_decimal(number)) {
    return std::nullopt;
  }
  if (const auto few = parse_few_digits(number)) {
    return few;
  }
  double value = 0.0;
  const char* const end = number.data() + number.size();
  const auto [stopped, error] = std::from_chars(number.data(), end, value);
  if (error != std::errc() || stopped != end) {
    return std::nullopt;
  }
  const bool safe = std::abs(value) > std::numeric_limits<double>::min() ||
                    (value == 0.0 && is_written_as_zero(number));
  return safe ? std::optional(value) : std::nullopt;
}

// Reads any number, in a copy that the C library can read.
std::optional<double> parse_any_float(std::string_view text) {
  std::string number(text);
  std::replace(number.begin(), number.end(), 'D', 'E');
  std::replace(number.begin(), number.end(), 'd', 'e');
  const auto value = parse_plain_decimal(number);
  return value ? value : c_locale::strtod_whole(number);
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
  const std::string_view number = text::trim_view(text);
  if (number.empty()) {
    return std::nullopt;
  }
  const auto value = parse_plain_decimal(number);
  return value ? value : parse_any_float(number);
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
