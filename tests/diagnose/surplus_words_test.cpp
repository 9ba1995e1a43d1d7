// What stands behind keywords and is not read, second values, and rows of basis-block.

#include <ostream>

#include "diagnose/diagnosing.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

struct Row {
  const char* what;
  std::string input;
  std::vector<std::string> found;
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.what << ": " << row.input;
}

class SurplusWords : public ::testing::TestWithParam<Row> {};

TEST_P(SurplusWords, AreToldOf) {
  EXPECT_EQ(texts_of(ParsedInput(GetParam().input, shipped_schema())), GetParam().found);
}

constexpr const char* one_line =
    "help: each keyword has a line of its own; a comment begins with "
    "'#'\n";

const Row rows[] = {
    {"a keyword behind a flag",
     "$scf\nrks d3\n$end\n",
     {std::string("warning names.word_behind_flag of scf.rks [rks] [d3]\n"
                  "2:5 'd3': not read\n") +
      one_line}},
    {"a misspelt keyword behind a flag, with its value",
     "$scf\nrks maxitr 100 # c\n$end\n",
     {std::string("warning names.word_behind_flag of scf.rks [rks] [maxitr 100]\n"
                  "2:5 'maxitr 100': not read\n") +
      one_line}},
    {"a number behind a flag",
     "$scf\nrks 3\n$end\n",
     {"warning names.word_behind_flag of scf.rks [rks] [3]\n"
      "2:5 '3': not read\n"
      "help: take it away; a comment begins with '#'\n"}},
    {"a value behind a keyword and one below",
     "$scf\nrks\nmaxiter 100\n  200\n$end\n",
     {"warning names.second_value of scf.maxiter [maxiter] [100]\n"
      "3:9 '100': one value\n"
      "4:3 '200' is related: another one\n"
      "help: keep the one that is meant; which of them counts is not said\n"}},
    {"a functional behind a keyword and one below",
     "$scf\nrks\ndft pbe0\n  b3lyp\n$end\n",
     {"warning names.second_value of scf.dft [dft] [pbe0]\n"
      "3:5 'pbe0': one value\n"
      "4:3 'b3lyp' is related: another one\n"
      "help: keep the one that is meant; which of them counts is not said\n"}},
    {"a basis set and a line that is no keyword",
     "$compass\nbasis\n# def2-svp\n  cc-pvdz\n  xyzzy\n$end\n",
     {"warning names.second_value of compass.basis [basis] [xyzzy]\n"
      "5:3 'xyzzy': neither a keyword nor a value\n"
      "4:3 'cc-pvdz' is related: the name\n"
      "help: remove it, or write the keyword that is meant\n"}},
};

INSTANTIATE_TEST_SUITE_P(Rows, SurplusWords, ::testing::ValuesIn(rows));

// Comments without a sign for them are none of anybody's business, nor is a value where it may be.
TEST(SurplusWords, OfRightInputsAreNotToldOf) {
  for (const char* const lines :
       {"rks ! three orbitals\nmaxiter 100", "rks (restricted)\ndft functional\n  b3lyp",
        "rks restricted Kohn-Sham\nguess\n  atom", "rks # d3\nd3 # 3", "guess readmo # atom"}) {
    const ParsedInput input("$scf\n" + std::string(lines) + "\n$end\n", shipped_schema());
    EXPECT_THAT(texts_of(input), testing::IsEmpty()) << lines;
  }
}

TEST(SurplusWords, GetALineOfTheirOwn) {
  const std::string text = "$scf\r\n  rks d3 # c\r\n$end\r\n";
  const ParsedInput input(text, shipped_schema());
  const auto found = diagnose(input, {});
  ASSERT_EQ(found.size(), 1U);
  ASSERT_EQ(found[0].fixes.size(), 1U);
  EXPECT_FALSE(found[0].fixes[0].is_safe);
  EXPECT_EQ(apply_edits(text, found[0].fixes[0].edits), "$scf\r\n  rks\r\n  d3 # c\r\n$end\r\n");
}

