// Where the laid out text goes, and what stays untouched.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "support/program.hpp"

namespace kelp::test {
namespace {

namespace stdfs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::UnorderedElementsAre;

constexpr const char* rough = "$scf\nrhf\n$end\n";
constexpr const char* neat = "$scf\n  rhf\n$end\n";

TEST(FormatInPlace, ReplacesTheFile) {
  Program program;
  program.write("a.inp", rough);
  const Outcome outcome = program.run({"format", "-i", "a.inp"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out + outcome.err, "");
  EXPECT_EQ(program.read("a.inp"), neat);
  EXPECT_THAT(names_in(program.folder()), UnorderedElementsAre("a.inp"));
}

TEST(FormatInPlace, KeepsThePermissions) {
  Program program;
  program.write("a.inp", rough);
  const auto wanted = stdfs::perms::owner_read | stdfs::perms::owner_write |
                      stdfs::perms::group_read | stdfs::perms::owner_exec;
  stdfs::permissions(program.folder() / "a.inp", wanted);
  const auto before = stdfs::status(program.folder() / "a.inp").permissions();
  EXPECT_EQ(program.run({"format", "-i", "a.inp"}).status, 0);
  EXPECT_EQ(program.read("a.inp"), neat);
  EXPECT_EQ(stdfs::status(program.folder() / "a.inp").permissions(), before);
}

TEST(FormatInPlace, DoesNotTouchAFileThatNeedsNoChange) {
  Program program;
  program.write("a.inp", neat);
  const stdfs::path file = program.folder() / "a.inp";
  stdfs::last_write_time(file, stdfs::file_time_type::clock::now() - std::chrono::hours(24));
  const auto before = stdfs::last_write_time(file);
  EXPECT_EQ(program.run({"format", "-i", "a.inp"}).status, 0);
  EXPECT_EQ(stdfs::last_write_time(file), before);
}

TEST(FormatInPlace, WalksAFolder) {
  Program program;
  program.write("jobs/a.inp", rough);
  program.write("jobs/deep/b.BDF", rough);
  program.write("jobs/notes.txt", rough);
  EXPECT_EQ(program.run({"format", "-i", "jobs"}).status, 0);
  EXPECT_EQ(program.read("jobs/a.inp"), neat);
  EXPECT_EQ(program.read("jobs/deep/b.BDF"), neat);
  EXPECT_EQ(program.read("jobs/notes.txt"), rough);
}

TEST(FormatInPlace, RefusesStandardInput) {
  Program program;
  const Outcome outcome = program.run({"format", "-i", "-"}, rough);
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "kelp-bdf: standard input cannot be changed in place\n");
}

TEST(Format, IsAFilter) {
  Program program;
  const Outcome outcome = program.run({"format", "-"}, rough);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, neat);
}

TEST(Format, PrintsAnInputThatNeedsNoChange) {
  Program program;
  EXPECT_EQ(program.run({"format", "-"}, neat).out, neat);
}

TEST(Format, StandardInputHasTheNameThatItIsGiven) {
  Program program;
  const Outcome outcome =
      program.run({"format", "--stdin-filename", "mine.inp", "--diff", "-"}, rough);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.out, HasSubstr("--- a/mine.inp\n+++ b/mine.inp\n"));
}

TEST(FormatCheck, NamesTheFilesThatDiffer) {
  Program program;
  program.write("a.inp", rough);
  program.write("b.inp", neat);
  const Outcome outcome = program.run({"format", "--check", "a.inp", "b.inp"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "a.inp\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(program.read("a.inp"), rough);
  EXPECT_EQ(program.run({"format", "--check", "b.inp"}).status, 0);
}

TEST(FormatCheck, SaysNothingWhenQuiet) {
  Program program;
  program.write("a.inp", rough);
  const Outcome outcome = program.run({"format", "--check", "-q", "a.inp"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
}

TEST(FormatDiff, ShowsTheDifferenceAndLeavesTheFile) {
  Program program;
  program.write("a.inp", rough);
  const Outcome outcome = program.run({"format", "--diff", "a.inp"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "--- a/a.inp\n+++ b/a.inp\n@@ -1,3 +1,3 @@\n $scf\n-rhf\n+  rhf\n $end\n");
  EXPECT_EQ(program.read("a.inp"), rough);
  EXPECT_EQ(program.run({"format", "--check", "--diff", "a.inp"}).status, 1);
  EXPECT_EQ(program.run({"format", "--diff", "-"}, neat).out, "");
}

TEST(Format, NamesTheFilesThatItCannotReadAndGoesOn) {
  Program program;
  program.write("a.inp", rough);
  stdfs::create_directory(program.folder() / "empty");
  const Outcome outcome = program.run({"format", "-i", "missing.inp", "empty", "a.inp"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("missing.inp"));
  EXPECT_THAT(outcome.err, HasSubstr("no *.inp or *.bdf file in 'empty'"));
  EXPECT_EQ(program.read("a.inp"), neat);
}

TEST(Format, OptionsThatContradictEachOtherAreRefused) {
  for (const char* const option : {"--check", "--diff"}) {
    Program program;
    program.write("a.inp", rough);
    const Outcome outcome = program.run({"format", "-i", option, "a.inp"});
    EXPECT_EQ(outcome.status, 2) << option;
    EXPECT_THAT(outcome.err, Not(testing::IsEmpty())) << option;
    EXPECT_EQ(program.read("a.inp"), rough) << option;
  }
}

#ifndef _WIN32
TEST(FormatInPlace, AWriteProtectedFileIsNamedAndLeft) {
  Program program;
  program.write("a.inp", rough);
  const Outcome outcome = program.run_in_shell(
      "chmod 444 a.inp; [ -w a.inp ] && exit 99; \"$KELP_BDF\" format -i a.inp");
  if (outcome.status == 99) {
    GTEST_SKIP() << "this user may write everything";
  }
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("cannot write 'a.inp': "));
  EXPECT_EQ(program.read("a.inp"), rough);
}

TEST(FormatInPlace, FollowsALink) {
  Program program;
  program.write("real.inp", rough);
  stdfs::create_symlink("real.inp", program.folder() / "link.inp");
  EXPECT_EQ(program.run({"format", "-i", "link.inp"}).status, 0);
  EXPECT_TRUE(stdfs::is_symlink(program.folder() / "link.inp"));
  EXPECT_EQ(program.read("real.inp"), neat);
}

TEST(FormatInPlace, APipeIsNoFileToWriteTo) {
  Program program;
  const Outcome outcome = program.run_in_shell(
      "mkfifo pipe; (printf '$scf\\nrhf\\n$end\\n' > pipe &); \"$KELP_BDF\" format -i pipe");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("cannot write 'pipe': it is no regular file"));
}

TEST(Format, AReaderThatGoesAwayIsNoError) {
  Program program;
  std::string text;
  for (int i = 0; i < 20000; ++i) {
    text += "$scf\n  rhf\n$end\n";
  }
  program.write("a.inp", text);
  const Outcome outcome = program.run_in_shell(
      "{ \"$KELP_BDF\" format a.inp; echo $? > status; } | head -n 1; cat status >&2");
  EXPECT_EQ(outcome.out, "$scf\n");
  EXPECT_THAT(outcome.err, Not(HasSubstr("kelp-bdf")));
}
#endif

}  // namespace
}  // namespace kelp::test
