// Lines of geometries: which are right, what is at fault in those that are not, and what mends
// them.

#include <ostream>

#include "diagnose/diagnosing.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

ParsedInput with_lines(const std::string& lines) {
  return ParsedInput("#! job\nhf/sto-3g\nGeometry\n" + lines + "\nEnd Geometry\n",
                     shipped_schema());
}

TEST(AtomLines, ThatAreRightAreNotToldOf) {
  for (const char* const lines : {
           " H 0 0 0\n\n# c\n* c\nhe 1.0 -2. .5 # c\nCl12 1d0 1E-3 +4\nX 0 0 0\nx1 0 0 0",
           " c 0 0 0 B\n H 0 0 1 l",
           " H 0 0 0\n ...\n \xE2\x80\xA6\n H 0 0 1",
           " file=water.xyz",
           " FILE = water.optgeom # c",
           " Ne",
           " O\n H 1 0.9\n H 1 0.9 2 109.0\n H 1 0.9 2 109.0 3 -120",
           " O\n H1 1 R1 # c\n h 1 R1 2 A1\n\n A1 = 109.0\n\n R1 0.75 0.05 20",
           " O\n H 1 -R1\nR1=1.0",
           " O\n H 1 H1\n\n H1 0.75 0.05 20",
       }) {
    EXPECT_THAT(texts_of(with_lines(lines)), testing::IsEmpty()) << lines;
  }
}

struct Row {
  std::string lines;
  const char* at;     ///< what is marked, and how
  const char* fixed;  ///< the lines after the first fix; null for none
  bool is_safe;
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.lines;
}

class AtomLines : public ::testing::TestWithParam<Row> {};

TEST_P(AtomLines, AreToldOfByWhatIsAtFault) {
  const Row& row = GetParam();
  const ParsedInput input = with_lines(row.lines);
  const auto found = diagnose(input);
  ASSERT_EQ(codes_of(found), std::vector<std::string>{"geometry.geometry_line_malformed"});
  EXPECT_EQ(found[0].severity, Severity::Error);
  EXPECT_EQ(place_of(*found[0].range, input.source()) + ": " + found[0].label, row.at);
  ASSERT_EQ(found[0].fixes.empty(), row.fixed == nullptr);
  if (row.fixed != nullptr) {
    const Fix& fix = found[0].fixes[0];
    EXPECT_EQ(fix.is_safe, row.is_safe);
    const std::string fixed = apply_edits(input.source().text(), fix.edits);
    EXPECT_EQ(fixed, with_lines(row.fixed).source().text());
    EXPECT_THAT(texts_of(ParsedInput(fixed, shipped_schema())), testing::IsEmpty());
  }
}

