#include <gtest/gtest.h>

#include "support/program.hpp"

namespace kelp::test {
namespace {

constexpr const char* faulty =
    "schema_version: 1\n"
    "modules:\n"
    "  scf:\n"
    "    entries:\n"
    "      charge: {knid: scalar}\n"
    "      rhf: {kind: flag, row: {arity: 1}}\n";

TEST(SchemaLintCommand, SaysNothingAboutAGoodSchema) {
  Program program;
  program.write("good.yaml", "schema_version: 1\nmodules: {scf: {}}\n");
  const Outcome outcome = program.run({"schema", "lint", "good.yaml"});
  EXPECT_EQ(outcome.status, 0) << outcome.out;
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "");
}

TEST(SchemaLintCommand, ShowsEachProblemAtItsPlaceAndWhatMayHaveBeenMeant) {
  Program program;
  program.write("bad.yaml", faulty);
  const Outcome outcome = program.run({"schema", "lint", "bad.yaml"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out,
            "error[schema.unknown_key]: 'knid' is not a key of an entry.\n"
            " --> bad.yaml:5:16\n"
            "  |\n"
            "5 |       charge: {knid: scalar}\n"
            "  |                ^^^^\n"
            "  = help: did you mean 'kind'?\n"
            "\n"
            "warning[schema.no_effect]: 'row' has no effect: only counted rows have rows.\n"
            " --> bad.yaml:6:30\n"
            "  |\n"
            "6 |       rhf: {kind: flag, row: {arity: 1}}\n"
            "  |                              ^\n"
            "\n"
            "1 error and 1 warning in 1 file (1 checked)\n");
}

TEST(SchemaLintCommand, PrintsALineForEachProblemIfAskedTo) {
  Program program;
  const Outcome outcome = program.run(
      {"schema", "lint", "--format", "concise", "--stdin-filename", "mine.yaml", "-"}, faulty);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out,
            "mine.yaml:5:16: error: 'knid' is not a key of an entry. [schema.unknown_key]\n"
            "mine.yaml:6:30: warning: 'row' has no effect: only counted rows have rows. "
            "[schema.no_effect]\n");
}

TEST(SchemaLintCommand, LetsWarningsPassUnlessStrict) {
  Program program;
  program.write("w.yaml", "schema_version: 1\nmodules: {scf: {aliases: scf}}\n");
  EXPECT_EQ(program.run({"schema", "lint", "w.yaml"}).status, 0);
  EXPECT_EQ(program.run({"schema", "lint", "--strict", "w.yaml"}).status, 1);
  const Outcome quiet = program.run({"schema", "lint", "--strict", "-q", "w.yaml"});
  EXPECT_EQ(quiet.status, 1);
  EXPECT_EQ(quiet.out, "");
}

TEST(SchemaLintCommand, AFileThatCannotBeReadIsAFailure) {
  Program program;
  const Outcome outcome = program.run({"schema", "lint", "none.yaml"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_NE(outcome.err.find("none.yaml"), std::string::npos) << outcome.err;
}

}  // namespace
}  // namespace kelp::test
