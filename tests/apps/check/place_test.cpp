// Lines, columns and carets, whatever stands before the word at fault.

#include <ostream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "check/reporting.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

struct Row {
  const char* what;
  std::string line;    ///< a line with the value of an entry that wants integers
  std::string column;  ///< of the word "x"
  std::string shown;   ///< the line in the report
  std::string carets;  ///< the line below it
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.what;
}

class Place : public ::testing::TestWithParam<Row> {};

TEST_P(Place, ColumnsCountCodePointsAndCaretsStandUnderTheWord) {
  const Row& row = GetParam();
  const std::string input = "$scf\nalpha\n" + row.line + "\nbeta\n1\n$end\n";
  EXPECT_THAT(human_reports(input), HasSubstr(" --> a.inp:3:" + row.column + "\n  |\n3 | " +
                                              row.shown + "\n  | " + row.carets + "\n"));
  EXPECT_THAT(reports(input, false), HasSubstr("a.inp:3:" + row.column + ": error: "));
}

const Row rows[] = {
    {"the first word", "x", "1", "x", "^"},
    {"blanks", "1  x", "4", "1  x", "   ^"},
    {"a tab counts one column and is shown as four blanks", "\t1\tx", "4", "    1    x",
     "         ^"},
    {"a carriage return is white space", "1\rx", "3", "1\\rx", "   ^"},
    {"a word of several letters", "1 two", "3", "1 two", "  ^^^"},
    {"the word itself is wide", "1 \u4E8C\u4E09", "3", "1 \u4E8C\u4E09", "  ^^^^"},
    {"the word combines marks", "1 e\u0301e\u0301", "3", "1 e\u0301e\u0301", "  ^^"},
    {"an invalid byte in the word", "1 \xFFx", "3", "1 \\xffx", "  ^^^^^"},
};

INSTANTIATE_TEST_SUITE_P(Rows, Place, ::testing::ValuesIn(rows));

// A word that is no keyword stands behind the text, so that the text may be anything.
struct BehindRow {
  const char* what;
  std::string before;
  std::string column;
  std::string blanks;
};

void PrintTo(const BehindRow& row, std::ostream* stream) {
  *stream << row.what;
}

class PlaceBehindText : public ::testing::TestWithParam<BehindRow> {};

TEST_P(PlaceBehindText, ColumnsCountCodePointsAndCaretsStandUnderTheWord) {
  const BehindRow& row = GetParam();
  const std::string report =
      human_reports("HF/sto-3g " + row.before + "charge=x\nGeometry\nH 0 0 0\nEnd Geometry\n");
  EXPECT_THAT(report, HasSubstr(" --> a.inp:1:" + row.column + "\n"));
  EXPECT_THAT(report, HasSubstr("charge=x\n  |           " + row.blanks + "       ^\n"));
}

const BehindRow rows_behind[] = {
    {"nothing", "", "18", ""},
    {"a letter of two bytes", "\u00E9 ", "20", "  "},
    {"wide characters", "\u6C34\u5206\u5B50 ", "22", "       "},
    {"a full-width letter", "\uFF21 ", "20", "   "},
    {"a character beyond 16 bits", "\U0001F600 ", "20", "   "},
    {"a combining mark", "e\u0301 ", "21", "  "},
    {"invalid bytes", "\xC3\xA9\xC3 \xFE\xFF ", "24", "               "},
    {"a surrogate half is three invalid bytes", "\xED\xA0\x80 ", "22", "             "},
    {"a NUL byte", std::string("a\0b ", 4), "22", "       "},
    {"an escape sequence", "\x1B[31m ", "24", "         "},
    {"an override of the direction", "\u202E ", "20", "       "},
};

INSTANTIATE_TEST_SUITE_P(Rows, PlaceBehindText, ::testing::ValuesIn(rows_behind));

TEST(PlaceOf, AFindingIsTheSameWithCarriageReturns) {
  const std::string plain = human_reports("$scf\n ocupied \ncharge\n one\n$end\n");
  EXPECT_THAT(plain, HasSubstr("a.inp:4:2"));
  EXPECT_EQ(human_reports("$scf\r\n ocupied \r\ncharge\r\n one\r\n$end\r\n"), plain);
}

TEST(PlaceOf, TheLastLineMayLackItsEnd) {
  EXPECT_THAT(human_reports("$scf\nocupied"),
              HasSubstr("a.inp:2:1\n  |\n2 | ocupied\n  | ^^^^^^^"));
}

TEST(PlaceOf, ALongLineIsShownAroundTheWord) {
  const std::string before = "HF/sto-3g " + std::string(300, 'a') + " ";
  const std::string report = human_reports(before + "charge=x " + std::string(300, 'b') + "\n" +
                                           "Geometry\nH 0 0 0\nEnd Geometry\n");
  EXPECT_THAT(report, HasSubstr(":1:319\n"));
  EXPECT_THAT(report,
              HasSubstr("\n1 | ..." + std::string(32, 'a') + " charge=x " + std::string(118, 'b') +
                        "...\n  | " + std::string(43, ' ') + "^\n"));
}

TEST(PlaceOf, ALongLineIsNotCutWithinACharacter) {
  std::string wide;
  for (int i = 0; i < 200; ++i) {
    wide += "\u6C34";
  }
  for (const char* const blanks : {" ", "  ", "   "}) {
    const std::string report = human_reports("HF/sto-3g " + wide + blanks + "charge=x " + wide +
                                             blanks + "\nGeometry\nH 0 0 0\nEnd Geometry\n");
    EXPECT_THAT(report, HasSubstr("charge=x"));
    EXPECT_THAT(report, Not(HasSubstr("\xEF\xBF\xBD")));
  }
}

}  // namespace
}  // namespace kelp::test
