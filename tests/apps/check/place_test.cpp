// Lines, columns and carets, whatever stands before the word at fault.

#include <algorithm>
#include <string>

#include "check/check_fixture.hpp"

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

class Place : public Check, public ::testing::WithParamInterface<Row> {};

TEST_P(Place, ColumnsCountCodePointsAndCaretsStandUnderTheWord) {
  const Row& row = GetParam();
  const Outcome outcome = check("$scf\nalpha\n" + row.line + "\nbeta\n1\n$end\n");
  EXPECT_THAT(outcome.out, HasSubstr(" --> a.inp:3:" + row.column + "\n  |\n3 | " + row.shown +
                                     "\n  | " + row.carets + "\n"));
  const Outcome concise = check_named({"--format=concise"}, {"a.inp"});
  EXPECT_THAT(concise.out, HasSubstr("a.inp:3:" + row.column + ": error: "));
}

const Row rows[] = {
    {"the first word", "x", "1", "x", "^"},
    {"blanks", "1  x", "4", "1  x", "   ^"},
    {"a tab counts one column and is shown as four blanks", "\t1\tx", "4", "    1    x",
     "         ^"},
    {"a carriage return is white space", "1\rx", "3", "1\xEF\xBF\xBDx", "  ^"},
    {"a word of several letters", "1 two", "3", "1 two", "  ^^^"},
    {"the word itself is wide", "1 \u4E8C\u4E09", "3", "1 \u4E8C\u4E09", "  ^^^^"},
    {"the word combines marks", "1 e\u0301e\u0301", "3", "1 e\u0301e\u0301", "  ^^"},
    {"an invalid byte in the word", "1 \xFFx", "3", "1 \xEF\xBF\xBDx", "  ^^"},
};

INSTANTIATE_TEST_SUITE_P(Rows, Place, ::testing::ValuesIn(rows));

// A word that is no keyword stands behind the text, so that the text may be anything.
struct RemarkRow {
  const char* what;
  std::string before;
  std::string column;
  std::string blanks;
};

void PrintTo(const RemarkRow& row, std::ostream* stream) {
  *stream << row.what;
}

class PlaceBehindText : public Check, public ::testing::WithParamInterface<RemarkRow> {};

TEST_P(PlaceBehindText, ColumnsCountCodePointsAndCaretsStandUnderTheWord) {
  const RemarkRow& row = GetParam();
  const Outcome outcome =
      check("HF/sto-3g " + row.before + "charge=x\nGeometry\nH 0 0 0\nEnd Geometry\n");
  EXPECT_THAT(outcome.out, HasSubstr(" --> a.inp:1:" + row.column + "\n"));
  EXPECT_THAT(outcome.out, HasSubstr("charge=x\n  |           " + row.blanks + "       ^\n"));
}

const RemarkRow remark_rows[] = {
    {"nothing", "", "18", ""},
    {"a letter of two bytes", "\u00E9 ", "20", "  "},
    {"wide characters", "\u6C34\u5206\u5B50 ", "22", "       "},
    {"a full-width letter", "\uFF21 ", "20", "   "},
    {"a character beyond 16 bits", "\U0001F600 ", "20", "   "},
    {"a combining mark", "e\u0301 ", "21", "  "},
    {"invalid bytes", "\xC3\xA9\xC3 \xFE\xFF ", "24", "      "},
    {"a surrogate half is three invalid bytes", "\xED\xA0\x80 ", "22", "    "},
    {"a NUL byte", std::string("a\0b ", 4), "22", "    "},
    {"an escape sequence", "\x1B[31m ", "24", "      "},
    {"an override of the direction", "\u202E ", "20", "  "},
};

INSTANTIATE_TEST_SUITE_P(Rows, PlaceBehindText, ::testing::ValuesIn(remark_rows));

using PlaceOf = Check;

TEST_F(PlaceOf, AFindingIsTheSameWithCarriageReturns) {
  const Outcome plain = check("$scf\n ocupied \ncharge\n one\n$end\n");
  const Outcome windows = check("$scf\r\n ocupied \r\ncharge\r\n one\r\n$end\r\n");
  EXPECT_THAT(plain.out, HasSubstr("a.inp:4:2"));
  EXPECT_EQ(windows.out, plain.out);
}

TEST_F(PlaceOf, TheLastLineMayLackItsEnd) {
  EXPECT_THAT(check("$scf\nocupied").out, HasSubstr("a.inp:2:1\n  |\n2 | ocupied\n  | ^^^^^^^"));
}

TEST_F(PlaceOf, TheMarginFitsTheLineNumber) {
  const Outcome outcome = check("$scf\n" + std::string(98, '\n') + "ocupied\n$end\n");
  EXPECT_THAT(outcome.out, HasSubstr("   --> a.inp:100:1\n"
                                     "    |\n"
                                     "100 | ocupied\n"
                                     "    | ^^^^^^^ not an entry of $scf\n"
                                     "    = help: a similar entry exists: 'occupied'\n"));
}

TEST_F(PlaceOf, ALongLineIsShownAroundTheWord) {
  const std::string before = "HF/sto-3g " + std::string(300, 'a') + " ";
  const Outcome outcome = check(before + "charge=x " + std::string(300, 'b') + "\n" +
                                "Geometry\nH 0 0 0\nEnd Geometry\n");
  EXPECT_THAT(outcome.out, HasSubstr(":1:319\n"));
  EXPECT_THAT(outcome.out,
              HasSubstr("\n1 | ..." + std::string(32, 'a') + " charge=x " + std::string(118, 'b') +
                        "...\n  | " + std::string(43, ' ') + "^\n"));
}

TEST_F(PlaceOf, ALongLineIsNotCutWithinACharacter) {
  std::string wide;
  for (int i = 0; i < 200; ++i) {
    wide += "\u6C34";
  }
  for (const char* const blanks : {" ", "  ", "   "}) {
    const Outcome outcome = check("HF/sto-3g " + wide + blanks + "charge=x " + wide + blanks +
                                  "\nGeometry\nH 0 0 0\nEnd Geometry\n");
    EXPECT_THAT(outcome.out, HasSubstr("charge=x"));
    EXPECT_THAT(outcome.out, Not(HasSubstr("\xEF\xBF\xBD")));
  }
}

TEST_F(PlaceOf, ManyMarksOnALongLineAreEachExact) {
  std::string header = "HF/sto-3g";
  for (int i = 0; i < 3000; ++i) {
    header += " \u6C34 charge=x";
  }
  const Outcome outcome =
      check(header + "\nGeometry\nH 0 0 0\nEnd Geometry\n", {"--format=concise"});
  EXPECT_THAT(outcome.out, HasSubstr("a.inp:1:20: error"));
  EXPECT_THAT(outcome.out, HasSubstr("a.inp:1:31: error"));
  EXPECT_THAT(outcome.out, HasSubstr("a.inp:1:33009: error"));
  EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 3000);
}

}  // namespace
}  // namespace kelp::test
