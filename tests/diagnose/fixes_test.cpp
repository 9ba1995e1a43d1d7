// Fixes: what they write, and that it mends what they are offered for.

#include <algorithm>
#include <ostream>

#include "diagnose/diagnosing.hpp"

namespace kelp::input::bdf {
namespace {

struct Row {
  const char* what;
  std::string input;
  std::string title;  ///< of the first fix of the first finding
  std::string fixed;  ///< the text after it
  bool is_safe;
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.what;
}

class Fixes : public ::testing::TestWithParam<Row> {};

std::size_t count_findings(const ParsedInput& input, const std::string& code) {
  const auto found = diagnose(input);
  return static_cast<std::size_t>(std::count_if(
      found.begin(), found.end(), [&](const Diagnostic& it) { return it.code == code; }));
}

TEST_P(Fixes, MendWhatTheyAreOfferedFor) {
  const Row& row = GetParam();
  const ParsedInput input = parse(row.input);
  const Diagnostic finding = diagnose(input).at(0);
  ASSERT_FALSE(finding.fixes.empty());
  const Fix& fix = finding.fixes[0];
  EXPECT_EQ(fix.title, row.title);
  EXPECT_EQ(fix.is_safe, row.is_safe);
  const std::string fixed = apply_edits(row.input, fix.edits);
  EXPECT_EQ(fixed, row.fixed);
  EXPECT_LT(count_findings(parse(fixed), finding.code), count_findings(input, finding.code));
}

const Row rows[] = {
    {"a module's name", " $Xuanyuna # c\n$end\n", "write 'xuanyuan'", " $xuanyuan # c\n$end\n",
     true},
    {"words behind a module's name", "$scf try # c\r\nrhf\r\n$end\r\n",
     "put it on a line of its own, as a comment", "$scf\r\n# try # c\r\nrhf\r\n$end\r\n", false},
    {"a comment of another kind behind a module's name", "$scf  * try \nrhf\n$end\n",
     "put it on a line of its own, as a comment", "$scf\n* try \nrhf\n$end\n", true},
    {"a line that is more than a misspelt entry", "$scf\n ocupied of atoms\n$end\n",
     "write 'occupied'", "$scf\n occupied of atoms\n$end\n", false},
    {"an entry", "$scf\n ocupied # c\n 3\n$end\n", "write 'occupied'",
     "$scf\n occupied # c\n 3\n$end\n", true},
    {"an entry that a comment is glued to", "$scf\n ocupied#c\n 3\n$end\n", "write 'occupied'",
     "$scf\n occupied#c\n 3\n$end\n", true},
    {"an entry like two others", "$scf\nrhx\n$end\n", "write 'rhf'", "$scf\nrhf\n$end\n", false},
    {"an entry of a block", "$bdfopt\nneb-block\n crud\nend neb\n$end\n", "write 'crude'",
     "$bdfopt\nneb-block\n crude\nend neb\n$end\n", true},
    {"the header's form", "$scf\nCharge=1\n$end\n", "write the value on the next line",
     "$scf\ncharge\n  1\n$end\n", false},
    {"lines of a block on the keyword's line", "$compass\nbasis-block H x # c\nend basis\n$end\n",
     "write it on the next line", "$compass\nbasis-block\n  H x # c\nend basis\n$end\n", false},
    {"a value", "$scf\nguess\n huckle # c\n$end\n", "write 'huckel'",
     "$scf\nguess\n huckel # c\n$end\n", false},
    {"a module's end", "$scf\nrhf\n\n$xuanyuan\n$end\n", "add the line '$end'",
     "$scf\nrhf\n$end\n\n$xuanyuan\n$end\n", false},
    {"a module's end at the end of the text", "$scf\nrhf", "add the line '$end'", "$scf\nrhf\n$end",
     false},
    {"a block's end", "$compass\nbasis-block\n H sto-3g\n$end\n", "add the line 'end basis'",
     "$compass\nbasis-block\n H sto-3g\nend basis\n$end\n", false},
    {"the geometry's end", "hf/sto-3g\nGeometry\n H 0 0 0\n H 0 0 1\n\n$scf\n$end\n",
     "add the line 'End Geometry'",
     "hf/sto-3g\nGeometry\n H 0 0 0\n H 0 0 1\nEnd Geometry\n\n$scf\n$end\n", false},
};

INSTANTIATE_TEST_SUITE_P(Rows, Fixes, ::testing::ValuesIn(rows));

TEST(FixesOfSeveralNames, AreOfferedInTheirOrder) {
  const auto found = diagnose(parse("$scf\nrhx\n$end\n"));
  ASSERT_EQ(found.size(), 1U);
  ASSERT_EQ(found[0].fixes.size(), 2U);
  EXPECT_EQ(found[0].fixes[0].title, "write 'rhf'");
  EXPECT_EQ(found[0].fixes[1].title, "write 'rhs'");
}

}  // namespace
}  // namespace kelp::input::bdf
