// Where a changed input goes, and what stays untouched.

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
using ::testing::UnorderedElementsAre;

constexpr const char* before = "$scf\n  charge\n    0\n$end\n";
constexpr const char* after = "$scf\n  charge\n    1\n$end\n";

TEST(SetInPlace, ReplacesTheFileAndKeepsItsPermissions) {
  Program program;
  program.write("a.inp", before);
  const stdfs::path file = program.folder() / "a.inp";
  stdfs::permissions(
      file, stdfs::perms::owner_read | stdfs::perms::owner_write | stdfs::perms::group_read);
  const auto permissions = stdfs::status(file).permissions();
  const Outcome outcome = program.run({"set", "-i", "a.inp", "scf.charge=1"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(program.read("a.inp"), after);
  EXPECT_EQ(stdfs::status(file).permissions(), permissions);
  EXPECT_THAT(names_in(program.folder()), UnorderedElementsAre("a.inp"));
}

TEST(SetInPlace, AChangeThatChangesNothingLeavesEvenTheLayout) {
  Program program;
  const std::string rough = "$SCF\ncharge # remark\n0\n$end";
  program.write("a.inp", rough);
  const stdfs::path file = program.folder() / "a.inp";
  stdfs::last_write_time(file, stdfs::file_time_type::clock::now() - std::chrono::hours(24));
  const auto time = stdfs::last_write_time(file);
  EXPECT_EQ(program.run({"set", "-i", "a.inp", "scf.charge=0"}).status, 0);
  EXPECT_EQ(program.read("a.inp"), rough);
  EXPECT_EQ(stdfs::last_write_time(file), time);
  EXPECT_EQ(program.run({"set", "a.inp", "scf.charge=0"}).out, rough);
}

TEST(SetInPlace, RefusesStandardInput) {
  Program program;
  const Outcome outcome = program.run({"set", "-i", "-", "scf.charge=1"}, before);
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "kelp-bdf: standard input cannot be changed in place\n");
}

TEST(SetOutput, WritesAnotherFile) {
  Program program;
  program.write("a.inp", before);
  EXPECT_EQ(program.run({"set", "a.inp", "-o", "b.inp", "scf.charge=1"}).status, 0);
  EXPECT_EQ(program.read("a.inp"), before);
  EXPECT_EQ(program.read("b.inp"), after);
  EXPECT_EQ(program.run({"set", "a.inp", "-o", "-", "scf.charge=1"}).out, after);
}

TEST(SetOutput, IsNotTouchedByARefusedChange) {
  Program program;
  program.write("a.inp", before);
  program.write("b.inp", "old");
  EXPECT_EQ(program.run({"set", "a.inp", "-o", "b.inp", "scf.charge=x"}).status, 2);
  EXPECT_EQ(program.read("b.inp"), "old");
}

TEST(SetOutput, IntoAMissingFolderIsAnErrorThatSaysSo) {
  Program program;
  program.write("a.inp", before);
  const Outcome outcome = program.run({"set", "a.inp", "-o", "no/b.inp", "scf.charge=1"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "kelp-bdf: cannot write 'no/b.inp': its folder does not exist\n");
  stdfs::create_directory(program.folder() / "folder");
  EXPECT_EQ(program.run({"set", "a.inp", "-o", "folder", "scf.charge=1"}).err,
            "kelp-bdf: cannot write 'folder': it is a folder\n");
}

TEST(SetDiff, ShowsTheDifference) {
  Program program;
  program.write("a.inp", before);
  const Outcome outcome = program.run({"set", "--diff", "a.inp", "scf.charge=1"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "--- a/a.inp\n+++ b/a.inp\n@@ -1,4 +1,4 @@\n $scf\n   charge\n-    0\n+    1\n $end\n");
  EXPECT_EQ(program.read("a.inp"), before);
}

TEST(SetDiff, ExcludesTheOtherDestinations) {
  for (const char* const option : {"-i", "-oout"}) {
    Program program;
    program.write("a.inp", before);
    EXPECT_EQ(program.run({"set", "--diff", option, "a.inp", "scf.charge=1"}).status, 2) << option;
    EXPECT_EQ(program.read("a.inp"), before);
  }
  Program program;
  program.write("a.inp", before);
  EXPECT_EQ(program.run({"set", "-i", "-o", "b", "a.inp", "scf.charge=1"}).status, 2);
  EXPECT_EQ(program.read("a.inp"), before);
}

#ifndef _WIN32
TEST(SetOutput, AReaderThatGoesAwayIsNoError) {
  Program program;
  program.write("a.inp", before);
  const Outcome outcome = program.run_in_shell("\"$KELP_BDF\" set a.inp scf.charge=1 | true");
  EXPECT_EQ(outcome.err, "");
}

TEST(SetOutput, AFullDeviceIsAnError) {
  Program program;
  program.write("a.inp", before);
  const Outcome outcome = program.run_in_shell(
      "[ -w /dev/full ] || exit 99; \"$KELP_BDF\" set a.inp scf.charge=1 > /dev/full");
  if (outcome.status == 99) {
    GTEST_SKIP() << "there is no device that is always full";
  }
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("cannot write to standard output"));
}
#endif

}  // namespace
}  // namespace kelp::test
