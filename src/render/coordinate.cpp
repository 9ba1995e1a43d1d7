// Coordinates are most of what is written of a large molecule. Those of a usual size are made of
// two products of integers; for all others the standard library is asked, which is right of any
// number.

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <system_error>

#include "render/render.hpp"

namespace kelp::input::bdf {
namespace {

// More digits than that no double has behind its point within the range of coordinates.
constexpr int most_decimals = 40;

// Writes an integer of a known number of digits, zeros before it.
char* write_digits(char* out, std::uint64_t number, int digits) {
  for (int i = digits; i-- > 0; number /= 10) {
    out[i] = static_cast<char>('0' + number % 10);
  }
  return out + digits;
}

/// A quotient, and how what it leaves out compares with a half.
struct Rounded {
  std::uint64_t quotient;
  bool is_exact_half;
  bool is_above_half;
};

// Returns (high * 2^64 + low) / 2^shift for a shift of 1 to 127 whose quotient is below 2^64.
Rounded divided_by_power(std::uint64_t high, std::uint64_t low, int shift) {
  constexpr int bits = 64;
  constexpr std::uint64_t half = std::uint64_t{1} << (bits - 1);
  if (shift < bits) {
    const std::uint64_t left_out = low << (bits - shift);
    return {high << (bits - shift) | low >> shift, left_out == half, left_out > half};
  }
  if (shift == bits) {
    return {high, low == half, low > half};
  }
  const int more = shift - bits;
  const std::uint64_t left_out = high << (bits - more);
  return {high >> more, left_out == half && low == 0,
          left_out > half || (left_out == half && low != 0)};
}

// Writes a coordinate as `std::to_chars` does, in fixed notation with ten decimals, and takes a
// fraction of the time. A double is an integer times a power of two; that integer times 10^10 fits
// into two words, so that nothing is lost before the one rounding, to even at a half. Returns null
// where the number is too large, or none.
char* write_usual_coordinate(char* out, double value) {
  constexpr double least_large = 1e9;
  constexpr std::uint64_t scale = 10'000'000'000;
  constexpr int mantissa_bits = 52;
  constexpr int low_bits = 26;
  if (!(std::abs(value) < least_large)) {
    return nullptr;
  }
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const auto exponent = static_cast<int>(bits >> mantissa_bits & 0x7ffU);
  const std::uint64_t fraction = bits & ((std::uint64_t{1} << mantissa_bits) - 1);
  const std::uint64_t mantissa =
      exponent == 0 ? fraction : fraction | std::uint64_t{1} << mantissa_bits;
  const std::uint64_t upper = (mantissa >> low_bits) * scale;
  const std::uint64_t lower = (mantissa & ((std::uint64_t{1} << low_bits) - 1)) * scale;
  const std::uint64_t low = (upper << low_bits) + lower;
  const std::uint64_t high = (upper >> (64 - low_bits)) + (low < lower ? 1 : 0);
  // Beyond 90 bits of a product below 2^87, less than a half is left.
  constexpr int most_shift = 90;
  const int shift = std::min(1075 - std::max(exponent, 1), most_shift);
  const Rounded rounded = divided_by_power(high, low, shift);
  const bool is_up = rounded.is_above_half || (rounded.is_exact_half && rounded.quotient % 2 == 1);
  const std::uint64_t number = rounded.quotient + (is_up ? 1 : 0);
  if (std::signbit(value)) {
    *out++ = '-';
  }
  constexpr std::size_t most_digits = 10;
  out = std::to_chars(out, out + most_digits, number / scale).ptr;
  *out++ = '.';
  return write_digits(out, number % scale, coordinate_decimals);
}

}  // namespace

void append_coordinate(std::string& out, double value, int decimals) {
  const auto write = [&](char* begin, char* end) {
    return std::to_chars(begin, end, value, std::chars_format::fixed,
                         std::clamp(decimals, 0, most_decimals));
  };
  // Most coordinates are short enough to be written where they belong.
  constexpr std::size_t usual = 24;
  const std::size_t begin = out.size();
  out.resize(begin + usual);
  if (decimals == coordinate_decimals) {
    if (const char* const end = write_usual_coordinate(out.data() + begin, value)) {
      out.resize(static_cast<std::size_t>(end - out.data()));
      return;
    }
  }
  const auto in_place = write(out.data() + begin, out.data() + out.size());
  if (in_place.ec == std::errc()) {
    out.resize(static_cast<std::size_t>(in_place.ptr - out.data()));
    return;
  }
  out.resize(begin);
  // Room for a sign, the 309 digits of the largest double, the point and the decimals.
  std::array<char, 360> digits;
  const auto written = write(digits.data(), digits.data() + digits.size());
  out.append(digits.data(), written.ptr);
}

}  // namespace kelp::input::bdf
