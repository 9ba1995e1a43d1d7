// What a terminal obeys, or a reader cannot see, is written as an escape.

#include "kelp/core/unicode.hpp"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace kelp::core::unicode {
namespace {

struct Row {
  const char* what;
  std::string text;
  std::string shown;
  std::size_t width;
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.what;
}

class Displayable : public testing::TestWithParam<Row> {};

TEST_P(Displayable, IsShownInThisManyColumns) {
  const Row& row = GetParam();
  EXPECT_EQ(displayable(row.text), row.shown);
  EXPECT_EQ(display_width(row.text), row.width);
  EXPECT_EQ(displayable(displayable(row.text)), row.shown);
}

const Row rows[] = {
    {"plain text", "scf.charge", "scf.charge", 10},
    {"a backslash", "a\\b", "a\\b", 3},
    {"a tab", "a\tb", "a    b", 6},
    {"line ends", "a\nb\r", "a\\nb\\r", 6},
    {"NUL", std::string("\0", 1), "\\x00", 4},
    {"an escape sequence", "\x1B[31m", "\\x1b[31m", 8},
    {"DEL", "\x7F", "\\x7f", 4},
    {"a raw C1 control",
     "\x9B"
     "31m",
     "\\x9b31m", 7},
    {"a C1 control", "\u009B31m", "\\u009b31m", 9},
    {"a soft hyphen", "a\u00ADb", "a\\u00adb", 8},
    {"marks of direction", "\u200E\u200F\u061C", "\\u200e\\u200f\\u061c", 18},
    {"an override of the direction", "a\u202Eb\u202C", "a\\u202eb\\u202c", 14},
    {"an isolate", "\u2066x\u2069", "\\u2066x\\u2069", 13},
    {"separators of lines", "\u2028\u2029", "\\u2028\\u2029", 12},
    {"zero width", "\u200B\u200C\u200D\u2060", "\\u200b\\u200c\\u200d\\u2060", 24},
    {"a byte order mark", "\uFEFF$scf", "\\ufeff$scf", 10},
    {"a tag", "\U000E0041", "\\U000e0041", 10},
    {"bytes that are no UTF-8", "\xC3 \xFF", "\\xc3 \\xff", 9},
    {"a surrogate half", "\xED\xA0\x80", "\\xed\\xa0\\x80", 12},
    {"letters of other scripts", "\u00E9\u6C34\U0001F600", "\u00E9\u6C34\U0001F600", 5},
    {"a combining mark", "e\u0301", "e\u0301", 1},
};

INSTANTIATE_TEST_SUITE_P(Rows, Displayable, testing::ValuesIn(rows));

TEST(DisplayableLines, KeepsLinesApart) {
  EXPECT_EQ(displayable_lines(""), "");
  EXPECT_EQ(displayable_lines("a\n\nb"), "a\n\nb");
  EXPECT_EQ(displayable_lines("\x1B\n\u202E\n"), "\\x1b\n\\u202e\n");
}

TEST(DisplayableLines, LeavesOutTheCarriageReturnOfALineEndOnly) {
  EXPECT_EQ(displayable_lines("a\r\nb\rc\r"), "a\nb\\rc\\r");
}

}  // namespace
}  // namespace kelp::core::unicode
