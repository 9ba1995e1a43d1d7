// Coordinates are written with the digits that C's printf writes in the "C" locale.

#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>

#include "editor_fixture.hpp"
#include "support/locale.hpp"

namespace kelp::input::bdf {
namespace {

std::string printed(double value) {
#ifdef _WIN32
  // Its printf does not show the sign of a NaN.
  if (std::isnan(value)) {
    return std::signbit(value) ? "-nan" : "nan";
  }
#endif
  std::array<char, 400> text;
  std::snprintf(text.data(), text.size(), "%.10f", value);
  return text.data();
}

std::string rendered(double x, double y, double z) {
  BDFEditor editor({}, small_schema());
  editor.set_cartesian_geometry({atom("H", x, y, z)});
  return editor.render();
}

std::string expected(double x, double y, double z) {
  return "#!job.bdf\n\n\nGeometry\n  H " + printed(x) + ' ' + printed(y) + ' ' + printed(z) +
         "\nEnd Geometry\n";
}

void expect_as_printed(double value) {
  EXPECT_EQ(rendered(value, -value, value / 3), expected(value, -value, value / 3));
}

TEST(Coordinates, HaveTenDecimals) {
  EXPECT_EQ(rendered(0.1173, -1.0, 2.5e-11),
            "#!job.bdf\n\n\nGeometry\n  H 0.1173000000 -1.0000000000 0.0000000000\nEnd Geometry\n");
}

TEST(Coordinates, KeepTheSignOfNegativeZeroAndOfWhatRoundsToIt) {
  EXPECT_EQ(
      rendered(-0.0, -1e-11, -5.1e-11),
      "#!job.bdf\n\n\nGeometry\n  H -0.0000000000 -0.0000000000 -0.0000000001\nEnd Geometry\n");
}

TEST(Coordinates, AreWrittenInFullWhateverTheirSize) {
  using limits = std::numeric_limits<double>;
  for (const double value :
       {limits::max(), limits::lowest(), limits::min(), limits::denorm_min(), limits::epsilon(),
        1e15, 1e16, 1e22, 1e23, 9007199254740993.0, 1e100}) {
    expect_as_printed(value);
  }
}

TEST(Coordinates, TiesGoTheWayOfTheExactValue) {
  for (const double value : {0.00000000005, 0.00000000015, 0.5, 1.00000000005, 0.12345678905,
                             2.0 / 1024 / 1024 / 1024, 3.0 / 2048 / 1024 / 1024 / 1024}) {
    expect_as_printed(value);
  }
}

TEST(Coordinates, ThatAreNoNumbersAreNamed) {
  using limits = std::numeric_limits<double>;
  EXPECT_EQ(rendered(limits::infinity(), -limits::infinity(), limits::quiet_NaN()),
            "#!job.bdf\n\n\nGeometry\n  H inf -inf nan\nEnd Geometry\n");
  expect_as_printed(limits::quiet_NaN());
}

TEST(Coordinates, OfAnySizeAreWrittenAsPrintfDoes) {
  std::mt19937_64 bits(20240607);
  std::uniform_real_distribution<double> molecular(-50.0, 50.0);
  for (int i = 0; i < 3000; ++i) {
    expect_as_printed(molecular(bits));
    const std::uint64_t pattern = bits();
    double any = 0.0;
    std::memcpy(&any, &pattern, sizeof any);
    expect_as_printed(any);
  }
}

TEST(Coordinates, DoNotHeedTheStreamsGlobalLocale) {
  const std::string before = rendered(1234567.5, -0.25, 3.0);
  const test::CommaLocale german;
  EXPECT_EQ(rendered(1234567.5, -0.25, 3.0), before);
}

TEST(Coordinates, DoNotHeedTheCLocale) {
  const std::string name = test::comma_c_locale();
  if (name.empty()) {
    GTEST_SKIP() << "no locale with a decimal comma is installed";
  }
  const std::string before = rendered(1234567.5, -0.25, 3.0);
  const std::string old = std::setlocale(LC_ALL, nullptr);
  std::setlocale(LC_ALL, name.c_str());
  const std::string after = rendered(1234567.5, -0.25, 3.0);
  std::setlocale(LC_ALL, old.c_str());
  EXPECT_EQ(after, before);
}

}  // namespace
}  // namespace kelp::input::bdf