const Row rows[] = {
    {" O 0,0 0,5 -1,25 # c", "4:5 ',': a comma for a decimal point", " O 0.0 0.5 -1.25 # c", true},
    {"O 0.0 0,5 1", "4:8 ',': a comma for a decimal point", "O 0.0 0.5 1", true},
    {"O 0.0,0.5,1.0", "4:6 ',': a comma between fields", "O 0.0 0.5 1.0", false},
    {"O, 0.0, 0.5, 1.0", "4:2 ',': a comma between fields", "O  0.0  0.5  1.0", false},
    {"O 0 \xE2\x88\x92"
     "1.5 \xE2\x80\x93"
     "0.5",
     "4:5 '\xE2\x88\x92': a typographic minus", "O 0 -1.5 -0.5", true},
    {"O\xC2\xA0"
     "0.0 1.0 2.0",
     "4:2 '\xC2\xA0': a no-break space", "O 0.0 1.0 2.0", true},
    {"O 0.0 1.\xEF\xBC\x95 2.0", "4:9 '\xEF\xBC\x95': a full-width character", "O 0.0 1.5 2.0",
     true},
    {"\xEF\xBC\xAF 0.0 1.5 2.0", "4:1 '\xEF\xBC\xAF': a full-width character", "O 0.0 1.5 2.0",
     true},
    {"O 0,5 \xE2\x88\x92"
     "1,5 2,0",
     "4:4 ',': a typographic minus", "O 0.5 -1.5 2.0", true},
    {"O 0.O 1.5 l.0", "4:5 'O': a letter for a digit", "O 0.0 1.5 1.0", false},
    {"F-1.43 0.5 0.2", "4:1 'F-1.43': label and number without a blank between", "F -1.43 0.5 0.2",
     false},
    {"F1.43 0.5 0.2", "4:1 'F1.43': label and number without a blank between", "F 1.43 0.5 0.2",
     false},
    {"O 0.1 0.5-1.2", "4:7 '0.5-1.2': two numbers without a blank between", "O 0.1 0.5 -1.2",
     false},
    {"1 O 0.1 0.5 1.2", "4:1 '1': a number before the label", "O 0.1 0.5 1.2", false},
    {"O 0.1 0.5", "4:1 'O 0.1 0.5': 2 of 3 coordinates", nullptr, false},
    {"H 0 0 0\nO", "5:1 'O': 0 of 3 coordinates", nullptr, false},
    {"0.1 0.5 1.5", "4:1 '0.1': no label of an atom", nullptr, false},
    {"O 0.1 0.5 1.2 1.0", "4:15 '1.0': more than three coordinates", nullptr, false},
    {"O 0.1 0.5x 1.2", "4:10 'x': not a number", nullptr, false},
    {"O 0x1 0.5 1.2", "4:4 'x': not a number", nullptr, false},
    {"O 0.1 inf 1.2", "4:7 'inf': not a number", nullptr, false},
    {"O 0.1 y 1.2", "4:7 'y': not a number", nullptr, false},
    {"2\nwater, optimised\nH 0 0 0\nH 0 0 1", "4:1 '2': the head of an XYZ file",
     "H 0 0 0\nH 0 0 1", false},
    {"2\n\nH 0 0 0\nH 0 0 1", "4:1 '2': the head of an XYZ file", "H 0 0 0\nH 0 0 1", false},
    {"2\nH 0 0 0\nH 0 0 1", "4:1 '2': the head of an XYZ file", "H 0 0 0\nH 0 0 1", false},
    {"O\nH 1 0,9", "5:6 ',': a comma for a decimal point", "O\nH 1 0.9", true},
    {"O\nH 1 R1\nH 1 R1 2\nR1=1.0", "6:1 'H 1 R1 2': 3 of 4 fields", nullptr, false},
    {"O\nH 1.5 R1\nR1=1.0", "5:3 '1.5': not the number of an atom above", nullptr, false},
    {"O\nH 1 R1 2 A1\nR1=1.0\nA1=1", "5:8 '2': more than the row takes", nullptr, false},
};

INSTANTIATE_TEST_SUITE_P(Rows, AtomLines, ::testing::ValuesIn(rows));

TEST(AtomLines, OfModulesAreLookedAtToo) {
  const ParsedInput input(
      "$compass\ngeometry # c\n H 0 0 0\n H 0 0\nend geometry\n$end\n"
      "$bdfopt\ngeometry2\n# image\n Hq 0 0 1\nend geometry2\n$end\n",
      shipped_schema());
  EXPECT_EQ(texts_of(input),
            (std::vector<std::string>{
                "error geometry.geometry_line_malformed of compass.geometry [H 0 0]\n"
                "4:2 'H 0 0': 2 of 3 coordinates\n"
                "help: write an atom and its three coordinates, 'O 0.0 0.0 0.5'\n",
                "error geometry.unknown_element of bdfopt.geometry2 [Hq]\n"
                "10:2 'Hq': not the symbol of an element\n"
                "help: similar elements exist: 'H', 'He' or 'Ho'\n"
                "meant: H\nmeant: He\nmeant: Ho\n"}));
}

TEST(AtomLines, WithoutAnEndGoOnForAsLongAsTheyAreAtoms) {
  for (const char* const text :
       {"#! job\nhf/sto-3g\nGeometry\nH 0 0 0\nH 0 0 1\nEnd Geom\n$scf\nrhf\n$end\n",
        "$compass\ngeometry\nH 0 0 0\nedn geometry\nnosymm\nbasis\n cc-pvdz\n$end\n"}) {
    for (const Diagnostic& found : diagnose(ParsedInput(text, shipped_schema()))) {
      EXPECT_FALSE(found.code.starts_with("geometry.")) << text << found.message;
    }
  }
}

