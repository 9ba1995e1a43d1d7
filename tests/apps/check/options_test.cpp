// The options of `check`, and its exit status.

#include <string>

#include "check/check_fixture.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

using Options = Check;

const std::string unknown_names =
    "$scff\n$end\n"
    "$scf\nocupied\n$end\n"
    "$bdfopt\nneb-block\ncrud\nend neb\n$end\n";

TEST_F(Options, UnknownNamesAreWarningsUnlessToldOtherwise) {
  const Outcome plain = check(unknown_names);
  EXPECT_THAT(plain.out, HasSubstr("\n3 warnings in 1 file (1 checked)\n"));
  EXPECT_EQ(plain.status, 0);
  EXPECT_EQ(check(unknown_names, {"--unknown", "warn"}).out, plain.out);
}

TEST_F(Options, UnknownNamesCanBeErrors) {
  const Outcome outcome = check(unknown_names, {"--unknown=error"});
  EXPECT_THAT(outcome.out, HasSubstr("error[bdf.unknown_module]: Unknown BDF module '$scff'.\n"));
  EXPECT_THAT(outcome.out,
              HasSubstr("error[bdf.unknown_entry]: Unknown BDF module entry 'scf.ocupied'.\n"));
  EXPECT_THAT(outcome.out, HasSubstr("error[bdf.unknown_nested_entry]: Unknown BDF nested entry "
                                     "'bdfopt.neb-block.crud'.\n"));
  EXPECT_THAT(outcome.out, HasSubstr("\n3 errors in 1 file (1 checked)\n"));
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(Options, UnknownNamesCanBePassedOver) {
  const Outcome outcome = check(unknown_names, {"--unknown=ignore", "--strict"});
  EXPECT_EQ(outcome.out + outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(check(error_input, {"--unknown=ignore"}).status, 1);
}

TEST_F(Options, StrictMakesWarningsFailWithoutChangingThem) {
  const Outcome plain = check(warning_input);
  const Outcome strict = check(warning_input, {"--strict"});
  EXPECT_EQ(plain.status, 0);
  EXPECT_EQ(strict.status, 1);
  EXPECT_EQ(strict.out, plain.out);
  EXPECT_EQ(check(good_input, {"--strict"}).status, 0);
}

TEST_F(Options, TheHighestStatusOfAllFilesWins) {
  program.write("good.inp", good_input);
  program.write("warning.inp", warning_input);
  program.write("error.inp", error_input);
  EXPECT_EQ(check_named({}, {"good.inp", "warning.inp"}).status, 0);
  EXPECT_EQ(check_named({}, {"error.inp", "good.inp"}).status, 1);
  EXPECT_EQ(check_named({}, {"good.inp", "error.inp"}).status, 1);
  EXPECT_EQ(check_named({}, {"missing.inp", "error.inp"}).status, 2);
  EXPECT_EQ(check_named({}, {"error.inp", "missing.inp", "good.inp"}).status, 2);
  EXPECT_EQ(check_named({"-q"}, {"error.inp", "missing.inp"}).status, 2);
}

TEST_F(Options, RemarksAndBlankLinesInAModuleAreNoFindings) {
  const Outcome outcome = check(
      "$scf\n# a remark\n\n  * another\n \t \nrhf\n   # indented\n$end\n"
      "$bdfopt\nneb-block\n # here\n * and here\n\ncrude\nend neb\n$end\n",
      {"--strict"});
  EXPECT_EQ(outcome.out + outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(Options, AnAliasIsOfferedForASlipInIt) {
  EXPECT_THAT(check("$scf\nocupied\n$end\n").out,
              HasSubstr("= help: a similar entry exists: 'occupied'\n"));
  EXPECT_THAT(check("$scf\nocupy\n$end\n").out,
              HasSubstr("= help: a similar entry exists: 'occupy'\n"));
}

TEST_F(Options, SeveralNamesAreOfferedWhenTheyAreEquallyNear) {
  EXPECT_THAT(check("$scf\nrzs\n$end\n").out,
              HasSubstr("= help: similar entries exist: 'rhs' or 'rks'\n"));
}

TEST_F(Options, ASlipIsALetterTooManyTooFewWrongOrSwapped) {
  for (const char* const slip : {"spinnmulti", "spinmlti", "spinmolti", "spinmulit", "SPINMULIT"}) {
    EXPECT_THAT(check("$scf\n" + std::string(slip) + "\n$end\n").out,
                HasSubstr("= help: a similar entry exists: 'spinmulti'\n"))
        << slip;
  }
}

TEST_F(Options, WhatIsFarFromAllNamesIsNoSlip) {
  for (const char* const word : {"wavelength", "q", "zz"}) {
    EXPECT_THAT(check("$scf\n" + std::string(word) + "\n$end\n").out, Not(HasSubstr("help")))
        << word;
  }
}

TEST_F(Options, ColoursAreThereOnlyWhenAskedForOutsideATerminal) {
  const Outcome plain = check(error_input);
  EXPECT_THAT(plain.out, Not(HasSubstr("\x1B")));
  EXPECT_EQ(check(error_input, {"--color=auto"}).out, plain.out);
  EXPECT_EQ(check(error_input, {"--color=never"}).out, plain.out);
  program.set_variable("NO_COLOR", "1");
  EXPECT_EQ(check(error_input).out, plain.out);
  EXPECT_THAT(check(error_input, {"--color=always"}).out, HasSubstr("\x1B["));
}

TEST_F(Options, ColoursChangeNothingElse) {
  const std::string plain = check(unknown_names + error_input).out;
  const std::string coloured = check(unknown_names + error_input, {"--color=always"}).out;
  std::string without;
  for (std::size_t i = 0; i < coloured.size(); ++i) {
    if (coloured[i] == '\x1B') {
      i = coloured.find('m', i);
    } else {
      without += coloured[i];
    }
  }
  EXPECT_EQ(without, plain);
  EXPECT_NE(coloured, plain);
}

TEST_F(Options, MayStandBeforeAndAfterTheCommandAndTheFiles) {
  program.write("a.inp", warning_input);
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"-q", "check", "--strict", "a.inp"},
        {"check", "-q", "a.inp", "--strict"},
        {"check", "a.inp", "--strict", "--quiet"},
        {"check", "--strict", "-q", "--", "a.inp"}}) {
    const Outcome outcome = program.run(arguments);
    EXPECT_EQ(outcome.out + outcome.err, "");
    EXPECT_EQ(outcome.status, 1);
  }
}

TEST_F(Options, GivenTwiceTheLastOneCounts) {
  EXPECT_EQ(check(warning_input, {"--unknown=ignore", "--unknown=error"}).status, 1);
  EXPECT_EQ(check(warning_input, {"--unknown=error", "--unknown=ignore"}).status, 0);
  EXPECT_THAT(check(warning_input, {"--schema=missing", "--schema=../schema.yaml", "--color=always",
                                    "--color=never", "--format=concise", "--format=human"})
                  .out,
              StartsWith("warning[bdf.unknown_entry]"));
}

}  // namespace
}  // namespace kelp::test
