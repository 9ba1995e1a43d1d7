// What differs in meaning between two inputs, for people and as JSON. What makes a difference is
// the library's matter.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>

#include "support/program.hpp"

namespace kelp::test {
namespace {

using Json = nlohmann::json;
using ::testing::EndsWith;
using ::testing::HasSubstr;

class Diff : public ::testing::Test {
 protected:
  Outcome diff(std::string_view before, std::string_view after,
               std::vector<std::string> options = {}) {
    program.write("a.inp", before);
    program.write("b.inp", after);
    options.insert(options.begin(), "diff");
    options.insert(options.end(), {"a.inp", "b.inp"});
    return program.run(std::move(options));
  }

  Program program;
};

TEST_F(Diff, IsSilentWhereOnlyTheLayoutDiffers) {
  const Outcome outcome =
      diff("$scf\nrhf\ncharge\n 1\n$end\n", "$SCF\n charge 1 # so\n RHF\n$END\n");
  EXPECT_EQ(outcome.out + outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(Diff, HasALineForEachDifference) {
  const Outcome outcome = diff("$scf\nrhf\ncharge\n 0\n$end\n$resp\n$end\n%ls\n",
                               "$scf\ncharge\n 1\nspinmulti\n 2\n$end\n%ls\n$tddft\n$end\n");
  EXPECT_EQ(outcome.out,
            "a.inp -> b.inp\n"
            "  removed  scf.rhf  (line 2)\n"
            "  changed  scf.charge: 0 -> 1  (lines 3 and 2)\n"
            "  added    scf.spinmulti: 2  (line 4)\n"
            "  removed  $resp  (line 6)\n"
            "  added    $tddft  (line 8)\n"
            "5 differences\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(Diff, ShowsValuesOfSeveralLinesBelow) {
  const Outcome outcome =
      diff("$bdfopt\nconstrain\n 1\n 1 2\n$end\n", "$bdfopt\nconstrain\n 2\n 1 2\n 1 3\n$end\n");
  EXPECT_EQ(outcome.out,
            "a.inp -> b.inp\n"
            "  changed  bdfopt.constrain  (lines 2 and 2)\n"
            "           - 1\n"
            "           - 1 2\n"
            "           + 2\n"
            "           + 1 2\n"
            "           + 1 3\n"
            "1 difference\n");
}

std::string molecule(double shift) {
  std::string text = "hf/sto-3g\nGeometry\n";
  for (int i = 0; i < 12; ++i) {
    text += "He 0 0 " + std::to_string(3 * i + shift) + '\n';
  }
  return text + "End Geometry\n";
}

TEST_F(Diff, ShowsTenAtomsAndCountsTheRest) {
  const Outcome outcome = diff(molecule(0), molecule(0.5));
  EXPECT_THAT(outcome.out, HasSubstr("  changed  geometry, atom 10: He 0 0 27.000000 -> He 0 0 "
                                     "27.500000  (lines 12 and 12)\n"
                                     "           geometry: ... and 2 more atoms\n"
                                     "12 differences\n"));
  EXPECT_EQ(Json::parse(diff(molecule(0), molecule(0.5), {"--json"}).out)["differences"].size(),
            12U);
}

TEST_F(Diff, JsonHasBothSides) {
  const Outcome outcome = diff("$scf\nspin\n 1\n$end\n", "$scf\n$end\n", {"--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(Json::parse(outcome.out), Json::parse(R"({
    "version": 1, "before": "a.inp", "after": "b.inp", "differences": [
      {"kind": "removed", "thing": "entry", "path": "scf.spinmulti", "after": null, "before": {
        "path": "scf.spinmulti", "lines": ["1"], "atom": null, "line": 2, "range": {
          "start": {"line": 2, "column": 1, "byte": 5},
          "end": {"line": 4, "column": 1, "byte": 13}}}}]})"));
  const Outcome equal = diff("$scf\n$end\n", "$scf\n$end\n", {"--json"});
  EXPECT_EQ(equal.status, 0);
  EXPECT_EQ(Json::parse(equal.out)["differences"], Json::array());
}

TEST_F(Diff, QuietOnlyTheStatusTells) {
  const Outcome outcome = diff("$scf\n$end\n", "", {"--quiet"});
  EXPECT_EQ(outcome.out + outcome.err, "");
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(Diff, OneOfTheTwoMayBeStandardInput) {
  program.write("a.inp", "$scf\ncharge\n1\n$end\n");
  const Outcome outcome =
      program.run({"diff", "a.inp", "-", "--stdin-filename", "new"}, "$scf\ncharge\n2\n$end\n");
  EXPECT_THAT(outcome.out, ::testing::StartsWith("a.inp -> new\n  changed  scf.charge: 1 -> 2"));
  const Outcome both = program.run({"diff", "-", "-"}, "");
  EXPECT_EQ(both.status, 2);
  EXPECT_EQ(both.err, "kelp-bdf: standard input can be only one of the two inputs\n");
}

TEST_F(Diff, WhatCannotBeReadIsAFailure) {
  program.write("a.inp", "$scf\n$end\n");
  const Outcome missing = program.run({"diff", "a.inp", "missing.inp"});
  EXPECT_EQ(missing.status, 2);
  EXPECT_EQ(missing.out, "");
  EXPECT_THAT(missing.err, HasSubstr("'missing.inp'"));
  const std::string utf16("$\0s\0c\0f\0\n\0$\0e\0n\0d\0\n\0", 20);
  const Outcome unreadable = diff("$scf\n$end\n", utf16);
  EXPECT_EQ(unreadable.status, 2);
  EXPECT_EQ(unreadable.out, "");
  EXPECT_EQ(program.run({"diff", "a.inp"}).status, 2);
}

TEST_F(Diff, ColoursAreThereOnlyWhenAskedFor) {
  EXPECT_THAT(diff("$scf\n$end\n", "").out, Not(HasSubstr("\x1B")));
  EXPECT_THAT(diff("$scf\n$end\n", "", {"--color=always"}).out, HasSubstr("\x1B[31mremoved"));
}

TEST_F(Diff, ShowsNothingThatATerminalWouldObey) {
  EXPECT_THAT(diff("", "$scf\ntitle\n \x1B[31m\n$end\n").out, Not(HasSubstr("\x1B")));
  EXPECT_THAT(diff("$compass\ntitle\n a\n$end\n", "$compass\ntitle\n \x1B[31m\n$end\n").out,
              HasSubstr("a -> \\x1b[31m"));
}

}  // namespace
}  // namespace kelp::test