struct LooseRow {
  std::string line;
  const char* found;  ///< the code, and what is marked
  const char* fixed;  ///< the line after the fix
};

// What can be read as an atom, though more stands there than an atom has.
TEST(AtomLines, WithWordsOrMarksOfOtherProgramsAreToldOf) {
  for (const LooseRow& row : {
           LooseRow{"C 0 0 0 Q", "geometry.surplus_word 'Q'", "C 0 0 0 # Q"},
           LooseRow{"C 0 0 0 H1 # c", "geometry.surplus_word 'H1'", "C 0 0 0 # H1 # c"},
           LooseRow{"C 0 0 0  ! at the end", "geometry.surplus_word '! at the end'",
                    "C 0 0 0  # ! at the end"},
           LooseRow{"C 0 0 0 B x", "geometry.surplus_word 'B x'", "C 0 0 0 # B x"},
           LooseRow{"Cl- 0 0 0", "geometry.label_marks 'Cl-'", "Cl 0 0 0"},
           LooseRow{"H_12 0 0 0 L", "geometry.label_marks 'H_12'", "H 0 0 0 L"},
           LooseRow{"C12A 0 0 0", "geometry.label_marks 'C12A'", "C12 0 0 0"},
       }) {
    const ParsedInput input = with_lines(row.line);
    const auto found = diagnose(input);
    ASSERT_EQ(found.size(), 1U) << row.line;
    EXPECT_EQ(found[0].severity, Severity::Warning);
    EXPECT_EQ(found[0].code + " '" + std::string(input.source().text_of(*found[0].range)) + "'",
              row.found);
    ASSERT_EQ(found[0].fixes.size(), 1U);
    EXPECT_FALSE(found[0].fixes[0].is_safe);
    const std::string fixed = apply_edits(input.source().text(), found[0].fixes[0].edits);
    EXPECT_EQ(fixed, with_lines(row.fixed).source().text());
    EXPECT_THAT(texts_of(ParsedInput(fixed, shipped_schema())), testing::IsEmpty());
  }
}

TEST(Elements, ThatAreNoneAreToldOf) {
  struct Label {
    const char* label;
    const char* part;
    std::vector<std::string> meant;
  };
  for (const Label& row : {
           Label{"Or", "Or", {"O", "Os", "Og"}},
           Label{"lC", "lC", {"Cl"}},
           Label{"Hq12", "Hq", {"H", "He", "Ho"}},
           Label{"Car", "Car", {"C", "Ca"}},
           Label{"8", "8", {"O"}},
           Label{"0", "0", {"O"}},
           Label{"119", "119", {}},
           Label{"D", "D", {"H"}},
           Label{"Q", "Q", {}},
           Label{"N)", "N)", {"N"}},
           Label{"Cl+", "Cl+", {"Cl"}},
       }) {
    const ParsedInput input = with_lines(" " + std::string(row.label) + " 0 0 0");
    const auto found = diagnose(input);
    ASSERT_EQ(codes_of(found), std::vector<std::string>{"geometry.unknown_element"}) << row.label;
    EXPECT_EQ(found[0].severity, Severity::Error);
    EXPECT_EQ(input.source().text_of(*found[0].range), row.part);
    EXPECT_EQ(found[0].suggestions, row.meant) << row.label;
    for (const Fix& fix : found[0].fixes) {
      EXPECT_FALSE(fix.is_safe) << row.label;
    }
  }
}

TEST(Elements, OfInternalCoordinatesAreLookedAtToo) {
  EXPECT_THAT(codes_of(diagnose(with_lines("Or\nH 1 0.9\nHx 1 0.9 2 104"))),
              testing::ElementsAre("geometry.unknown_element", "geometry.unknown_element"));
}

}  // namespace
}  // namespace kelp::input::bdf
