// In what two inputs differ, and what makes no difference.

#include "kelp/input/bdf/difference.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/rewrite.hpp"
#include "support/files.hpp"
#include "support/published_inputs.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

std::string side_text(const std::optional<DifferenceSide>& side) {
  if (!side) {
    return "none";
  }
  const std::string atom = side->atom > 0 ? std::to_string(side->atom) + ' ' : "";
  return atom + '[' + core::text::join(side->lines, "|") + "]@" + std::to_string(side->line);
}

// "changed entry scf.charge: [0]@3 -> [1]@3"
std::vector<std::string> differences(const std::string& before, const std::string& after) {
  std::vector<std::string> texts;
  for (const InputDifference& difference : find_differences(ParsedInput(before, shipped_schema()),
                                                            ParsedInput(after, shipped_schema()))) {
    texts.push_back(std::string(to_string(difference.kind)) + ' ' +
                    std::string(to_string(difference.thing)) + ' ' + difference.path() + ": " +
                    side_text(difference.before) + " -> " + side_text(difference.after));
  }
  return texts;
}

struct Row {
  int line;
  std::string before;
  std::string after;
  std::vector<std::string> expected;
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << "row at line " << row.line;
}

class Differences : public ::testing::TestWithParam<Row> {};

TEST_P(Differences, AreThese) {
  const Row& row = GetParam();
  EXPECT_EQ(differences(row.before, row.after), row.expected);
}

const std::string geometry = "Geometry\nO 0 0 0\nH 0 0 1\nEnd Geometry\n";

const Row of_layout[] = {
    {__LINE__, "", "", {}},
    {__LINE__, "", "# a comment\n\n", {}},
    {__LINE__, "$scf\nrhf\ncharge\n 1\n$end\n", "$SCF\n\n# why\nCharge 1 # so\n  RHF\n$END\n", {}},
    {__LINE__, "$scf\noccupied\n 3\n$end\n", "$scf\noccupied\n 3.0 # three\n$end\n", {}},
    {__LINE__, "$compass\nbasis\n cc-pVDZ\n$end\n", "$compass\nbasis\n CC-PVDZ\n$end\n", {}},
    {__LINE__, "$scf\nspinmulti\n2\n$end\n", "$scf\r\nspin\r\n2\r\n$end\r\n", {}},
    {__LINE__, "$scf\nthrene\n1.0D-8\n$end\n", "$scf\nthrene 1e-08\n$end\n", {}},
    {__LINE__,
     "hf/sto-3g charge=1 spinmulti=2\n" + geometry,
     "# c\nHF/STO-3G\nspinmulti 2\ncharge = 1 # c\n\n" + geometry,
     {}},
    {__LINE__,
     "hf/sto-3g\n" + geometry,
     "hf/sto-3g\n\nGeometry\n o 0.0 0.0 -0.0\n\n H 0 0 1.00d0 # far\nEnd Geometry\n",
     {}},
    {__LINE__,
     "$compass\ngeometry\nH 0 0 0\nend geometry\n$end\n",
     "$compass\nGeometry\n# c\n  H 0.0 0 0\nEnd Geometry\n$end\n",
     {}},
    {__LINE__, "$scf\nrhf\n$edn\n$resp\n$end\n", "$scf\nrhf\n$end\n\n$resp\n$end\n", {}},
};

const Row of_values[] = {
    {__LINE__,
     "$scf\ncharge\n 0\n$end\n",
     "$scf\ncharge 1\n$end\n",
     {"changed entry scf.charge: [0]@2 -> [1]@2"}},
    {__LINE__,
     "$scf\nrhf\n$end\n",
     "$scf\nuhf\n$end\n",
     {"removed entry scf.rhf: []@2 -> none", "added entry scf.uhf: none -> []@2"}},
    {__LINE__,
     "$scf\nnosuch 1\n$end\n",
     "$scf\nnosuch 2\n$end\n",
     {"changed entry scf.nosuch: [1]@2 -> [2]@2"}},
    {__LINE__,
     "$scf\ncharge\n0\n$end\n$scf\ncharge\n0\n$end\n",
     "$scf\ncharge\n0\n$end\n$scf\ncharge\n1\n$end\n",
     {"changed entry scf#2.charge: [0]@6 -> [1]@6"}},
    {__LINE__,
     "$scf\nalpha\n 1 2\n$end\n",
     "$scf\nalpha\n 2 1\n$end\n",
     {"changed entry scf.alpha: [1 2]@2 -> [2 1]@2"}},
    {__LINE__,
     "$bdfopt\nconstrain\n 1\n 1 2\n$end\n",
     "$bdfopt\nconstrain\n 2\n 1 2\n 1 3\n$end\n",
     {"changed entry bdfopt.constrain: [1|1 2]@2 -> [2|1 2|1 3]@2"}},
};

