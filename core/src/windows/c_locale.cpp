// The C library here either follows the host's locale or does not know hexadecimal numbers, so this
// is the syntax of `strtod` over `std::from_chars`, which knows all numbers and no locale. Beside
// signs and prefixes they differ in one thing: `strtod` reports a range error for a value below the
// normal numbers unless it is exact, `std::from_chars` only for one that becomes zero.

#include "../c_locale.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <system_error>

#include "kelp/core/text.hpp"

namespace kelp::core::number::c_locale {
namespace {

// The last binary digit that a double can have stands for two to this power.
constexpr int lowest_exponent =
    std::numeric_limits<double>::min_exponent - std::numeric_limits<double>::digits;

bool is_digit(char byte) {
  return byte >= '0' && byte <= '9';
}

bool is_name_byte(char byte) {
  const char lower = text::to_lower(byte);
  return is_digit(byte) || (lower >= 'a' && lower <= 'z') || byte == '_';
}

bool starts_with_ignoring_case(std::string_view text, std::string_view start) {
  return text::equals_ignoring_case(text.substr(0, start.size()), start);
}

std::optional<double> parse_name(std::string_view name) {
  if (text::equals_ignoring_case(name, "inf") || text::equals_ignoring_case(name, "infinity")) {
    return std::numeric_limits<double>::infinity();
  }
  if (!starts_with_ignoring_case(name, "nan")) {
    return std::nullopt;
  }
  const std::string_view payload = name.substr(3);
  const bool is_parenthesised = payload.size() >= 2 && payload.front() == '(' &&
                                payload.back() == ')' &&
                                std::all_of(payload.begin() + 1, payload.end() - 1, is_name_byte);
  if (!payload.empty() && !is_parenthesised) {
    return std::nullopt;
  }
  return std::numeric_limits<double>::quiet_NaN();
}

/// The digits of a number, without zeros at either end, and the exponent of the last one.
struct Digits {
  std::string digits;
  std::int64_t exponent = 0;
};

bool operator==(const Digits& left, const Digits& right) {
  return left.exponent == right.exponent && left.digits == right.digits;
}

std::int64_t exponent_of(std::string_view text) {
  std::int64_t exponent = 0;
  if (text.starts_with('+')) {
    text.remove_prefix(1);
  }
  std::from_chars(text.data(), text.data() + text.size(), exponent);
  return exponent;
}

// Takes apart what std::from_chars has accepted. A digit moves the exponent by `step`.
Digits take_apart(std::string_view number, char exponent_letter, int step) {
  Digits result;
  const auto letter = std::find_if(number.begin(), number.end(), [&](char byte) {
    return text::to_lower(byte) == exponent_letter;
  });
  if (letter != number.end()) {
    const auto mantissa = static_cast<std::size_t>(letter - number.begin());
    result.exponent = exponent_of(number.substr(mantissa + 1));
    number = number.substr(0, mantissa);
  }
  const std::size_t point = std::min(number.find('.'), number.size());
  const std::string_view decimals = number.substr(std::min(point + 1, number.size()));
  result.digits.append(number.substr(0, point)).append(decimals);
  result.exponent -= step * static_cast<std::int64_t>(decimals.size());
  const std::size_t kept = result.digits.find_last_not_of('0') + 1;
  result.exponent += step * static_cast<std::int64_t>(result.digits.size() - kept);
  result.digits.resize(kept);
  result.digits.erase(0, result.digits.find_first_not_of('0'));
  return result;
}

bool is_exact_decimal(std::string_view number, double value) {
  // All the digits that the smallest numbers have, and room for the exponent.
  constexpr int most_digits = 767;
  std::array<char, most_digits + 10> digits{};
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                     std::chars_format::scientific, most_digits - 1);
  const std::string_view exact(digits.data(),
                               static_cast<std::size_t>(written.ptr - digits.data()));
  return take_apart(number, 'e', 1) == take_apart(exact, 'e', 1);
}

// The number is exact when its last binary digit is one that a double has.
bool is_exact_hexadecimal(std::string_view number) {
  constexpr int bits = 4;
  const Digits parts = take_apart(number, 'p', bits);
  const char last = text::to_lower(parts.digits.back());
  const auto value = static_cast<unsigned int>(is_digit(last) ? last - '0' : last - 'a' + 10);
  return parts.exponent + std::countr_zero(value) >= lowest_exponent;
}

std::optional<double> parse_digits(std::string_view number, std::chars_format format) {
  double value = 0.0;
  const char* const end = number.data() + number.size();
  const auto [stopped, error] = std::from_chars(number.data(), end, value, format);
  if (error != std::errc() || stopped != end) {
    return std::nullopt;
  }
  if (std::fpclassify(value) == FP_SUBNORMAL) {
    const bool exact = format == std::chars_format::hex ? is_exact_hexadecimal(number)
                                                        : is_exact_decimal(number, value);
    return exact ? std::optional(value) : std::nullopt;
  }
  return value;
}

std::optional<double> parse_unsigned(std::string_view number) {
  // Neither a sign nor a name may follow; std::from_chars would take some.
  const auto starts_digits = [](std::string_view text, std::string_view letters) {
    return !text.empty() && (is_digit(text[0]) || text[0] == '.' ||
                             letters.find(text::to_lower(text[0])) != std::string_view::npos);
  };
  if (starts_with_ignoring_case(number, "0x")) {
    number.remove_prefix(2);
    return starts_digits(number, "abcdef") ? parse_digits(number, std::chars_format::hex)
                                           : std::nullopt;
  }
  return starts_digits(number, "") ? parse_digits(number, std::chars_format::general)
                                   : parse_name(number);
}

}  // namespace

std::optional<double> strtod_whole(const std::string& text) {
  std::string_view number = text;
  while (!number.empty() && text::is_space(number.front())) {
    number.remove_prefix(1);
  }
  const bool is_negative = number.starts_with('-');
  if (is_negative || number.starts_with('+')) {
    number.remove_prefix(1);
  }
  const auto value = parse_unsigned(number);
  return value && is_negative ? std::optional(-*value) : value;
}

}  // namespace kelp::core::number::c_locale
