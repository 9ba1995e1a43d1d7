// Values by their paths.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "support/program.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;
using Json = nlohmann::json;

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
           Row{"geometry", "O 0 0 1d-1\nH_a 1.5 0 -0.25\n"},
           Row{"easy.functional", "b3lyp\n"},
           Row{"easy.Basis", "sto-3g\n"},
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

TEST(Get, CommentsAreNoPartOfAValue) {
  const std::string text =
      "hf/sto-3g charge=1#ion\nGeometry\n# first\nO 0 0 0 # centre\nEnd Geometry\n"
      "$scf\ncharge # c\n 1 # d\n# e\nrhf # r\n$end\n"
      "$bdfopt\nneb-block\n nimage 3 # f\n# g\n NEBmode\n  0 # h\nend neb\n$end\n";
  for (const Row& row : {
           Row{"easy.charge", "1\n"},
           Row{"geometry", "O 0 0 0\n"},
           Row{"scf.charge", "1\n"},
           Row{"scf.rhf", ""},
           Row{"bdfopt.neb-block.nimage", "3\n"},
           Row{"bdfopt.neb-block", "nimage 3\nNEBmode\n  0\n"},
       }) {
    Program program;
    const Outcome outcome = program.run({"get", row.path, "-"}, text);
    EXPECT_EQ(outcome.status, 0) << row.path << '\n' << outcome.err;
    EXPECT_EQ(outcome.out, row.output) << row.path;
  }
}

TEST(Get, AGeometryIsPrintedInItsOwnOrder) {
  Program program;
  EXPECT_EQ(program
                .run({"get", "geometry", "-"},
                     "hf/sto-3g\nGeometry\n O\n H 1 r # bond\nX 0 0 1\n\nr = 0.9\n\nEnd Geometry\n")
                .out,
            "O\nH 1 r\nX 0 0 1\n\nr = 0.9\n");
  EXPECT_EQ(
      program.run({"get", "geometry", "-"}, "hf/sto-3g\nGeometry\n# none\nEnd Geometry\n").status,
      1);
}

TEST(Get, JsonTellsWhereEachLineStands) {
  Program program;
  program.write("a.inp", "$compass\ntitle\n \xC3\xA4 b # one\n$end\n");
  program.write("b.inp", "$compass\nprimitive\n$end\n");
  const auto point = [](int line, int column, int byte) {
    return Json({{"line", line}, {"column", column}, {"byte", byte}});
  };
  const Json range = {{"start", point(3, 2, 16)}, {"end", point(3, 5, 20)}};
  const Json found = {{"path", "compass.title"},
                      {"file", "a.inp"},
                      {"values", Json::array({{{"text", "\xC3\xA4 b"}, {"range", range}}})}};
  const Json missing = {{"path", "compass.title"}, {"file", "b.inp"}, {"values", nullptr}};
  const Outcome outcome = program.run({"get", "--json", "compass.title", "a.inp", "b.inp"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(Json::parse(outcome.out),
            Json({{"version", 1}, {"inputs", Json::array({found, missing})}}));
  const Json flag = Json::parse(program.run({"get", "--json", "compass.primitive", "b.inp"}).out);
  EXPECT_EQ(flag["inputs"][0]["values"], Json::array());
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
           Row{"easy.method", "kelp-bdf: <stdin>: nothing at 'easy.method'\n"},
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
  const Outcome unknown = program.run({"get", "odd", "-"}, "$odd\n$end\n");
  EXPECT_EQ(unknown.status, 2);
  EXPECT_THAT(unknown.err, HasSubstr("'odd' names a module"));
}

TEST(Get, ANameAloneMayBeThatOfAKeyword) {
  Program program;
  const Outcome outcome = program.run({"get", "charge", "-"}, "$scf\ncharge\n 1\n$end\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "kelp-bdf: <stdin>: nothing at 'charge'; did you mean 'scf.charge'?\n");
}

}  // namespace
}  // namespace kelp::test
