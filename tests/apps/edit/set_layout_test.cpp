// A change replaces the lines that it concerns; all others stay as they are, byte for byte.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "kelp/core/diff.hpp"
#include "kelp/input/bdf/rewrite.hpp"
#include "set_row.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"
#include "support/program.hpp"
#include "support/published_inputs.hpp"

namespace kelp::test {
namespace {

const SetRow rows[] = {
    {"case, indentation, comments and empty lines of a module",
     {"scf.charge=1"},
     "$SCF\nRHF # restricted\n\nCharge   # total\n\t0\n* a line of its own\nspinmulti\n "
     "1\n$END\n\n",
     "$SCF\nRHF # restricted\n\nCharge   # total\n\t1\n* a line of its own\nspinmulti\n "
     "1\n$END\n\n"},
    {"a new entry stands behind the last one",
     {"scf.charge=1"},
     "$SCF\nRHF # restricted\n\n$end\n",
     "$SCF\nRHF # restricted\ncharge\n  1\n\n$end\n"},
    {"a value behind another keyword",
     {"scf.spinmulti=1"},
     "$scf\nCharge 5\n0\n$end\n",
     "$scf\nCharge 5\n0\nspinmulti\n1\n$end\n"},
    {"line ends of Windows",
     {"scf.charge=1", "scf.spinmulti=2"},
     "$scf\r\ncharge\r\n0\r\nrhf\r\n$end\r\n",
     "$scf\r\ncharge\r\n1\r\nrhf\r\nspinmulti\r\n2\r\n$end\r\n",
     "[electrons.restricted_with_open_shell]"},
    {"a last line without an end",
     {"scf.charge=1"},
     "$scf\ncharge\n0\n$end",
     "$scf\ncharge\n1\n$end"},
    {"a module added before the one that needs it",
     {"xuanyuan.heff=3"},
     "$scf\ncharge\n0\n$end",
     "$xuanyuan\nheff\n3\n$end\n\n$scf\ncharge\n0\n$end",
     "[sequence.compass_missing]"},
    {"script line, comments, header and geometry",
     {"scf.vshift=0.2"},
     "#! job\n\n# about\nHF/STO-3G\n  charge = 0 # neutral\n\ngeometry\nHe   0 0 0 # centre\n"
     "end geometry\n\n$scf\nRHF\n$end\n",
     "#! job\n\n# about\nHF/STO-3G\n  charge = 0 # neutral\n\ngeometry\nHe   0 0 0 # centre\n"
     "end geometry\n\n$scf\nRHF\nvshift\n  0.2\n$end\n"},
    {"the other lines and words of a header",
     {"easy.charge=1"},
     "#! job\nHF/STO-3G\n  charge = 0\n\ngeometry\nHe   0 0 0 # centre\nend geometry\n",
     "#! job\nHF/STO-3G\n  charge = 1\n\ngeometry\nHe   0 0 0 # centre\nend geometry\n"},
    {"a module that is taken out",
     {"--unset", "scf#1"},
     "$scf\n  rhf # r\n$end\n# between\n$scf\n uhf # u\n charge\n 0\n$end\n",
     "# between\n$scf\n uhf # u\n charge\n 0\n$end\n"},
    {"an entry that is taken out, with its comment",
     {"--unset", "scf.charge"},
     "$scf\n rhf # r\n charge # c\n 0\n uhf # u\n$end\n",
     "$scf\n rhf # r\n uhf # u\n$end\n"},
    {"two values, of which one becomes what the other was",
     {"scf.charge=1", "scf.spinmulti=2"},
     "$scf\ncharge\n 0\nSpinMulti\n 1\nrhf\n$end\n",
     "$scf\ncharge\n 1\nSpinMulti\n 2\nrhf\n$end\n",
     "[electrons.restricted_with_open_shell]"},
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

// As the program reads it, what follows the keyword on its line is the value.
TEST(SetKeepsLayout, OfAValueBehindItsKeyword) {
  expect_set({"a value behind its keyword",
              {"scf.charge=1"},
              "$scf\nrhf # r\ncharge 5 # c\nspinmulti\n 1\n$end\n",
              "$scf\nrhf # r\ncharge 1 # c\nspinmulti\n 1\n$end\n"});
  expect_set({"one that goes beside one that changes",
              {"scf.spinmulti=2", "--unset", "scf.charge"},
              "$SCF\ncharge 5\nspinmulti 3\nMOLDEN # m\n$END\n",
              "$SCF\nspinmulti 2\nMOLDEN # m\n$END\n"});
}

struct Counts {
  std::size_t removed = 0;
  std::size_t added = 0;
};

Counts count_changes(std::string_view before, std::string_view after) {
  Counts counts;
  for (const core::diff::Change& change : core::diff::find_changes(
           core::diff::lines_with_ends(before), core::diff::lines_with_ends(after))) {
    counts.removed += change.old_end - change.old_begin;
    counts.added += change.new_end - change.new_begin;
  }
  return counts;
}

input::bdf::Assignment assigned(std::string_view text) {
  return input::bdf::parse_assignment(text).assignment.value();
}

std::vector<input::bdf::Edit> some_edits() {
  input::bdf::Edit molecule;
  molecule.charge = 1;
  molecule.multiplicity = 2;
  input::bdf::Edit value;
  value.assignments = {assigned("scf.maxiter=77")};
  input::bdf::Edit two_values;
  two_values.assignments = {assigned("compass.basis=sto-3g"), assigned("xuanyuan.heff=3")};
  return {molecule, value, two_values};
}

// A value and its keyword are two lines, a new module has two more and an empty line on one side
// or, in front of all others, on both.
TEST(SetKeepsLayout, OfPublishedInputs) {
  const auto files = published_inputs();
  if (files.empty()) {
    GTEST_SKIP() << "there are no published inputs in " << test::corpus_folder();
  }
  const auto schema = input::bdf::InputSchema::from_file(test::shipped_schema_file());
  for (const input::bdf::Edit& edit : some_edits()) {
    std::size_t refused = 0;
    for (const auto& file : files) {
      const input::bdf::ParsedInput before(file_bytes(file), schema);
      const input::bdf::Rewrite rewrite = edit_input(before, edit);
      if (!rewrite.error.empty() || !rewrite.losses.empty()) {
        ++refused;
        continue;
      }
      const Counts counts = count_changes(before.source().text(), rewrite.text);
      // Charge and multiplicity are stated in every module that makes orbitals.
      const std::size_t count = count_modules(before.data(), schema, "scf");
      EXPECT_LE(counts.removed, 4 * std::max<std::size_t>(count, 1)) << file;
      EXPECT_LE(counts.added, 12 + 4 * count) << file;
    }
    EXPECT_LE(refused * 15, files.size());
  }
}

}  // namespace
}  // namespace kelp::test
