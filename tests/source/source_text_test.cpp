// Lines, ranges and positions of a text.

#include "kelp/input/bdf/source.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kelp::input::bdf {
namespace {

using namespace std::string_literals;

TEST(SourceText, AnEmptyTextHasNoLineAndOnePosition) {
  const SourceText source;
  EXPECT_EQ(source.line_count(), 0U);
  EXPECT_EQ(source.line(1), "");
  EXPECT_EQ(source.line_at(0), 1U);
  EXPECT_EQ(source.position(0), (TextPosition{1, 1}));
  EXPECT_EQ(source.byte_at({3, 7}), 0U);
}

TEST(SourceText, TellsEachLineAndHowItEnds) {
  const SourceText source("a\nb\r\n\nc\r"s);
  ASSERT_EQ(source.line_count(), 4U);
  const std::vector<std::pair<std::string_view, std::string_view>> lines = {
      {"a", "\n"}, {"b", "\r\n"}, {"", "\n"}, {"c", "\r"}};
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_EQ(source.line(i + 1), lines[i].first) << i;
    EXPECT_EQ(source.line_end(i + 1), lines[i].second) << i;
  }
  EXPECT_EQ(source.full_line_range(2), (TextRange{2, 5}));
  EXPECT_EQ(source.line_range(2), (TextRange{2, 3}));
}

TEST(SourceText, AFinalLineFeedBeginsNoFurtherLine) {
  EXPECT_EQ(SourceText("a\n"s).line_count(), 1U);
  EXPECT_EQ(SourceText("a"s).line_count(), 1U);
  EXPECT_EQ(SourceText("\n\n"s).line_count(), 2U);
}

TEST(SourceText, AskingForALineThatIsNotThereGivesNothing) {
  const SourceText source("a\nb"s);
  for (const std::size_t number : {std::size_t{0}, std::size_t{3}, static_cast<std::size_t>(-1)}) {
    EXPECT_EQ(source.line(number), "");
    EXPECT_EQ(source.line_range(number), (TextRange{3, 3}));
    EXPECT_EQ(source.first_word(number), (TextRange{3, 3}));
  }
  EXPECT_EQ(source.text_of({2, 99}), "b");
  EXPECT_EQ(source.text_of({99, 100}), "");
  EXPECT_EQ(source.text_of({2, 1}), "");
}

TEST(SourceText, CountsColumnsInTheUnitAskedFor) {
  // Two bytes, three bytes, four bytes (two UTF-16 units), and a byte that is no UTF-8.
  const SourceText source("x\n\xC3\xA4\xE4\xB8\xAD\xF0\x9D\x9C\x92\xFFz\n"s);
  struct Row {
    std::size_t byte;
    std::size_t bytes;
    std::size_t code_points;
    std::size_t utf16;
  };
  for (const Row& row : std::vector<Row>{{2, 1, 1, 1},
                                         {4, 3, 2, 2},
                                         {7, 6, 3, 3},
                                         {11, 10, 4, 5},
                                         {12, 11, 5, 6},
                                         {13, 12, 6, 7}}) {
    EXPECT_EQ(source.position(row.byte, ColumnUnit::Byte), (TextPosition{2, row.bytes}));
    EXPECT_EQ(source.position(row.byte), (TextPosition{2, row.code_points}));
    EXPECT_EQ(source.position(row.byte, ColumnUnit::Utf16), (TextPosition{2, row.utf16}));
    EXPECT_EQ(source.byte_at({2, row.bytes}, ColumnUnit::Byte), row.byte);
    EXPECT_EQ(source.byte_at({2, row.code_points}), row.byte);
    EXPECT_EQ(source.byte_at({2, row.utf16}, ColumnUnit::Utf16), row.byte);
  }
}

TEST(SourceText, APositionInALineEndIsBehindTheLine) {
  const SourceText source("ab\r\nc"s);
  EXPECT_EQ(source.position(3), (TextPosition{1, 3}));
  EXPECT_EQ(source.position(4), (TextPosition{2, 1}));
  EXPECT_EQ(source.position(99), (TextPosition{2, 2}));
  EXPECT_EQ(source.byte_at({1, 99}), 2U);
}

TEST(SourceText, ColumnsOfLongLinesAreThoseOfAWalk) {
  std::string line;
  std::mt19937 random(4711);
  while (line.size() < 40000) {
    constexpr std::string_view pieces[] = {"a", "\xC3\xA4", "\xE4\xB8\xAD", "\xF0\x9D\x9C\x92",
                                           "\xFF"};
    line += pieces[random() % 5];
  }
  const SourceText source("first\n" + line + "\nlast\n");
  std::size_t column = 1;
  for (std::size_t byte = 6; byte < 6 + line.size();) {
    ASSERT_EQ(source.position(byte), (TextPosition{2, column})) << byte;
    ASSERT_EQ(source.byte_at({2, column}), byte);
    byte = source.byte_at({2, column + 1});
    ++column;
  }
}

TEST(SourceText, AByteOrderMarkBelongsToNoLine) {
  const SourceText source(
      "\xEF\xBB\xBF"
      "ab\nc"s);
  EXPECT_EQ(source.line(1), "ab");
  EXPECT_EQ(source.full_line_range(1), (TextRange{3, 6}));
  EXPECT_EQ(source.position(3), (TextPosition{1, 1}));
  EXPECT_EQ(source.position(0), (TextPosition{1, 1}));
  EXPECT_EQ(source.line_at(0), 1U);
  EXPECT_EQ(SourceText("\xEF\xBB\xBF"s).line_count(), 0U);
}

TEST(SourceText, WordsAreCutAtWhiteSpace) {
  const SourceText source("  ab cd \t\n \n"s);
  EXPECT_EQ(source.text_of(source.content(1)), "ab cd");
  EXPECT_EQ(source.text_of(source.first_word(1)), "ab");
  EXPECT_EQ(source.text_of(source.first_word({4, 9})), "cd");
  EXPECT_TRUE(source.content(2).empty());
  EXPECT_TRUE(source.first_word(2).empty());
}

TEST(SourceText, CopiesAndMovedTextsGoOnLiving) {
  SourceText first("one"s);
  const SourceText copy = first;
  const std::string_view view = copy.text();
  first = SourceText("two"s);
  EXPECT_EQ(view, "one");
  const SourceText moved = std::move(first);
  EXPECT_EQ(moved.text(), "two");
}

TEST(ApplyEdits, ReplacesInsertsAndRemoves) {
  EXPECT_EQ(apply_edits("abcdef", {{{0, 0}, "<"}, {{1, 3}, "X"}, {{5, 6}, ""}}), "<aXde");
  EXPECT_EQ(apply_edits("abc", {}), "abc");
  EXPECT_EQ(apply_edits("abc", {{{3, 3}, "d"}}), "abcd");
}

TEST(ApplyEdits, LeavesOutWhatOverlapsOrLiesBeyond) {
  EXPECT_EQ(apply_edits("abc", {{{0, 2}, "X"}, {{1, 3}, "Y"}}), "Xc");
  EXPECT_EQ(apply_edits("abc", {{{2, 9}, "X"}}), "abc");
  EXPECT_EQ(apply_edits("abc", {{{2, 1}, "X"}}), "abc");
}

}  // namespace
}  // namespace kelp::input::bdf
