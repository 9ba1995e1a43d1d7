// A change replaces the lines that it concerns; all others stay as they are, byte for byte.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "edited_input.hpp"
#include "line_diff.hpp"
#include "set_row.hpp"
#include "support/files.hpp"
#include "support/program.hpp"
#include "support/published_inputs.hpp"

namespace kelp::test {
namespace {

const SetRow rows[] = {
    {"case, indentation, remarks and empty lines of a module",
     {"scf.charge=1"},
     "$SCF\nRHF # restricted\n\nCharge   # total\n\t0\n* a line of its own\nspinmulti\n "
     "1\n$END\n\n",
     "$SCF\nRHF # restricted\n\nCharge   # total\n\t1\n* a line of its own\nspinmulti\n "
     "1\n$END\n\n"},
    {"a new entry stands behind the last one",
     {"scf.charge=1"},
     "$SCF\nRHF # restricted\n\n$end\n",
     "$SCF\nRHF # restricted\n  charge\n    1\n\n$end\n"},
    {"values behind other keywords",
     {"scf.spinmulti=1"},
     "$scf\nCharge 5\n0\n$end\n",
     "$scf\nCharge 5\n0\n  spinmulti\n    1\n$end\n"},
    {"line ends of Windows",
     {"scf.charge=1", "scf.spinmulti=2"},
     "$scf\r\ncharge\r\n0\r\nrhf\r\n$end\r\n",
     "$scf\r\ncharge\r\n1\r\nrhf\r\n  spinmulti\r\n    2\r\n$end\r\n"},
    {"a last line without an end",
     {"scf.charge=1"},
     "$scf\ncharge\n0\n$end",
     "$scf\ncharge\n1\n$end"},
    {"a module added behind a last line without an end",
     {"xuanyuan.heff=3"},
     "$scf\ncharge\n0\n$end",
     "$scf\ncharge\n0\n$end\n$xuanyuan\n  heff\n    3\n$end\n"},
    {"script line, comments, header and geometry",
     {"scf.vshift=0.2"},
     "#! job\n\n# about\nHF/STO-3G\n  charge = 0 # neutral\n\ngeometry\nHe   0 0 0 # centre\n"
     "end geometry\n\n$scf\nRHF\n$end\n",
     "#! job\n\n# about\nHF/STO-3G\n  charge = 0 # neutral\n\ngeometry\nHe   0 0 0 # centre\n"
     "end geometry\n\n$scf\nRHF\n  vshift\n    0.2\n$end\n"},
    {"a header of several lines, of which all is one change",
     {"easy.charge=1"},
     "#! job\nHF/STO-3G\n  charge = 0\n\ngeometry\nHe   0 0 0 # centre\nend geometry\n",
     "#! job\nhf/sto-3g charge=1\n\ngeometry\nHe   0 0 0 # centre\nend geometry\n"},
    {"a module that is taken out",
     {"--unset", "scf#1"},
     "$scf\n  rhf # r\n$end\n# between\n$scf\n uhf # u\n charge\n 0\n$end\n",
     "# between\n$scf\n uhf # u\n charge\n 0\n$end\n"},
    {"an entry that is taken out, with its remark",
     {"--unset", "scf.charge"},
     "$scf\n rhf # r\n charge # c\n 0\n uhf # u\n$end\n",
     "$scf\n rhf # r\n uhf # u\n$end\n"},
    {"two values, of which one becomes what the other was",
     {"scf.charge=1", "scf.spinmulti=2"},
     "$scf\ncharge\n 0\nSpinMulti\n 1\nrhf\n$end\n",
     "$scf\ncharge\n 1\nSpinMulti\n 2\nrhf\n$end\n"},
    {"two changes far from each other",
     {"compass.basis=sto-3g", "scf#2.charge=2"},
     "$Compass\nBasis\n cc-pvdz\n$End\n$Scf\nRhf\n$End\n$Scf\nCharge\n 0\n$End\n",
     "$Compass\nBasis\n sto-3g\n$End\n$Scf\nRhf\n$End\n$Scf\nCharge\n 2\n$End\n"},
};

TEST(SetKeepsLayout, OfWhatItDoesNotChange) {
  for (const SetRow& row : rows) {
    expect_set(row);
  }
}

// What stands behind the keyword may be its value for whoever wrote it.
TEST(SetKeepsLayout, ButNotOfAKeywordLineThatSeemsToHoldTheOldValue) {
  Program program;
  program.write("a.inp", "$scf\nrhf # r\ncharge 5\n0\n$end\n");
  const Outcome refused = program.run({"set", "--format", "concise", "a.inp", "scf.charge=1"});
  EXPECT_EQ(refused.status, 2);
  EXPECT_EQ(refused.out, "");
  EXPECT_EQ(refused.err,
            "a.inp:3:8: error: The canonical form does not carry the value behind 'charge'. "
            "[bdf.format_loss]\n"
            "kelp-bdf: 'a.inp' is left as it is; --force writes it all the same\n");
  EXPECT_EQ(program.run({"set", "-q", "--force", "a.inp", "scf.charge=1"}).out,
            "$scf\nrhf # r\ncharge\n1\n$end\n");
}

TEST(SetKeepsLayout, OfWhatLiesAroundTwoChangesThatMeet) {
  Program program;
  program.write("a.inp", "$SCF\nRHF # r\ncharge 5\n0\nspinmulti 3\n1\nMOLDEN # m\n$END\n");
  EXPECT_EQ(program.run({"set", "-q", "--force", "a.inp", "scf.charge=1", "scf.spinmulti=2"}).out,
            "$SCF\nRHF # r\ncharge\n1\nspinmulti\n2\nMOLDEN # m\n$END\n");
  program.write("b.inp", "$SCF\ncharge 5\n0\nspinmulti 3\n1\nMOLDEN # m\n$END\n");
  EXPECT_EQ(
      program.run({"set", "-q", "--force", "b.inp", "--unset", "scf.charge", "scf.spinmulti=2"})
          .out,
      "$SCF\n  spinmulti\n    2\nMOLDEN # m\n$END\n");
}

struct Counts {
  std::size_t removed = 0;
  std::size_t added = 0;
};

Counts count_changes(std::string_view before, std::string_view after) {
  Counts counts;
  for (const app::Change& change :
       app::find_changes(app::lines_with_ends(before), app::lines_with_ends(after))) {
    counts.removed += change.old_end - change.old_begin;
    counts.added += change.new_end - change.new_begin;
  }
  return counts;
}

std::vector<app::Edit> some_edits() {
  app::Edit molecule;
  molecule.charge = 1;
  molecule.multiplicity = 2;
  app::Edit value;
  value.assignments = {app::parse_assignment("scf.maxiter=77")};
  app::Edit two_values;
  two_values.assignments = {app::parse_assignment("compass.basis=sto-3g"),
                            app::parse_assignment("xuanyuan.heff=3")};
  return {molecule, value, two_values};
}

// A value and its keyword are two lines, a new module has two more, and the first one an empty line
// before it; a header is one line, which may have been several.
TEST(SetKeepsLayout, OfPublishedInputs) {
  const auto files = published_inputs();
  if (files.empty()) {
    GTEST_SKIP() << "there are no published inputs in " << KELP_CORPUS_DIR;
  }
  const auto schema = input::bdf::InputSchema::from_file(KELP_SCHEMA_FILE);
  for (const app::Edit& edit : some_edits()) {
    std::size_t refused = 0;
    for (const auto& file : files) {
      const app::CheckedInput before(utf8(file), file_bytes(file), schema);
      const app::Rewrite rewrite = app::edit_input(before, edit);
      if (!rewrite.reasons.empty()) {
        ++refused;
        continue;
      }
      const Counts counts = count_changes(before.source.text(), rewrite.text);
      EXPECT_LE(counts.removed, 4U) << file;
      EXPECT_LE(counts.added, 9U) << file;
    }
    EXPECT_LE(refused * 20, files.size());
  }
}

}  // namespace
}  // namespace kelp::test
