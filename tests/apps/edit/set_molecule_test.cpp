// A new geometry, and charge and multiplicity of a module input.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/program.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;

constexpr const char* water = "3\nwater\nO 0 0 0.1 9\nH 0 0.7 -0.4\nH 0 -0.7 -0.4\n";
constexpr const char* water_block =
    "Geometry\n  O 0.0000000000 0.0000000000 0.1000000000\n"
    "  H 0.0000000000 0.7000000000 -0.4000000000\n"
    "  H 0.0000000000 -0.7000000000 -0.4000000000\nEnd Geometry\n";

TEST(SetGeometry, OfAnInputWithAHeader) {
  Program program;
  program.write("water.xyz", water);
  const Outcome outcome = program.run({"set", "-", "--geometry", "water.xyz"},
                                      "#!job.bdf\nhf/sto-3g\n\nGeometry\nHe 0 0 0\nEnd Geometry\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, std::string("#!job.bdf\nhf/sto-3g\n\n") + water_block);
}

TEST(SetGeometry, OfAModuleInputStandsInCompass) {
  Program program;
  program.write("water.xyz", water);
  const Outcome outcome = program.run(
      {"set", "-", "--geometry", "water.xyz"},
      "$compass\nbasis\nsto-3g\ngeometry\nHe 0 0 0\nend geometry\n$end\n$scf\nrhf\n$end\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out.substr(0, 9), "$compass\n");
  EXPECT_THAT(outcome.out, HasSubstr("O 0.0000000000 0.0000000000 0.1000000000"));
  EXPECT_EQ(outcome.out.find("He"), std::string::npos);
  EXPECT_EQ(program.run({"check", "-"}, outcome.out).status, 0);
  EXPECT_EQ(program.run({"get", "geometry", "-"}, outcome.out).out,
            "O 0.0000000000 0.0000000000 0.1000000000\nH 0.0000000000 0.7000000000 -0.4000000000\n"
            "H 0.0000000000 -0.7000000000 -0.4000000000\n");
}

TEST(SetGeometry, RemarksOfTheOldGeometryMayGo) {
  Program program;
  program.write("water.xyz", water);
  const Outcome outcome = program.run(
      {"set", "-", "--geometry", "water.xyz"},
      "hf/sto-3g\nGeometry\n# one atom\nHe 0 0 0.123456789012 # centre\nEnd Geometry\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, std::string("hf/sto-3g\n") + water_block);
}

TEST(SetGeometry, RemarksAroundTheOldGeometryStay) {
  Program program;
  program.write("water.xyz", water);
  const Outcome outcome =
      program.run({"set", "-", "--geometry", "water.xyz"},
                  "hf/sto-3g\nGeometry # begins\nHe 0 0 0\nEnd Geometry # ends\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out,
            "hf/sto-3g\nGeometry # begins\n  O 0.0000000000 0.0000000000 0.1000000000\n"
            "  H 0.0000000000 0.7000000000 -0.4000000000\n"
            "  H 0.0000000000 -0.7000000000 -0.4000000000\nEnd Geometry # ends\n");
}

TEST(SetGeometry, MayBeTheFirstOne) {
  Program program;
  program.write("water.xyz", water);
  const Outcome outcome =
      program.run({"set", "-", "--geometry", "water.xyz"}, "#!job.bdf\nhf/sto-3g\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, std::string("#!job.bdf\nhf/sto-3g\n\n") + water_block);
}

TEST(SetGeometry, InAnotherUnitIsRefused) {
  const std::string input = "#!job.bdf\nhf/sto-3g unit=Bohr\n\nGeometry\nHe 0 0 0\nEnd Geometry\n";
  Program program;
  program.write("water.xyz", water);
  const Outcome outcome =
      program.run({"set", "--format", "concise", "-", "--geometry", "water.xyz"}, input);
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err, HasSubstr("The new atoms are in angstrom, but 'easy.unit' says bohr. "
                                     "[bdf.edit_unit]"));
  EXPECT_EQ(
      program.run({"set", "-", "--geometry", "water.xyz", "easy.unit=angstrom"}, input).status, 0);
  EXPECT_EQ(program.run({"set", "-q", "--force", "-", "--geometry", "water.xyz"}, input).out,
            std::string("#!job.bdf\nhf/sto-3g unit=Bohr\n\n") + water_block);
}

TEST(SetGeometry, AMalformedFileIsNamedWithItsLine) {
  Program program;
  program.write("bad.xyz", "2\n\nO 0 0 0\n");
  const Outcome outcome = program.run({"set", "-", "--geometry", "bad.xyz"}, "$scf\n$end\n");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "kelp-bdf: bad.xyz:4: there are 1 rows, but line 1 announces 2\n");
  const Outcome missing = program.run({"set", "-", "--geometry", "missing.xyz"}, "$scf\n$end\n");
  EXPECT_EQ(missing.status, 2);
  EXPECT_THAT(missing.err, HasSubstr("missing.xyz"));
}

TEST(SetCharge, OfAModuleInputStandsInScf) {
  Program program;
  EXPECT_EQ(program.run({"set", "-", "--charge", "-1"}, "$scf\n  rhf\n$end\n").out,
            "$scf\n  rhf\n  charge\n    -1\n$end\n");
  EXPECT_EQ(program.run({"set", "-", "--multiplicity", "2"}, "$xuanyuan\n$end\n").out,
            "$xuanyuan\n$end\n$scf\n  spinmulti\n    2\n$end\n");
}

TEST(SetCharge, TakesNothingButIntegers) {
  struct Row {
    const char* option;
    const char* value;
    const char* message;
  };
  for (const Row& row : {
           Row{"--charge", "one", "kelp-bdf: --charge takes an integer, not 'one'\n"},
           Row{"--charge", "1.5", "kelp-bdf: --charge takes an integer, not '1.5'\n"},
           Row{"--charge", "99999999999",
               "kelp-bdf: --charge takes an integer, not "
               "'99999999999'\n"},
           Row{"--multiplicity", "0",
               "kelp-bdf: --multiplicity takes an integer of at least 1, not '0'\n"},
       }) {
    Program program;
    const Outcome outcome = program.run({"set", "-", row.option, row.value}, "$scf\n$end\n");
    EXPECT_EQ(outcome.status, 2) << row.value;
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, row.message);
  }
}

}  // namespace
}  // namespace kelp::test
