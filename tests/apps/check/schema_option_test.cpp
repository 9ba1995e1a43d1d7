// Which vocabulary is used.

#include <algorithm>
#include <optional>
#include <string>

#include "check/check_fixture.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

const std::string own_schema =
    "schema_version: 1\n"
    "modules:\n"
    "  mine:\n"
    "    entries:\n"
    "      colour: {kind: flag}\n";

const std::string own_input =
    "$mine\n"
    "color\n"
    "$end\n";

class SchemaOption : public Check {
 protected:
  SchemaOption() { program.set_variable("KELP_BDF_INP_SCHEMA_YAML", std::nullopt); }
};

void expect_own_schema(const Outcome& outcome) {
  EXPECT_THAT(outcome.out, HasSubstr("Unknown BDF module entry 'mine.color' was preserved raw.\n"
                                     " --> a.inp:2:1\n"
                                     "  |\n"
                                     "2 | color\n"
                                     "  | ^^^^^ not an entry of $mine\n"
                                     "  = help: a similar entry exists: 'colour'\n"));
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(SchemaOption, NamesTheVocabulary) {
  program.write("own.yaml", own_schema);
  expect_own_schema(check(own_input, {"--schema", "own.yaml"}));
}

TEST_F(SchemaOption, MayStandBeforeTheCommand) {
  program.write("own.yaml", own_schema);
  program.write("a.inp", own_input);
  expect_own_schema(program.run({"--schema=own.yaml", "check", "a.inp"}));
}

TEST_F(SchemaOption, IsStrongerThanTheVariable) {
  program.write("own.yaml", own_schema);
  program.write("other.yaml", "schema_version: 1\n");
  program.set_variable("KELP_BDF_INP_SCHEMA_YAML", "other.yaml");
  expect_own_schema(check(own_input, {"--schema=own.yaml"}));
}

TEST_F(SchemaOption, IsReplacedByTheVariable) {
  program.write("own.yaml", own_schema);
  program.set_variable("KELP_BDF_INP_SCHEMA_YAML", "own.yaml");
  expect_own_schema(check(own_input));
}

TEST_F(SchemaOption, ThatTheVariableNamesMustBeAFile) {
  for (const char* const name : {"/nonexistent", "missing.yaml", "."}) {
    program.set_variable("KELP_BDF_INP_SCHEMA_YAML", name);
    const Outcome outcome = check(good_input);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "kelp-bdf: KELP_BDF_INP_SCHEMA_YAML names '" + std::string(name) +
                               "', which is no file\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(check(good_input, {"--schema=../schema.yaml"}).status, 0);
  }
}

TEST_F(SchemaOption, MustNameAFileThatCanBeRead) {
  program.write("folder/own.yaml", own_schema);
  const Outcome missing = check(good_input, {"--schema=missing.yaml"});
  EXPECT_EQ(missing.out, "");
  EXPECT_THAT(missing.err, StartsWith("kelp-bdf: "));
  EXPECT_THAT(missing.err, HasSubstr("'missing.yaml'"));
  EXPECT_EQ(missing.status, 2);
  const Outcome folder = check(good_input, {"--schema=folder"});
  EXPECT_THAT(folder.err, HasSubstr("'folder'"));
  EXPECT_EQ(folder.status, 2);
}

TEST_F(SchemaOption, MustNameASchema) {
  for (const char* const text : {"modules: [", "just a text\n", "modules: {}\n"}) {
    program.write("bad.yaml", text);
    const Outcome outcome = check(good_input, {"--schema=bad.yaml"});
    EXPECT_EQ(outcome.out, "") << text;
    EXPECT_THAT(outcome.err, HasSubstr("bad.yaml")) << text;
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
    EXPECT_EQ(outcome.status, 2) << text;
  }
}

TEST_F(SchemaOption, IsNotLookedForBesideTheInput) {
  program.write("schemas/input/bdf.yaml", own_schema);
  EXPECT_THAT(check(own_input).out, HasSubstr("Unknown BDF module '$mine'"));
}

#ifndef _WIN32

// A copy of the program and its library finds no vocabulary where they stand now.
TEST_F(SchemaOption, IsAskedForWhenNoVocabularyIsFound) {
  program.write("a.inp", good_input);
  const Outcome outcome = program.run_in_shell(
      "mkdir -p 1/2/3/4/5/6/7/8 && cd 1/2/3/4/5/6/7/8 && cp \"$KELP_BDF\" kelp-bdf || exit 77\n"
      "library=$(ldd \"$KELP_BDF\" | sed -n 's/.*libkelp_bdf_inp[^ ]* => \\([^ ]*\\).*/\\1/p')\n"
      "test -n \"$library\" && cp \"$library\" . || exit 77\n"
      "LD_LIBRARY_PATH=$PWD ldd ./kelp-bdf | grep -q \"=> $PWD/libkelp\" || exit 77\n"
      "LD_LIBRARY_PATH=$PWD ./kelp-bdf check ../../../../../../../../a.inp\n");
  if (outcome.status == 77) {
    GTEST_SKIP() << "the library cannot be copied away";
  }
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err,
            "kelp-bdf: no schema file found; name one with --schema or "
            "KELP_BDF_INP_SCHEMA_YAML\n");
  EXPECT_EQ(outcome.status, 2);
}

#endif

}  // namespace
}  // namespace kelp::test
