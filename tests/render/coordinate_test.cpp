// Coordinates of a usual size are written without the standard library, and as it writes them.

#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <cmath>
#include <random>
#include <string>
#include <string_view>

#include "render/render.hpp"

namespace kelp::input::bdf {
namespace {

TEST(Coordinates, OfUsualSizesAreWrittenAsToCharsDoes) {
  std::mt19937_64 random(7);
  const auto expect_as_by_library = [](double value) {
    std::array<char, 400> digits;
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                       std::chars_format::fixed, 10);
    std::string text;
    append_coordinate(text, value);
    ASSERT_EQ(text, std::string_view(digits.data(), written.ptr)) << value;
  };
  for (int i = 0; i < 100000; ++i) {
    const auto mantissa = static_cast<double>(random() >> 11U);
    expect_as_by_library(std::ldexp(mantissa, -static_cast<int>(random() % 110)));
    expect_as_by_library(-std::ldexp(mantissa, -static_cast<int>(random() % 110)));
    // Halves of the last decimal.
    expect_as_by_library(
        std::ldexp(static_cast<double>(random() % 4096), -static_cast<int>(random() % 60)));
    expect_as_by_library((static_cast<double>(random() % 20000001) - 1e7) / 1e5);
  }
  for (const double value : {0.0, 999999999.9999999, 999999999.99999999, 1e9, 5e-11, 5e-324}) {
    expect_as_by_library(value);
    expect_as_by_library(-value);
  }
}

}  // namespace
}  // namespace kelp::input::bdf
