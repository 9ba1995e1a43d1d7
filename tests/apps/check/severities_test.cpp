// How grave findings are, what options and comments make of that, and how much is printed.

#include <algorithm>
#include <string>

#include "check/check_fixture.hpp"
#include "support/folders.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

using Severities = Check;

// One finding of each severity.
const std::string of_each =
    "$scf\n"
    "# kelp-bdf: allow bdf.empty_input\n"
    "ocupied\n"
    "charge\n"
    " one\n"
    "$end\n";

const std::string note_input = "$scf\n# kelp-bdf: allow bdf.empty_input\nrhf\n$end\n";

TEST_F(Severities, CanBeChangedForACode) {
  EXPECT_EQ(check(warning_input, {"--deny", "bdf.unknown_entry"}).status, 1);
  EXPECT_THAT(check(warning_input, {"--deny", "bdf.unknown_entry"}).out,
              StartsWith("error[bdf.unknown_entry]: "));
  EXPECT_EQ(check(error_input, {"--warn=bdf.invalid_module_value"}).status, 0);
  EXPECT_THAT(check(error_input, {"--warn=bdf.invalid_module_value"}).out,
              StartsWith("warning[bdf.invalid_module_value]: "));
  const Outcome outcome = check(error_input, {"--allow", "BDF.Invalid_Module_Value", "--strict"});
  EXPECT_EQ(outcome.out + outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(Severities, CanBeChangedForSeveralCodes) {
  const std::string both = "bdf.unknown_entry,bdf.invalid_module_value,comment.*";
  EXPECT_EQ(check(of_each, {"--allow", both}).out, "");
  EXPECT_EQ(check(of_each, {"--allow=bdf.*", "--allow", "comment.*"}).out, "");
  EXPECT_THAT(check(of_each, {"--deny=*"}).out, HasSubstr("\n3 errors in 1 file (1 checked)\n"));
}

TEST_F(Severities, AreThoseOfTheLastOptionAboutACode) {
  EXPECT_EQ(check(warning_input, {"--deny=bdf.*", "--allow=bdf.unknown_*"}).out, "");
  EXPECT_EQ(check(warning_input, {"--allow=bdf.unknown_*", "--deny=bdf.*"}).status, 1);
  EXPECT_EQ(check(warning_input, {"--deny=bdf.*", "--allow=bdf.unknown_*", "--deny=*"}).status, 1);
  EXPECT_EQ(check(warning_input, {"--deny=*", "--warn=bdf.unknown_entry"}).status, 0);
}

TEST_F(Severities, OfWhatIsAllowedDoNotMatterToTheFixes) {
  EXPECT_EQ(check(warning_input, {"--fix", "--allow=bdf.unknown_entry"}).out, "");
  EXPECT_EQ(program.read("a.inp"), warning_input);
}

TEST_F(Severities, CommentsOfTheInputAllowFindings) {
  const std::string allowed = "# kelp-bdf: allow-file bdf.*\n" + error_input;
  const Outcome outcome = check(allowed, {"--strict", "--deny=bdf.*"});
  EXPECT_EQ(outcome.out + outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(Severities, OfNoteNeverFails) {
  const Outcome outcome = check(note_input, {"--strict"});
  EXPECT_EQ(outcome.out,
            "note[comment.unused_allowance]: There is no finding that this allows.\n"
            " --> a.inp:2:1\n"
            "  |\n"
            "2 | # kelp-bdf: allow bdf.empty_input\n"
            "  | ^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^\n"
            "\n"
            "1 note in 1 file (1 checked)\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(check(note_input, {"-q", "--strict"}).out, "");
  EXPECT_EQ(check(note_input, {"--format=concise"}).out,
            "a.inp:2:1: note: There is no finding that this allows. [comment.unused_allowance]\n");
  EXPECT_EQ(check(note_input, {"--deny=comment.*"}).status, 1);
}

TEST_F(Severities, EachHaveAColourAndACount) {
  EXPECT_THAT(check(of_each).out,
              HasSubstr("\n1 error, 1 warning and 1 note in 1 file (1 checked)\n"));
  const std::string coloured = check(of_each, {"--color=always"}).out;
  EXPECT_THAT(coloured, HasSubstr("\x1B[31merror[bdf.invalid_module_value]"));
  EXPECT_THAT(coloured, HasSubstr("\x1B[33mwarning[bdf.unknown_entry]"));
  EXPECT_THAT(coloured, HasSubstr("\x1B[36mnote[comment.unused_allowance]"));
}

TEST_F(Severities, NoMoreFindingsArePrintedThanWanted) {
  const std::string last =
      "\n... and 2 more\n\n1 error, 1 warning and 1 note in 1 file (1 checked)\n";
  const Outcome one = check(of_each, {"--max-findings", "1"});
  EXPECT_THAT(one.out, StartsWith("warning[bdf.unknown_entry]"));
  EXPECT_THAT(one.out, HasSubstr(last));
  EXPECT_THAT(one.out, Not(HasSubstr("error[")));
  EXPECT_EQ(one.status, 1);
  EXPECT_EQ(check(of_each, {"--max-findings=3"}).out, check(of_each).out);
  EXPECT_EQ(check(of_each, {"--max-findings=0"}).out,
            "... and 3 more\n\n1 error, 1 warning and 1 note in 1 file (1 checked)\n");
  EXPECT_EQ(check(of_each, {"-q", "--max-findings=0"}).out, "");
}

TEST_F(Severities, NoMoreFindingsOfAllFilesArePrintedThanWanted) {
  program.write("a.inp", warning_input);
  program.write("b.inp", error_input);
  const Outcome outcome = check_named({"--max-findings=1", "--format=concise"}, {"a.inp", "b.inp"});
  EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 1) << outcome.out;
  EXPECT_EQ(outcome.err, "kelp-bdf: ... and 1 more\n");
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(Severities, AreListedWithTheCodes) {
  const Outcome outcome = program.run({"check", "--list-codes"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(outcome.out, testing::ContainsRegex(
                               "bdf.unknown_entry +warning  The module has no entry of that name"));
  EXPECT_THAT(outcome.out, testing::ContainsRegex("\ntext.encoding +error    "));
  EXPECT_THAT(outcome.out, testing::ContainsRegex("\ncomment.unused_allowance +note     "));
  EXPECT_THAT(outcome.out, Not(HasSubstr("schema.")));
}

TEST_F(Severities, AreAsTheManualSays) {
  const std::string page = file_bytes(test::source_folder() / "docs/check.md");
  const std::string fence = "```text\n";
  const std::size_t begin = page.find(fence) + fence.size();
  const std::string example = page.substr(begin, page.find("```", begin) - begin);
  ASSERT_THAT(example, HasSubstr("# kelp-bdf: allow"));
  EXPECT_EQ(check(example).out, "");
  std::string without;
  for (std::size_t at = 0; at < example.size();) {
    const std::size_t end = example.find('\n', at);
    const std::string line = example.substr(at, end - at);
    without += line.substr(0, line.find('#')) + "\n";
    at = end + 1;
  }
  EXPECT_THAT(check(without).out, HasSubstr("\n1 error and 3 warnings in 1 file (1 checked)\n"));
}

}  // namespace
}  // namespace kelp::test
