// Fixes that are safe, in the files themselves.

#include "check_fixture.hpp"
#include "commands/fixes.hpp"
#include "kelp/input/bdf/diagnostics.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;

class CheckFix : public Check {};

const std::string mendable = "$scf * one\n rhf\n$end\n$scf * two\n$end\n";
const std::string mended = "$scf\n* one\n rhf\n$end\n$scf\n* two\n$end\n";

TEST_F(CheckFix, MendsAndSaysHowMuch) {
  const Outcome outcome = check(mendable, {"--fix"});
  EXPECT_EQ(program.read("a.inp"), mended);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "2 findings fixed\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(CheckFix, ReportsWhatRemainsWhereItStandsNow) {
  const std::string text = "$scf * one\ncharge\n one\n$end\n";
  const Outcome outcome = check(text, {"--fix", "--format", "concise"});
  EXPECT_EQ(program.read("a.inp"), "$scf\n* one\ncharge\n one\n$end\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out,
            "a.inp:4:2: error: BDF module entry 'scf.charge' has an invalid value 'one'. "
            "[bdf.invalid_module_value]\n");
  EXPECT_THAT(check(text, {"--fix"}).out,
              HasSubstr("\n1 finding fixed; 1 error in 1 file (1 checked)\n"));
}

TEST_F(CheckFix, LeavesWhatHasSeveralRemedies) {
  const std::string text = "$scf try\nrhf\n$end\n";
  const Outcome outcome = check(text, {"--fix"});
  EXPECT_EQ(program.read("a.inp"), text);
  EXPECT_EQ(outcome.out, check(text).out);
}

TEST_F(CheckFix, WithDiffOnlyShowsWhatWouldChange) {
  const Outcome outcome = check(mendable + error_input, {"--fix", "--diff"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(program.read("a.inp"), mendable + error_input);
  EXPECT_EQ(outcome.out,
            "--- a/a.inp\n+++ b/a.inp\n@@ -1,7 +1,9 @@\n-$scf * one\n+$scf\n+* one\n  rhf\n $end\n"
            "-$scf * two\n+$scf\n+* two\n $end\n $scf\n charge\n");
  EXPECT_EQ(check(mendable, {"--fix", "--diff"}).status, 0);
}

TEST_F(CheckFix, OfStandardInputIsADifferenceOrNothing) {
  const Outcome refused = program.run({"check", "--fix", "-"}, mendable);
  EXPECT_EQ(refused.status, 2);
  EXPECT_EQ(refused.err, "kelp-bdf: standard input cannot be changed in place\n");
  EXPECT_EQ(refused.out, "");
  EXPECT_THAT(program.run({"check", "--fix", "--diff", "-"}, mendable).out,
              HasSubstr("--- a/<stdin>\n"));
}

TEST_F(CheckFix, DiffAloneIsRefused) {
  const Outcome outcome = check(mendable, {"--diff"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("--diff requires --fix"));
}

TEST_F(CheckFix, OfOneFileDoesNotStopAtAnother) {
  program.write("a.inp", mendable);
  program.write("b.inp", mendable);
  const Outcome outcome = check_named({"--fix", "-q"}, {"a.inp", "missing.inp", "b.inp"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(program.read("a.inp"), mended);
  EXPECT_EQ(program.read("b.inp"), mended);
}

input::bdf::Diagnostic fixed_by(std::vector<input::bdf::TextEdit> edits, bool is_safe = true) {
  input::bdf::Diagnostic diagnostic;
  diagnostic.fixes.push_back({"another", {{{0, 9}, "?"}}, false});
  diagnostic.fixes.push_back({"this", std::move(edits), is_safe});
  return diagnostic;
}

TEST(SafeFixes, AreAppliedUnlessTheyTouchAnEarlierOne) {
  app::SafeFixes fixes;
  fixes.add(fixed_by({{{4, 6}, "E"}}));
  fixes.add(fixed_by({{{0, 1}, "A"}, {{8, 8}, "-"}}));
  fixes.add(fixed_by({{{2, 3}, "x"}}, false));
  EXPECT_EQ(fixes.count(), 2U);
  EXPECT_EQ(fixes.apply_to("abcdefghi"), "AbcdEgh-i");
  const std::vector<input::bdf::TextRange> touching = {{3, 5}, {5, 6}, {4, 4},
                                                       {5, 5}, {8, 8}, {2, 9}};
  for (const input::bdf::TextRange& range : touching) {
    fixes.add(fixed_by({{{2, 3}, "x"}, {range, "x"}}));
    EXPECT_EQ(fixes.count(), 2U) << range.begin << ' ' << range.end;
  }
  fixes.add(fixed_by({{{6, 7}, "G"}}));
  EXPECT_EQ(fixes.apply_to("abcdefghi"), "AbcdEGh-i");
}

}  // namespace
}  // namespace kelp::test
