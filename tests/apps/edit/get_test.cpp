// Values by their paths.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/program.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;

const std::string mixed =
    "#!job.bdf\nb3lyp/sto-3g charge=1 spin 2 soc # iroot=3\n\nGeometry\nO 0 0 1d-1\nH_a 1.5 0 "
    "-0.25 # x\n"
    "End Geometry\n\n"
    "$scf\nCharge\n   1  \nrhf\n$end\n"
    "$scf\ncharge\n2\nnosuch\n  3\n  4\n$end\n";

struct Row {
  const char* path;
  const char* output;
};

TEST(Get, PrintsTheLinesOfAValue) {
  for (const Row& row : {
           Row{"scf.charge", "1\n"},
           Row{"$SCF.CHARGE", "1\n"},
           Row{"scf#2.charge", "2\n"},
           Row{"scf#2.nosuch", "3\n4\n"},
           Row{"scf.rhf", ""},
           Row{"easy.charge", "1\n"},
           Row{"easy.spinmulti", "2\n"},
           Row{"easy.soc", ""},
           Row{"geometry", "O 0 0 0.1\nH_a 1.5 0 -0.25\n"},
       }) {
    Program program;
    const Outcome outcome = program.run({"get", row.path, "-"}, mixed);
    EXPECT_EQ(outcome.status, 0) << row.path << '\n' << outcome.err;
    EXPECT_EQ(outcome.out, row.output) << row.path;
    EXPECT_EQ(outcome.err, "") << row.path;
  }
}

TEST(Get, TheGeometryOfAModuleInputIsThatOfCompass) {
  Program program;
  EXPECT_EQ(
      program
          .run({"get", "geometry", "-"}, "$compass\ngeometry\n  O 0 0 0.1 \nend geometry\n$end\n")
          .out,
      "O 0 0 0.1\n");
}

TEST(Get, NothingFoundIsStatusOneWithAHint) {
  for (const Row& row : {
           Row{"scf.spinmulti", "kelp-bdf: <stdin>: nothing at 'scf.spinmulti'\n"},
           Row{"scf.chrage",
               "kelp-bdf: <stdin>: nothing at 'scf.chrage'; did you mean 'charge'?\n"},
           Row{"scf#3.charge", "kelp-bdf: <stdin>: nothing at 'scf#3.charge'\n"},
           Row{"compas.title",
               "kelp-bdf: <stdin>: nothing at 'compas.title'; did you mean 'compass'?\n"},
           Row{"easy.chrage",
               "kelp-bdf: <stdin>: nothing at 'easy.chrage'; did you mean 'charge'?\n"},
           Row{"easy.iroot", "kelp-bdf: <stdin>: nothing at 'easy.iroot'\n"},
           Row{"easy.b3lyp", "kelp-bdf: <stdin>: nothing at 'easy.b3lyp'\n"},
       }) {
    Program program;
    const Outcome outcome = program.run({"get", row.path, "-"}, mixed);
    EXPECT_EQ(outcome.status, 1) << row.path;
    EXPECT_EQ(outcome.out, "") << row.path;
    EXPECT_EQ(outcome.err, row.output) << row.path;
    EXPECT_EQ(program.run({"get", "-q", row.path, "-"}, mixed).err, "") << row.path;
  }
  Program program;
  EXPECT_EQ(program.run({"get", "geometry", "-"}, "$scf\n$end\n").status, 1);
}

TEST(Get, SeveralFilesAreNamed) {
  Program program;
  program.write("a.inp", "$scf\ncharge\n1\n$end\n");
  program.write("b.inp", "$scf\ncharge\n2\n$end\n");
  const Outcome outcome = program.run({"get", "scf.charge", "a.inp", "b.inp", "missing.inp"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "a.inp: 1\nb.inp: 2\n");
  EXPECT_THAT(outcome.err, HasSubstr("missing.inp"));
}

TEST(Get, WhoNamesTheFileFirstIsTold) {
  Program program;
  program.write("a.inp", mixed);
  const Outcome outcome = program.run({"get", "a.inp", "scf.charge"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "kelp-bdf: the path comes first: kelp-bdf get scf.charge a.inp\n");
}

TEST(Get, AModuleIsNoValue) {
  Program program;
  const Outcome outcome = program.run({"get", "scf", "-"}, mixed);
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err, HasSubstr("'scf' names a module"));
}

}  // namespace
}  // namespace kelp::test