const Row of_headers[] = {
    {__LINE__,
     "b3lyp/sto-3g charge=0\n" + geometry,
     "pbe0/sto-3g charge=1 spinmulti=2\n" + geometry,
     {"changed header word easy.functional: [b3lyp]@1 -> [pbe0]@1",
      "changed header word easy.charge: [0]@1 -> [1]@1",
      "added header word easy.spinmulti: none -> [2]@1"}},
    {__LINE__,
     "tddft/pbe0/def2-svp\n" + geometry,
     "mp2/def2-tzvp\n" + geometry,
     {"changed header word easy.method: [tddft]@1 -> [mp2]@1",
      "removed header word easy.functional: [pbe0]@1 -> none",
      "changed header word easy.basis: [def2-svp]@1 -> [def2-tzvp]@1"}},
    {__LINE__,
     "#! a.sh\nhf/sto-3g\n" + geometry,
     "#! b.sh\nhf/sto-3g\n" + geometry,
     {"changed script name : [a.sh]@1 -> [b.sh]@1"}},
    {__LINE__,
     "hf/sto-3g\n" + geometry,
     "",
     {"removed header word easy.method: [hf]@1 -> none",
      "removed header word easy.basis: [sto-3g]@1 -> none",
      "removed atom geometry: 1 [O 0 0 0]@3 -> none",
      "removed atom geometry: 2 [H 0 0 1]@4 -> none"}},
};

const Row of_geometries[] = {
    {__LINE__,
     "hf/sto-3g\n" + geometry,
     "hf/sto-3g\nGeometry\nO 0 0 0\nC 9 9 9\nH 0 0 1.1\nEnd Geometry\n",
     {"changed atom geometry: 2 [H 0 0 1]@4 -> 2 [C 9 9 9]@4",
      "added atom geometry: none -> 3 [H 0 0 1.1]@5"}},
    {__LINE__,
     "hf/sto-3g\n" + geometry,
     "hf/sto-3g\nGeometry\nO 0 0 0\nC 9 9 9\nH 0 0 1\nEnd Geometry\n",
     {"added atom geometry: none -> 2 [C 9 9 9]@4"}},
    {__LINE__,
     "hf/sto-3g\n" + geometry,
     "hf/sto-3g\nGeometry\nH 0 0 1\nO 0 0 0\nEnd Geometry\n",
     {"removed atom geometry: 1 [O 0 0 0]@3 -> none",
      "added atom geometry: none -> 2 [O 0 0 0]@4"}},
    {__LINE__,
     "$compass\ngeometry\nH1 0 0 0\nend geometry\n$end\n",
     "$compass\ngeometry\nH2 0 0 0\nend geometry\n$end\n",
     {"changed atom compass.geometry: 1 [H1 0 0 0]@3 -> 1 [H2 0 0 0]@3"}},
    {__LINE__,
     "$compass\nunit\n bohr\ngeometry\nO 0 0 0\nH 0 0 1\nend geometry\n$end\n",
     "$compass\ngeometry\nO 0 0 0\nH 0 0 0.529177\nend geometry\n$end\n",
     {"removed entry compass.unit: [bohr]@2 -> none"}},
    {__LINE__,
     "$compass\nunit\n bohr\ngeometry\nH 0 0 1\nend geometry\n$end\n",
     "$compass\nunit\n angstrom\ngeometry\nH 0 0 1\nend geometry\n$end\n",
     {"changed entry compass.unit: [bohr]@2 -> [angstrom]@2",
      "changed atom compass.geometry: 1 [H 0 0 1]@5 -> 1 [H 0 0 1]@5"}},
    {__LINE__,
     "$compass\ngeometry\nO\nH 1 r\n\nr=1.0\nend geometry\n$end\n",
     "$compass\ngeometry\nO\nH 1 r\n\nr=1.1\nend geometry\n$end\n",
     {"changed geometry line compass.geometry: [r=1.0]@6 -> [r=1.1]@6"}},
};

