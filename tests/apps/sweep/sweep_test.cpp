// Variants of an input as files. Which there are and how they are named is the library's matter.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/program.hpp"

namespace kelp::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

constexpr const char* water =
    "# water\npbe0/def2-svp   charge=0\n\ngeometry\nO 0 0 0.1\nH 0 0.7 -0.4\nH 0 -0.7 -0.4\n"
    "end geometry\n";

std::string with(std::string text, const std::string& old_part, const std::string& new_part) {
  return text.replace(text.find(old_part), old_part.size(), new_part);
}

class Sweep : public ::testing::Test {
 protected:
  Sweep() { program.write("water.inp", water); }

  Outcome sweep(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"sweep", "water.inp"});
    return program.run(std::move(arguments));
  }

  Program program;
};

TEST_F(Sweep, WritesAFileForEachCombinationAndSaysWhich) {
  const Outcome outcome = sweep({"easy.functional=pbe0,b3lyp", "easy.basis=def2-svp,def2-tzvp",
                                 "--name", "{functional}/{basis}.inp", "-o", "runs/a"});
  EXPECT_EQ(outcome.out,
            "runs/a/pbe0/def2-svp.inp\nruns/a/pbe0/def2-tzvp.inp\n"
            "runs/a/b3lyp/def2-svp.inp\nruns/a/b3lyp/def2-tzvp.inp\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(program.read("runs/a/pbe0/def2-svp.inp"), water);
  EXPECT_EQ(program.read("runs/a/b3lyp/def2-tzvp.inp"),
            with(water, "pbe0/def2-svp", "b3lyp/def2-tzvp"));
  EXPECT_EQ(program.read("water.inp"), water);
  EXPECT_THAT(names_in(program.folder() / "runs/a/b3lyp"),
              UnorderedElementsAre("def2-svp.inp", "def2-tzvp.inp"));
}

TEST_F(Sweep, ADryRunSaysTheSameAndWritesNothing) {
  const Outcome outcome =
      sweep({"easy.basis=def2-svp,def2-tzvp", "--name={basis}.inp", "-oruns", "--dry-run"});
  EXPECT_EQ(outcome.out, "runs/def2-svp.inp\nruns/def2-tzvp.inp\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(names_in(program.folder()), ElementsAre("water.inp"));
}

TEST_F(Sweep, ReadsStandardInput) {
  const Outcome outcome =
      program.run({"sweep", "-", "easy.charge=0,2", "--name", "q{charge}.inp"}, water);
  EXPECT_EQ(outcome.out, "q0.inp\nq2.inp\n");
  EXPECT_EQ(program.read("q2.inp"), with(water, "charge=0", "charge=2"));
}

TEST_F(Sweep, LeavesOtherFilesAloneUnlessToldOtherwise) {
  program.write("q2.inp", "mine");
  const std::vector<std::string> arguments = {"easy.charge=0,2,4", "--name=q{charge}.inp"};
  const Outcome refused = sweep(arguments);
  EXPECT_EQ(refused.status, 2);
  EXPECT_EQ(refused.out, "");
  EXPECT_THAT(refused.err,
              HasSubstr("kelp-bdf: 'q2.inp' is there already; --overwrite replaces it\n"
                        "kelp-bdf: nothing is written\n"));
  EXPECT_THAT(names_in(program.folder()), UnorderedElementsAre("q2.inp", "water.inp"));
  std::vector<std::string> overwriting = arguments;
  overwriting.emplace_back("--overwrite");
  EXPECT_EQ(sweep(overwriting).out, "q0.inp\nq2.inp\nq4.inp\n");
  EXPECT_EQ(program.read("q2.inp"), with(water, "charge=0", "charge=2"));
}

TEST_F(Sweep, MayBeRunAgain) {
  const std::vector<std::string> arguments = {"easy.charge=0,2,4", "--name=q{charge}.inp"};
  EXPECT_EQ(sweep(arguments).out, "q0.inp\nq2.inp\nq4.inp\n");
  std::filesystem::remove(program.folder() / "q2.inp");
  const Outcome again = sweep(arguments);
  EXPECT_EQ(again.out, "q2.inp\n");
  EXPECT_EQ(again.err, "kelp-bdf: 2 of 3 files were there already, with their texts\n");
  EXPECT_EQ(again.status, 0);
}

TEST_F(Sweep, NeverWritesOverItsInput) {
  const Outcome outcome = sweep({"easy.charge=2", "--name", "water.inp", "--overwrite"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("'water.inp' is the input itself"));
  EXPECT_EQ(program.read("water.inp"), water);
}

TEST_F(Sweep, WritesNothingWhereOneVariantIsRefused) {
  const Outcome outcome = sweep({"easy.charge=0,many", "--name=q{charge}.inp"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err, HasSubstr("qmany.inp:2:"));
  EXPECT_THAT(outcome.err, HasSubstr("'qmany.inp' would be wrong; --force writes it all the same"));
  EXPECT_THAT(names_in(program.folder()), ElementsAre("water.inp"));
  EXPECT_EQ(sweep({"easy.charge=0,many", "--name=q{charge}.inp", "--force"}).status, 1);
  EXPECT_EQ(program.read("qmany.inp"), with(water, "charge=0", "charge=many"));
}

TEST_F(Sweep, RefusesWhatTheLibraryRefuses) {
  const auto refused = [this](std::vector<std::string> arguments) {
    const Outcome outcome = sweep(std::move(arguments));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    return outcome.err;
  };
  EXPECT_THAT(refused({"easy.charge=0,2", "--name=same.inp"}),
              HasSubstr("two variants would be named 'same.inp'"));
  EXPECT_THAT(refused({"easy.charge", "--name=x"}), HasSubstr("is no PATH=VALUE,VALUE"));
  EXPECT_THAT(refused({"scf.chrage=0", "--name=x"}), HasSubstr("did you mean 'charge'"));
  EXPECT_THAT(refused({"--name=x"}), HasSubstr("see 'kelp-bdf sweep --help'"));
  EXPECT_THAT(refused({"easy.charge=0"}), HasSubstr("--name is required"));
}

TEST_F(Sweep, TellsWhatIsNewAmongTheFindings) {
  program.write("water.inp", with(water, "charge=0", "charge=0 nosuchword=1"));
  const Outcome outcome = sweep({"easy.spinmulti=1,2", "--name=m{spinmulti}.inp"});
  EXPECT_EQ(outcome.out, "m1.inp\nm2.inp\n");
  EXPECT_THAT(outcome.err, HasSubstr("m2.inp:2:"));
  EXPECT_THAT(outcome.err, HasSubstr("[electrons.spin_parity]"));
  EXPECT_EQ(outcome.err.find("m1.inp"), std::string::npos) << outcome.err;
  EXPECT_EQ(outcome.err.find("nosuchword"), std::string::npos) << outcome.err;
}

TEST_F(Sweep, AQuietOneSaysOnlyWhatStopsIt) {
  EXPECT_EQ(sweep({"easy.charge=0,1", "--name=q{charge}.inp", "-q"}).out, "");
  EXPECT_EQ(sweep({"easy.charge=0,1", "--name=q{charge}.inp", "-q"}).err, "");
  EXPECT_THAT(names_in(program.folder()), UnorderedElementsAre("q0.inp", "q1.inp", "water.inp"));
}

TEST_F(Sweep, SaysWhyAFolderCannotBeMade) {
  program.write("file", "");
  const Outcome outcome = sweep({"easy.charge=0", "--name=q{charge}.inp", "-o", "file/x"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("kelp-bdf: cannot make the folder 'file/x': "));
}

}  // namespace
}  // namespace kelp::test
