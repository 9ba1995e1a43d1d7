// Keywords of the header and the name of the script.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/program.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;

const std::string geometry =
    "\n\nGeometry\n  He 0.0000000000 0.0000000000 0.0000000000\nEnd Geometry\n";

struct Row {
  const char* what;
  std::vector<std::string> arguments;
  std::string header;
  std::string result;
};

TEST(SetHeader, Changes) {
  for (const Row& row : {
           Row{"a value", {"easy.charge=1"}, "hf/sto-3g charge=0", "hf/sto-3g charge=1"},
           Row{"an alias", {"easy.spin=3"}, "hf/sto-3g spinmulti=1", "hf/sto-3g spinmulti=3"},
           Row{"a new keyword", {"easy.charge=1"}, "hf/sto-3g", "hf/sto-3g charge=1"},
           Row{"a keyword without a value", {"easy.soc="}, "hf/sto-3g", "hf/sto-3g soc"},
           Row{"a value that is a word of its own",
               {"easy.charge=2"},
               "hf/sto-3g charge -1 soc",
               "hf/sto-3g charge 2 soc"},
           Row{"a keyword taken out",
               {"--unset", "easy.charge"},
               "hf/sto-3g charge=1 soc",
               "hf/sto-3g soc"},
           Row{"a keyword and its value taken out",
               {"--unset", "easy.charge"},
               "hf/sto-3g charge 1 soc",
               "hf/sto-3g soc"},
           Row{"a header with a comment",
               {"easy.charge=1"},
               "hf/sto-3g # charge=7 once",
               "hf/sto-3g charge=1 # charge=7 once"},
           Row{"the charge", {"--charge", "-2"}, "hf/sto-3g", "hf/sto-3g charge=-2"},
           Row{"the charge in the form with a blank",
               {"--charge=1"},
               "hf/sto-3g charge 0",
               "hf/sto-3g charge 1"},
           Row{"the multiplicity",
               {"--multiplicity", "3"},
               "hf/sto-3g charge=0",
               "hf/sto-3g charge=0 spinmulti=3"},
           Row{"a value that is there already, spelt otherwise",
               {"easy.charge=+1", "easy.unit=BOHR"},
               "HF/sto-3g  Charge = 1  unit=bohr",
               "HF/sto-3g  Charge = 1  unit=bohr"},
           Row{"a functional",
               {"easy.functional=pbe0"},
               "TDDFT/B3LYP/cc-pVDZ iroot=1",
               "TDDFT/pbe0/cc-pVDZ iroot=1"},
           Row{"a basis set, and a method",
               {"easy.basis=def2-svp", "easy.method=mp2"},
               "HF/cc-pVDZ # c",
               "mp2/def2-svp # c"},
           Row{"both",
               {"--multiplicity", "2", "--charge", "1"},
               "hf/sto-3g",
               "hf/sto-3g charge=1 spinmulti=2"},
       }) {
    Program program;
    std::vector<std::string> arguments = {"set", "-"};
    arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
    const Outcome outcome = program.run(arguments, "#!job.bdf\n" + row.header + geometry);
    EXPECT_EQ(outcome.status, 0) << row.what << '\n' << outcome.err;
    EXPECT_EQ(outcome.out, "#!job.bdf\n" + row.result + geometry) << row.what;
  }
}

// What the module does not state, it must not state otherwise.
TEST(SetHeader, ChargeAndMultiplicityReachAnScfModuleThatStatesThem) {
  Program program;
  const std::string scf = "\n$scf\n  charge\n    0\n$end\n";
  const Outcome outcome = program.run({"set", "-", "--charge", "1", "--multiplicity", "2"},
                                      "#!job.bdf\nhf/sto-3g" + geometry + scf);
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "#!job.bdf\nhf/sto-3g charge=1 spinmulti=2" + geometry +
                             "\n$scf\n  charge\n    1\n$end\n");
}

TEST(SetHeader, SetsTheScriptName) {
  Program program;
  const Outcome outcome =
      program.run({"set", "-", "--script-name", "water.sh"}, "#!job.bdf\nhf/sto-3g" + geometry);
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "#!water.sh\nhf/sto-3g" + geometry);
}

TEST(SetHeader, AddingAModuleKeepsTheGeometryApart) {
  Program program;
  const Outcome outcome =
      program.run({"set", "-", "scf.rhf="}, "#!job.bdf\nhf/sto-3g" + geometry + "\n\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "#!job.bdf\nhf/sto-3g" + geometry + "\n$scf\n  rhf\n$end\n\n\n");
}

TEST(SetHeader, IsRefusedWhereThereIsNone) {
  struct BadRow {
    std::vector<std::string> arguments;
    const char* message;
  };
  for (const BadRow& row : {
           BadRow{{"easy.charge=1"},
                  "<stdin>: cannot change 'easy.charge': an input of modules "
                  "alone has no header"},
           BadRow{{"--script-name", "x"}, "an input of modules alone has no line '#!'"},
       }) {
    Program program;
    std::vector<std::string> arguments = {"set", "--force", "-"};
    arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
    const Outcome outcome = program.run(arguments, "$scf\n$end\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr(row.message));
  }
}

TEST(SetHeader, RefusesWhatIsNoSingleWord) {
  for (const char* const argument :
       {"easy.charge=1 2", "easy.charge=1#x", "easy.charge=1\\n2", "easy.hf/sto-3g=1"}) {
    Program program;
    const Outcome outcome = program.run({"set", "-", argument}, "#!a\nhf/sto-3g" + geometry);
    EXPECT_EQ(outcome.status, 2) << argument;
    EXPECT_EQ(outcome.out, "") << argument;
    EXPECT_THAT(outcome.err, HasSubstr("kelp-bdf: <stdin>: cannot change 'easy.")) << argument;
  }
}

}  // namespace
}  // namespace kelp::test