const Row of_modules[] = {
    {__LINE__,
     "$scf\nrhf\n$end\n",
     "$scf\nrhf\n$end\n$tddft\niroot\n 1\n$end\n",
     {"added module tddft: none -> []@4"}},
    {__LINE__,
     "$scf\n$end\n$tddft\niroot\n 1\n$end\n$resp\n$end\n",
     "$tddft\niroot\n 1\n$end\n$resp\n$end\n$scf\n$end\n",
     {"moved module scf: []@1 -> []@7"}},
    {__LINE__,
     "$scf\n$end\n%cp a b\n",
     "$scf\n$end\n* c\n%cp a c\n",
     {"changed statement : [%cp a b]@3 -> [%cp a c]@4"}},
    {__LINE__,
     "%cp a b\n$scf\n$end\n",
     "$scf\n$end\n",
     {"removed statement : [%cp a b]@1 -> none"}},
};

INSTANTIATE_TEST_SUITE_P(OfLayout, Differences, ::testing::ValuesIn(of_layout));
INSTANTIATE_TEST_SUITE_P(OfValues, Differences, ::testing::ValuesIn(of_values));
INSTANTIATE_TEST_SUITE_P(OfHeaders, Differences, ::testing::ValuesIn(of_headers));
INSTANTIATE_TEST_SUITE_P(OfGeometries, Differences, ::testing::ValuesIn(of_geometries));
INSTANTIATE_TEST_SUITE_P(OfModules, Differences, ::testing::ValuesIn(of_modules));

TEST(DifferencesOfText, RangesAreThoseOfEachInput) {
  const ParsedInput before("$scf\ncharge\n 0\n$end\n", shipped_schema());
  const ParsedInput after("hf/sto-3g charge=1\n" + geometry + "$scf\n\ncharge 1\n$end\n",
                          shipped_schema());
  bool has_entry = false;
  for (const InputDifference& found : find_differences(before, after)) {
    if (found.thing == DifferingThing::Entry) {
      has_entry = true;
      EXPECT_EQ(before.source().text_of(found.before->range), "charge\n 0\n");
      EXPECT_EQ(after.source().text_of(found.after->range), "charge 1\n");
      EXPECT_EQ(found.before->record, RecordId::of_entry(0, 0));
    }
    if (found.path() == "easy.charge") {
      EXPECT_EQ(after.source().text_of(found.after->range), "charge=1");
    }
    if (found.path() == "easy.basis") {
      EXPECT_EQ(after.source().text_of(found.after->range), "sto-3g");
    }
  }
  EXPECT_TRUE(has_entry);
}

// Of an input that has a value at `scf.charge`, an edit of it is the one thing that differs.
TEST(DifferencesOfPublishedInputs, AreWhatWasEdited) {
  const std::vector<std::filesystem::path> files = kelp::test::published_inputs();
  if (files.empty()) {
    GTEST_SKIP() << "no corpus";
  }
  Edit edit;
  edit.assignments = {*parse_assignment("scf.charge=77").assignment};
  std::size_t edited = 0;
  for (const std::filesystem::path& file : files) {
    const ParsedInput input(kelp::test::file_bytes(file), shipped_schema());
    if (!find_value(input, edit.assignments.front().path)) {
      continue;
    }
    const Rewrite rewrite = edit_input(input, edit);
    const auto found = find_differences(input, ParsedInput(rewrite.text, shipped_schema()));
    ASSERT_EQ(found.size(), 1U) << file;
    EXPECT_EQ(found.front().path(), "scf.charge") << file;
    EXPECT_EQ(found.front().after->lines, std::vector<std::string>{"77"}) << file;
    ++edited;
  }
  EXPECT_GT(edited, 20U);
}

TEST(DifferencesOfPublishedInputs, AreNoneAfterLayingThemOut) {
  const std::vector<std::filesystem::path> files = kelp::test::published_inputs();
  if (files.empty()) {
    GTEST_SKIP() << "no corpus";
  }
  for (const std::filesystem::path& file : files) {
    const ParsedInput input(kelp::test::file_bytes(file), shipped_schema());
    EXPECT_TRUE(find_differences(input, input).empty()) << file;
    const Rewrite laid_out = format_input(input);
    const ParsedInput after(laid_out.text, shipped_schema());
    EXPECT_TRUE(find_differences(input, after).empty()) << file;
  }
}

TEST(DifferencesOfText, EnumeratorsHaveNames) {
  EXPECT_EQ(to_string(DifferenceKind::Moved), "moved");
  EXPECT_EQ(to_string(static_cast<DifferenceKind>(9)), "unknown");
  EXPECT_EQ(to_string(DifferingThing::HeaderWord), "header word");
  EXPECT_EQ(to_string(static_cast<DifferingThing>(-1)), "unknown");
}

}  // namespace
}  // namespace kelp::input::bdf
