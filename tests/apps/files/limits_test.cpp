// What the system has no room for is an error that names the file.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/program.hpp"

namespace kelp::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// Runs a script with as little memory as the command needs by itself and some more.
Outcome run_with_little_memory(Program& program, const std::string& script) {
  return program.run_in_shell(
      "ulimit -v 400000 || exit 77; \"$KELP_BDF\" --version >/dev/null 2>&1 || exit 77; " + script);
}

TEST(Limits, AFileThatGrowsBeyondTheAllowedSizeIsAnError) {
  Program program;
  const std::string text = "$scf\nrhf\n$end\n# " + std::string(10'000, 'x') + "\n";
  program.write("a.inp", text);
  for (const char* const command :
       {"format -i a.inp", "set -i a.inp scf.charge=1", "set a.inp -o b.inp scf.charge=1"}) {
    const Outcome outcome =
        program.run_in_shell("ulimit -f 4; \"$KELP_BDF\" " + std::string(command));
    EXPECT_EQ(outcome.status, 2) << command;
    EXPECT_THAT(outcome.err, HasSubstr(".inp': File too large")) << command;
    EXPECT_EQ(program.read("a.inp"), text) << command;
    EXPECT_THAT(names_in(program.folder()), ElementsAre("a.inp")) << command;
  }
}

TEST(Limits, AnOutputThatGrowsBeyondTheAllowedSizeIsAnError) {
  Program program;
  program.write("a.inp", "$scf\nrhf\n$end\n# " + std::string(10'000, 'x') + "\n");
  const Outcome outcome = program.run_in_shell("ulimit -f 4; \"$KELP_BDF\" format a.inp >b");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "kelp-bdf: cannot write to standard output\n");
}

TEST(Limits, AFileLargerThanTheMemoryIsNamedAndTheOthersAreChecked) {
  Program program;
  program.write("b.inp", "$scf\nocupied\n$end\n");
  const Outcome outcome = run_with_little_memory(
      program,
      "truncate -s 1T a.inp; \"$KELP_BDF\" check --max-size=2T --format=concise a.inp b.inp");
  if (outcome.status == 77) {
    GTEST_SKIP() << "this build needs more memory than that";
  }
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "kelp-bdf: 'a.inp' is too large for the memory at hand\n");
  EXPECT_THAT(outcome.out, HasSubstr("b.inp:2:1: warning"));
}

TEST(Limits, AFileLargerThanAllowedIsNamedAndTheOthersAreChecked) {
  Program program;
  program.write("b.inp", "$scf\nocupied\n$end\n");
  const Outcome outcome = program.run_in_shell(
      "truncate -s 1T a.inp; \"$KELP_BDF\" check --format=concise a.inp b.inp");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err,
            "kelp-bdf: 'a.inp' is larger than 256 MB; --max-size sets what may be read\n");
  EXPECT_THAT(outcome.out, HasSubstr("b.inp:2:1: warning"));
}

TEST(Limits, APipeWithoutEndIsReadNoFurtherThanAllowed) {
  Program program;
  for (const char* const command : {"check", "format", "show", "get scf.charge"}) {
    const Outcome outcome =
        program.run_in_shell("mkfifo pipe; yes >pipe & \"$KELP_BDF\" " + std::string(command) +
                             " --max-size=10k pipe; status=$?; rm pipe; exit $status");
    EXPECT_EQ(outcome.status, 2) << command;
    EXPECT_EQ(outcome.err,
              "kelp-bdf: 'pipe' is larger than 10 kB; --max-size sets what may be read\n")
        << command;
    const Outcome input =
        program.run_in_shell("yes | \"$KELP_BDF\" " + std::string(command) + " --max-size=10k -");
    EXPECT_EQ(input.status, 2) << command;
    EXPECT_THAT(input.err, HasSubstr("'<stdin>' is larger than 10 kB")) << command;
  }
}

TEST(Limits, ADeviceIsNoInput) {
  Program program;
  program.write("b.inp", "$scf\nocupied\n$end\n");
  const Outcome outcome =
      program.run({"check", "--format=concise", "/dev/zero", "b.inp", "/dev/null"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err,
            "kelp-bdf: cannot read '/dev/zero': it is a device\n"
            "kelp-bdf: cannot read '/dev/null': it is a device\n");
  EXPECT_THAT(outcome.out, HasSubstr("b.inp:2:1: warning"));
}

TEST(Limits, AnInputThatTakesMoreThanTheMemoryIsNamed) {
  Program program;
  for (const char* const command : {"check", "format", "show", "get scf.charge", "set -i"}) {
    const std::string script =
        "yes 'some words' | head -c 60000000 >a.inp; \"$KELP_BDF\" " + std::string(command) +
        " a.inp" + (std::string(command) == "set -i" ? " scf.charge=1" : "") + " >/dev/null";
    const Outcome outcome = run_with_little_memory(program, script);
    if (outcome.status == 77) {
      GTEST_SKIP() << "this build needs more memory than that";
    }
    EXPECT_EQ(outcome.status, 2) << command;
    EXPECT_EQ(outcome.err, "kelp-bdf: 'a.inp' is too large for the memory at hand\n") << command;
  }
}

TEST(Limits, AVocabularyLargerThanTheMemoryIsNamed) {
  Program program;
  program.write("a.inp", "$scf\n$end\n");
  const Outcome outcome = run_with_little_memory(
      program, "truncate -s 1T b.yaml; \"$KELP_BDF\" check --schema b.yaml a.inp");
  if (outcome.status == 77) {
    GTEST_SKIP() << "this build needs more memory than that";
  }
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "kelp-bdf: 'b.yaml' is too large for the memory at hand\n");
}

TEST(Limits, AFullDeviceIsNoFileToWriteTo) {
  Program program;
  program.write("a.inp", "$scf\nrhf\n$end\n");
  const Outcome outcome = program.run({"set", "a.inp", "-o", "/dev/full", "scf.charge=1"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "kelp-bdf: cannot write '/dev/full': it is no regular file\n");
}

}  // namespace
}  // namespace kelp::test
