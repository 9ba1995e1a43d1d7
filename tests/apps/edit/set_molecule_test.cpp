// A new geometry, and charge and multiplicity of a module input.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/program.hpp"

namespace kelp::test {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* water = "3\nwater\nO 0 0 0.1 9\nH 0 0.7 -0.4\nH 0 -0.7 -0.4\n";
constexpr const char* hydrogens =
    "H 0.0000000000 0.7000000000 -0.4000000000\nH 0.0000000000 -0.7000000000 -0.4000000000\n";

TEST(SetGeometry, OfAnInputWithAHeader) {
  Program program;
  program.write("water.xyz", water);
  const Outcome outcome = program.run({"set", "-", "--geometry", "water.xyz"},
                                      "#!job.bdf\nhf/sto-3g\n\nGeometry\nHe 0 0 0\nEnd Geometry\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, std::string("#!job.bdf\nhf/sto-3g\n\nGeometry\nO 0 0 0.1000000000\n") +
                             hydrogens + "End Geometry\n");
}

TEST(SetGeometry, OfAModuleInputStandsInCompass) {
  Program program;
  program.write("water.xyz", water);
  const Outcome outcome = program.run({"set", "-", "--geometry", "water.xyz"},
                                      "$compass\nbasis\nsto-3g\ngeometry\nHe 0 0 0\nend "
                                      "geometry\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, std::string("$compass\nbasis\nsto-3g\ngeometry\nO 0 0 0.1000000000\n") +
                             hydrogens + "end geometry\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n");
  EXPECT_EQ(program.run({"check", "-"}, outcome.out).status, 0);
  EXPECT_EQ(program.run({"get", "geometry", "-"}, outcome.out).out,
            std::string("O 0 0 0.1000000000\n") + hydrogens);
}

TEST(SetGeometry, CommentsAboveTheOldAtomsStay) {
  Program program;
  program.write("water.xyz", water);
  const Outcome outcome =
      program.run({"set", "-", "--geometry", "water.xyz"},
                  "hf/sto-3g\nGeometry\n# one atom\nHe 0 0 0.12 # centre\nEnd Geometry\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, std::string("hf/sto-3g\nGeometry\n# one atom\nO 0 0 0.1000000000\n") +
                             hydrogens + "End Geometry\n");
  EXPECT_EQ(outcome.err,
            "kelp-bdf: <stdin>: what was said of the old geometry goes: '# centre' (line 4)\n");
}

TEST(SetGeometry, CommentsAroundTheOldGeometryStay) {
  Program program;
  program.write("water.xyz", water);
  const Outcome outcome =
      program.run({"set", "-", "--geometry", "water.xyz"},
                  "hf/sto-3g\nGeometry # begins\nHe 0 0 0\nEnd Geometry # ends\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, std::string("hf/sto-3g\nGeometry # begins\nO 0 0 0.1000000000\n") +
                             hydrogens + "End Geometry # ends\n");
}

TEST(SetGeometry, MayBeTheFirstOne) {
  Program program;
  program.write("water.xyz", water);
  const Outcome outcome =
      program.run({"set", "-", "--geometry", "water.xyz"}, "#!job.bdf\nhf/sto-3g\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out, StartsWith("#!job.bdf\nhf/sto-3g\n"));
  EXPECT_THAT(outcome.out,
              EndsWith("Geometry\n  O 0.0000000000 0.0000000000 0.1000000000\n"
                       "  H 0.0000000000 0.7000000000 -0.4000000000\n"
                       "  H 0.0000000000 -0.7000000000 -0.4000000000\nEnd Geometry\n"));
}

TEST(SetGeometry, IsWrittenInTheUnitOfTheInput) {
  Program program;
  program.write("water.xyz", water);
  const Outcome outcome =
      program.run({"set", "-", "--geometry", "water.xyz"},
                  "#!job.bdf\nhf/sto-3g unit=Bohr\n\nGeometry\nHe 0 0 0\nEnd Geometry\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out,
            "#!job.bdf\nhf/sto-3g unit=Bohr\n\nGeometry\nO 0 0 0.1889726125\n"
            "H 0.0000000000 1.3228082872 -0.7558904499\n"
            "H 0.0000000000 -1.3228082872 -0.7558904499\nEnd Geometry\n");
}

TEST(SetGeometry, MayComeFromStandardInput) {
  Program program;
  program.write("a.inp", "hf/sto-3g\nGeometry\nHe 0 0 0\nEnd Geometry\n");
  EXPECT_EQ(
      program.run({"set", "a.inp", "--geometry", "-"}, water).out,
      std::string("hf/sto-3g\nGeometry\nO 0 0 0.1000000000\n") + hydrogens + "End Geometry\n");
  const Outcome bad = program.run({"set", "a.inp", "--geometry", "-"}, "1\n");
  EXPECT_EQ(bad.status, 2);
  EXPECT_THAT(bad.err, StartsWith("kelp-bdf: <stdin>:"));
  const Outcome both = program.run({"set", "-", "--geometry", "-"}, water);
  EXPECT_EQ(both.status, 2);
  EXPECT_EQ(both.err, "kelp-bdf: standard input cannot hold both the input and the geometry\n");
}

TEST(SetGeometry, OneOfSeveralIsNamedByItsPath) {
  Program program;
  program.write("he=1.xyz", "1\n\nHe 0 0 1\n");
  const std::string first = "$compass\ngeometry\nO 0 0 0\nend geometry\n$end\n";
  const std::string second = "$compass\ngeometry\nNe 0 0 0 # c\nend geometry\n$end\n";
  const Outcome outcome =
      program.run({"set", "-", "--geometry", "compass#2.geometry=he=1.xyz"}, first + second);
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, first + "$compass\ngeometry\nHe 0 0 1.0000000000\nend geometry\n$end\n");
  EXPECT_EQ(program.run({"set", "-", "--geometry", "scf.charge=he=1.xyz"}, first).err,
            "kelp-bdf: <stdin>: 'scf.charge' is no geometry; the input has compass.geometry\n");
  EXPECT_EQ(program.run({"set", "-", "--geometry", "geometry=he=1.xyz"}, first).out,
            "$compass\ngeometry\nHe 0 0 1.0000000000\nend geometry\n$end\n");
  EXPECT_EQ(program.run({"set", "-", "--geometry", "he=1.xyz"}, first + second).err,
            "kelp-bdf: <stdin>: the input has more than one geometry; name the one to replace: "
            "compass.geometry, compass#2.geometry\n");
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
            "$xuanyuan\n$end\n\n$scf\n  spinmulti\n    2\n$end\n");
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
