#include "kelp/core/unicode.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace kelp::core::unicode {
namespace {

using Lines = std::vector<std::string_view>;

TEST(Wrap, CutsAtBlanksWhichItLeavesOut) {
  EXPECT_EQ(wrap("one two three", 7), (Lines{"one two", "three"}));
  EXPECT_EQ(wrap("one two three", 6), (Lines{"one", "two", "three"}));
  EXPECT_EQ(wrap("one two three", 13), (Lines{"one two three"}));
  EXPECT_EQ(wrap("  one   two  ", 9), (Lines{"one   two"}));
  EXPECT_EQ(wrap("  one   two  ", 8), (Lines{"one", "two"}));
}

TEST(Wrap, ATextOfBlanksHasNoLine) {
  EXPECT_EQ(wrap("", 10), Lines{});
  EXPECT_EQ(wrap("   ", 10), Lines{});
}

TEST(Wrap, AWordThatIsTooWideHasALineOfItsOwn) {
  EXPECT_EQ(wrap("a longword b", 4), (Lines{"a", "longword", "b"}));
  EXPECT_EQ(wrap("longword", 0), Lines{"longword"});
}

TEST(Wrap, WideCharactersCountTwoColumnsAndPartAnywhere) {
  EXPECT_EQ(wrap("计算激发态", 10), Lines{"计算激发态"});
  EXPECT_EQ(wrap("计算激发态", 9), (Lines{"计算激发", "态"}));
  EXPECT_EQ(wrap("用TDDFT计算", 7), (Lines{"用TDDFT", "计算"}));
  EXPECT_EQ(wrap("用TDDFT计算", 6), (Lines{"用", "TDDFT", "计算"}));
}

TEST(Wrap, NoLineBeginsWithWhatClosesOrEndsWithWhatOpens) {
  EXPECT_EQ(wrap("计算。激发", 4), (Lines{"计", "算。", "激发"}));
  EXPECT_EQ(wrap("计算（激发）", 6), (Lines{"计算", "（激", "发）"}));
  EXPECT_EQ(wrap("默认 0（守恒）", 8), (Lines{"默认 0", "（守恒）"}));
}

TEST(Wrap, BytesThatAreNoUtf8PassThrough) {
  EXPECT_EQ(wrap("\xFF\xFE ab", 3), (Lines{"\xFF\xFE", "ab"}));
}

TEST(Fitted, LeavesWhatFitsAndCutsBehindAWord) {
  EXPECT_EQ(fitted("one two three", 13), "one two three");
  EXPECT_EQ(fitted("one two three", 12), "one two...");
  EXPECT_EQ(fitted("one two three", 9), "one...");
  EXPECT_EQ(fitted("计算激发态", 10), "计算激发态");
  EXPECT_EQ(fitted("计算激发态", 9), "计算激...");
}

TEST(Fitted, CutsWithinAWordThatIsTooLongButNotWithinACharacter) {
  EXPECT_EQ(fitted("abcdefghij", 6), "abc...");
  EXPECT_EQ(fitted("\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9", 5), "\u00e9\u00e9...");
}

}  // namespace
}  // namespace kelp::core::unicode
