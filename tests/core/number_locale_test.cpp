// Numbers in hosts whose locale writes a comma for the decimal point.

#include <gtest/gtest.h>

#include <clocale>
#include <locale>
#include <string>

#include "kelp/core/number.hpp"
#include "support/locale.hpp"

namespace kelp::core::number {
namespace {

void expect_c_syntax() {
  EXPECT_EQ(parse_float("0.5"), 0.5);
  EXPECT_EQ(parse_float("1.5D-3"), 1.5e-3);
  EXPECT_EQ(parse_float("0x1.8p1"), 3.0);
  EXPECT_EQ(parse_float("1000.25e-320"), std::nullopt);
  EXPECT_EQ(parse_float("0,5"), std::nullopt);
  EXPECT_EQ(parse_float("1.000,5"), std::nullopt);
  EXPECT_EQ(parse_integer("1000"), 1000);
  EXPECT_EQ(parse_integer("1.000"), std::nullopt);
}

TEST(NumberLocale, TheGlobalCppLocaleChangesNothing) {
  const test::CommaLocale comma;
  expect_c_syntax();
}

TEST(NumberLocale, TheCLocaleChangesNothing) {
  const std::string name = test::comma_c_locale();
  if (name.empty()) {
    GTEST_SKIP() << "no C locale with a decimal comma is installed";
  }
  const std::string before = std::setlocale(LC_ALL, nullptr);
  std::setlocale(LC_ALL, name.c_str());
  expect_c_syntax();
  std::setlocale(LC_ALL, before.c_str());
}

TEST(NumberLocale, TheNativeLocaleChangesNothing) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  std::setlocale(LC_ALL, "");
  expect_c_syntax();
  std::setlocale(LC_ALL, before.c_str());
}

}  // namespace
}  // namespace kelp::core::number
