// The layout, and that what has it stays as it is.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/program.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;

struct Row {
  const char* what;
  const char* from;
  const char* to;
};

const Row rows[] = {
    {"case, indentation and the empty line between two modules",
     "$Compass\nTitle\n  water\nBasis\ncc-pVDZ\nGeometry\nO 0 0 0\nEnd Geometry\n$END\n$scf\n"
     "\tRHF\nspin\n1\n",
     "$compass\n  title\n    water\n  basis\n    cc-pVDZ\n  geometry\n    O 0 0 0\n  end geometry\n"
     "$end\n\n$scf\n  rhf\n  spin\n    1\n"},
    {"an easy input", "B3LYP/cc-pVDZ\nCharge = 1\n\nGeometry\nO 0 0 0.1\nEnd geometry\n\n\n",
     "b3lyp/cc-pvdz\ncharge = 1\n\nGeometry\n  O 0 0 0.1\nEnd Geometry\n"},
    {"a mixed input with empty lines behind the geometry",
     "#! run.sh\nhf/sto-3g\nGeometry\nHe 0 0 1d-1\nEnd Geometry\n\n\n\n$scf\nrhf\n$end\n",
     "#! run.sh\nhf/sto-3g\nGeometry\n  He 0 0 1d-1\nEnd Geometry\n\n$scf\n  rhf\n$end\n"},
    {"comments, text behind keywords and values on their lines",
     "$scf\nCharge # of the ion\n1 # one\n# alone\nspinmulti 2 # s\n$end # done\n",
     "$scf\n  charge # of the ion\n    1 # one\n# alone\n  spinmulti\n    2 # s\n$end # done\n"},
    {"comments and empty lines between modules stay",
     "# first\n$scf\nrhf\n$end\n\n* star\n% ls -l\n$mp2\n$end\n",
     "# first\n$scf\n  rhf\n$end\n\n* star\n% ls -l\n$mp2\n$end\n"},
    {"the lines of what the schema does not know stay as they are",
     "$NoSuch  \n Foo  1\n$END\n$scf\nnosuchkeyword\n   2\n# remark\n$end\n",
     "$NoSuch\n Foo  1\n$end\n\n$scf\nnosuchkeyword\n   2\n# remark\n$end\n"},
    {"a comment at the end of the header",
     "hf/sto-3g # note well\nGeometry\nHe 0 0 0\nEnd Geometry\n",
     "hf/sto-3g # note well\nGeometry\n  He 0 0 0\nEnd Geometry\n"},
    {"the order of the lines of a geometry",
     "hf/sto-3g\nGeometry\nO\nH 1 r\n# x\nr 0.9\nEnd Geometry\n",
     "hf/sto-3g\nGeometry\n  O\n  H 1 r\n# x\n  r 0.9\nEnd Geometry\n"},
    {"line ends of Windows", "$scf\r\nrhf\r\n$end\r\n", "$scf\r\n  rhf\r\n$end\r\n"},
};

TEST(Format, LaysOut) {
  for (const Row& row : rows) {
    Program program;
    program.write("a.inp", row.from);
    const Outcome outcome = program.run({"format", "a.inp"});
    EXPECT_EQ(outcome.status, 0) << row.what << '\n' << outcome.err;
    EXPECT_EQ(outcome.out, row.to) << row.what;
    EXPECT_EQ(outcome.err, "") << row.what;
  }
}

TEST(Format, WhatItWroteItLeavesAlone) {
  for (const Row& row : rows) {
    Program program;
    const Outcome once = program.run({"format", "--force", "-q", "-"}, row.from);
    EXPECT_EQ(once.status, 0) << row.what;
    const Outcome twice = program.run({"format", "-"}, once.out);
    EXPECT_EQ(twice.status, 0) << row.what << '\n' << twice.err;
    EXPECT_EQ(twice.out, once.out) << row.what;
  }
}

TEST(Format, AnInputWithNothingInItIsRefused) {
  for (const char* const text : {"", "\n\n", "# only a remark\n"}) {
    Program program;
    program.write("a.inp", text);
    for (const char* const option : {"-i", "--force", "--check", "--diff"}) {
      const Outcome outcome = program.run({"format", option, "a.inp"});
      EXPECT_EQ(outcome.status, 2) << option;
      EXPECT_EQ(outcome.out, "") << option;
      EXPECT_EQ(outcome.err, "kelp-bdf: a.inp: there is nothing to lay out: BDF input is empty\n");
    }
    EXPECT_EQ(program.read("a.inp"), text);
  }
}

TEST(Format, AnInputWithErrorsIsLaidOutAllTheSame) {
  Program program;
  const Outcome outcome = program.run({"format", "-"}, "$scf\ncharge\nnone\n$end\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "$scf\n  charge\n    none\n$end\n");
}

}  // namespace
}  // namespace kelp::test