// The word may be what the block lacks.
TEST(SurplusWords, AreToldOfBeforeWhatFollowsFromThem) {
  const ParsedInput input(
      "$compass\nbasis\n cc-pvdz\ngeometry\n N 0 0 0\n N 0 0 1.1\nend geometry\n$end\n"
      "$xuanyuan\n$end\n$scf\nrks dft\n$end\n",
      shipped_schema());
  EXPECT_THAT(codes_of(diagnose(input, {})), testing::ElementsAre("names.word_behind_flag"));
}

// -- rows of basis-block

struct BasisRow {
  const char* row;
  const char* found;  ///< severity and label; empty for nothing
  const char* fixed;  ///< the row after its fix; empty without one
};

void PrintTo(const BasisRow& row, std::ostream* stream) {
  *stream << row.row;
}

ParsedInput with_row(const std::string& row) {
  return ParsedInput("$compass\nbasis-block\n " + row + "\nend basis\n$end\n", shipped_schema());
}

class BasisRows : public ::testing::TestWithParam<BasisRow> {};

TEST_P(BasisRows, AreLaidOutAsTheyMustBe) {
  const ParsedInput input = with_row(GetParam().row);
  std::string found;
  std::string fixed;
  for (const Diagnostic& diagnostic : diagnose(input, {})) {
    EXPECT_EQ(diagnostic.code, "names.basis_row_malformed");
    found += std::string(to_string(diagnostic.severity)) + " " + diagnostic.label;
    for (const Fix& fix : diagnostic.fixes) {
      EXPECT_EQ(fix.is_safe, diagnostic.severity == Severity::Error);
      const std::string text = apply_edits(input.source().text(), fix.edits);
      EXPECT_THAT(texts_of(ParsedInput(text, shipped_schema())), testing::IsEmpty());
      fixed += input.source().text_of(*diagnostic.range).empty() ? "" : fix.edits[0].text;
    }
  }
  EXPECT_EQ(found, GetParam().found);
  EXPECT_EQ(fixed, GetParam().fixed);
}

const BasisRow basis_rows[] = {
    {"Pt = lanl2dz", "", ""},
    {"C, O,N=def2-svp", "", ""},
    {"H1=sto-3g", "", ""},
    {"def2-svp", "", ""},
    {"MYBASIS-1", "", ""},
    {"Fe=OWN-SET", "", ""},
    {"...", "", ""},
    {"Pt lanl2dz", "error '=' is missing behind the element", "Pt=lanl2dz"},
    {"Pt:lanl2dz", "error '=' is missing behind the element", "Pt=lanl2dz"},
    {"pt-lanl2dz", "error '=' is missing behind the element", "pt=lanl2dz"},
    {"sto-3g for all", "error a basis set is one word", ""},
    {"Pt = own set", "error a basis set is one word", ""},
    {"Pt==lanl2dz", "error one '=' is enough", "Pt=lanl2dz"},
    {"Pt = = own", "error one '=' is enough", ""},
    {"Pt =", "error which basis set?", ""},
    {"= lanl2dz", "error of which element?", ""},
    {"Pt O=lanl2dz", "warning elements are parted by commas", "Pt,O=lanl2dz"},
    {"Pt,=lanl2dz", "warning elements are parted by commas", "Pt=lanl2dz"},
};

INSTANTIATE_TEST_SUITE_P(Rows, BasisRows, ::testing::ValuesIn(basis_rows));

// Basis data have rows of their own, and a block that has no end takes others along.
TEST(BasisRows, AreNotLookedForInData) {
  for (const char* const text :
       {"$compass\nbasis-block\n inline\n C 6 1\n S 3 1 = 2\n end line\nend basis\n$end\n",
        "$compass\nbasis-block\n sto-3g\n a b\n"}) {
    for (const Diagnostic& found : diagnose(ParsedInput(text, shipped_schema()), {})) {
      EXPECT_NE(found.code, "names.basis_row_malformed") << text;
    }
  }
}

}  // namespace
}  // namespace kelp::input::bdf
