// The reader of numbers that serves where the C library cannot, compared with a C library that can.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <random>
#include <string>
#include <string_view>

#include "number_reference.hpp"

namespace kelp::core::number {

namespace c_locale {
std::optional<double> strtod_by_hand(const std::string& text);
}  // namespace c_locale

namespace {

// Equal numbers can differ in sign; what a NaN carries beside that does not matter.
Bits meaning(const std::optional<double>& value) {
  return value && std::isnan(*value) ? Bits(std::signbit(*value) ? 1 : 0) : bits(value);
}

std::optional<double> strtod_whole(const std::string& text) {
  char* stopped = nullptr;
  errno = 0;
  const double value = std::strtod(text.c_str(), &stopped);
  const bool refused = text.empty() || errno == ERANGE || stopped != text.c_str() + text.size();
  return refused ? std::nullopt : std::optional(value);
}

testing::AssertionResult agree(const std::string& text) {
  const Bits ours = meaning(c_locale::strtod_by_hand(text));
  const Bits theirs = meaning(strtod_whole(text));
  return ours == theirs ? testing::AssertionSuccess()
                        : testing::AssertionFailure() << testing::PrintToString(text) << ": "
                                                      << testing::PrintToString(ours) << " and not "
                                                      << testing::PrintToString(theirs);
}

std::string random_text(std::mt19937& random, std::string_view alphabet, std::size_t max_size) {
  std::string text(random() % (max_size + 1), ' ');
  for (char& byte : text) {
    byte = alphabet[random() % alphabet.size()];
  }
  return text;
}

TEST(NumberSyntax, AgreesOnNamesAndPrefixes) {
  for (const char* text :
       {"inf",        "INFINITY", "-Inf",  "+infinity", "infin",     "infinityx",
        "nan",        "-nan",     "NaN()", "nan(1)",    "nan(a_Z9)", "nan(%)",
        "nan(",       "nan(1",    "nan)",  "nan(1)x",   "na",        "",
        "+",          "-",        "+-1",   "--1",       "-+1",       " 1",
        "\t-1",       "1 ",       "0x",    "0X1",       "0x.",       "0x.8",
        "0x8.",       "-0xAp1",   "0x1p",  "0x1p+",     "0x1p-",     "0x1p+3",
        "0x1p--3",    "0x-1",     "0x+1",  "0x 1",      "0xinf",     "0xnan",
        "0x0x1",      "00x1",     "0xg",   "1.",        ".1",        ".",
        ".e1",        "1e",       "1e+",   "1e+1",      "1E-1",      "1e+-1",
        "1_0",        "1,5",      "0",     "-0",        "0.0e-999",  "0e99999999999999999999",
        "0x0p-99999", "0x0p99999"}) {
    EXPECT_TRUE(agree(text));
  }
}

TEST(NumberSyntax, AgreesOnTheEndsOfTheRange) {
  for (const char* text : {"1e308",
                           "1e309",
                           "-1e309",
                           "1.7976931348623157e308",
                           "1.7976931348623159e308",
                           "1e99999999999999999999",
                           "1e-99999999999999999999",
                           "0x1p1023",
                           "0x1p1024",
                           "0x1.fffffffffffffp1023",
                           "0x1.fffffffffffff8p1023",
                           "0x1p-1022",
                           "0x1p-1073",
                           "0x1p-1074",
                           "0x1p-1075",
                           "0x1.8p-1074",
                           "0x3p-1075",
                           "0x6p-1075",
                           "0x30000p-1090",
                           "0x0.00018p-1058",
                           "0x1.8p-1073",
                           "-0x8p-1077",
                           "0x10p-1078",
                           "0x0.8p-1073",
                           "0x1.000000000000000000001p-1074",

                           "0x1.ffffffffffffep-1023",
                           "1e-307",
                           "1e-308",
                           "1e-310",
                           "4.9406564584124654e-324",
                           "5e-324",
                           "2e-324",
                           "1e-400"}) {
    EXPECT_TRUE(agree(text));
  }
}

TEST(NumberSyntax, AgreesOnNumbersBelowTheNormalOnesWrittenExactly) {
  for (const double value : {4.9406564584124654e-324, 1.5e-323, 1e-310, 2.2250738585072009e-308}) {
    std::string exact(1100, ' ');
    exact.resize(
        static_cast<std::size_t>(std::snprintf(exact.data(), exact.size(), "%.766e", value)));
    EXPECT_TRUE(agree(exact));
    EXPECT_TRUE(agree("-000" + exact));
    EXPECT_TRUE(c_locale::strtod_by_hand(exact).has_value());
    // One more digit at the end makes it inexact.
    const std::size_t letter = exact.find('e');
    EXPECT_TRUE(agree(exact.substr(0, letter) + "1" + exact.substr(letter)));
    EXPECT_TRUE(agree(exact.substr(0, letter) + "000" + exact.substr(letter)));
  }
}

TEST(NumberSyntax, AgreesOnRandomTexts) {
  std::mt19937 random(11);
  for (std::size_t i = 0; i < 200'000; ++i) {
    const std::string text = random_text(random, "0123456789.eE+-xXpafin() ", 1 + i % 9);
    ASSERT_TRUE(agree(text));
  }
}

TEST(NumberSyntax, AgreesOnRandomDecimalsOfAllSizes) {
  std::mt19937 random(12);
  for (int i = 0; i < 100'000; ++i) {
    const int exponent = static_cast<int>(random() % 700) - 350;
    ASSERT_TRUE(agree(random_text(random, "0123456789", 25) + "." +
                      random_text(random, "0123456789", 25) + "e" + std::to_string(exponent)));
  }
}

// With more digits than a double has, glibc forgets some range errors.
TEST(NumberSyntax, AgreesOnRandomHexadecimalsOfAllSizes) {
  std::mt19937 random(13);
  for (int i = 0; i < 200'000; ++i) {
    const int exponent = static_cast<int>(random() % 2400) - 1200;
    ASSERT_TRUE(agree("0x" + random_text(random, "0123456789abcdefABCDEF", 6) + "." +
                      random_text(random, "000123456789abcdef", 7) + "p" +
                      std::to_string(exponent)));
  }
}

TEST(NumberSyntax, AgreesOnRandomHexadecimalsWithMoreDigitsThanADoubleHas) {
  std::mt19937 random(14);
  for (int i = 0; i < 100'000; ++i) {
    const int exponent = static_cast<int>(random() % 1800) - 900;
    ASSERT_TRUE(agree("0x" + random_text(random, "0123456789abcdefABCDEF", 20) + "." +
                      random_text(random, "000123456789abcdef", 20) + "p" +
                      std::to_string(exponent)));
  }
}

}  // namespace
}  // namespace kelp::core::number
