#include "cli/size.hpp"

#include <gtest/gtest.h>

#include <optional>

namespace kelp::app {
namespace {

TEST(Size, IsANumberOfBytesWithOrWithoutUnit) {
  EXPECT_EQ(parse_size("0"), 0U);
  EXPECT_EQ(parse_size("1000"), 1000U);
  EXPECT_EQ(parse_size("20k"), 20'000U);
  EXPECT_EQ(parse_size("256M"), 256'000'000U);
  EXPECT_EQ(parse_size("256mb"), 256'000'000U);
  EXPECT_EQ(parse_size("1.5G"), 1'500'000'000U);
  EXPECT_EQ(parse_size("2T"), 2'000'000'000'000U);
  EXPECT_EQ(parse_size("7B"), 7U);
}

TEST(Size, IsNothingElse) {
  for (const char* const text : {"", "k", "B", "-1", "+1", "1 k", "1x", "1kk", "1e3", "1.2.3",
                                 "0x10", "99999999T", "nan", "."}) {
    EXPECT_EQ(parse_size(text), std::nullopt) << text;
  }
}

TEST(Size, IsShownInTheLargestUnitThatFits) {
  EXPECT_EQ(size_text(0), "0 bytes");
  EXPECT_EQ(size_text(1234), "1234 bytes");
  EXPECT_EQ(size_text(10'000), "10 kB");
  EXPECT_EQ(size_text(256'000'000), "256 MB");
  EXPECT_EQ(size_text(5'000'000'000'000), "5 TB");
  EXPECT_EQ(size_text(5'000'000'000'000'000), "5000 TB");
}

}  // namespace
}  // namespace kelp::app
