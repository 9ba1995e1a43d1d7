// How the program is called, and what it answers when it is called wrongly.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "kelp/input/bdf/version.hpp"
#include "support/program.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;

TEST(Usage, HelpListsTheCommandsAndOptions) {
  for (const char* const option : {"-h", "--help"}) {
    Program program;
    const Outcome outcome = program.run({option});
    EXPECT_EQ(outcome.status, 0) << option;
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out, HasSubstr("Usage: kelp-bdf"));
    EXPECT_THAT(outcome.out, HasSubstr("check"));
    EXPECT_THAT(outcome.out, HasSubstr("--schema FILE"));
    EXPECT_THAT(outcome.out, HasSubstr("--version"));
  }
}

TEST(Usage, HelpOfACommandListsItsOptions) {
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"check", "--help"},
                                                    {"check", "-h"},
                                                    {"check", "a.inp", "--help"}}) {
    Program program;
    const Outcome outcome = program.run(arguments);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    for (const char* const text :
         {"kelp-bdf check", "--unknown", "--strict", "--format", "--schema", "--stdin-filename",
          "--allow", "--warn", "--deny", "--list-codes", "--max-findings"}) {
      EXPECT_THAT(outcome.out, HasSubstr(text));
    }
  }
}

TEST(Usage, HelpOfANestedCommandShowsTheWholeCall) {
  for (const char* const name : {"list", "lint", "findings"}) {
    Program program;
    EXPECT_THAT(program.run({"schema", name, "--help"}).out,
                HasSubstr("Usage: kelp-bdf schema " + std::string(name) + " ["));
  }
}

TEST(Usage, VersionNamesProgramLibraryAndSchema) {
  Program program;
  program.write("own.yaml",
                "schema_version: 7\nmetadata:\n  bdf_version: '2030.02'\nmodules: {}\n");
  program.set_variable("KELP_BDF_INP_SCHEMA_YAML", "own.yaml");
  const Outcome outcome = program.run({"--version"});
  const std::string version = input::bdf::library_version();
  EXPECT_EQ(outcome.out, "kelp-bdf " + version + "\nlibkelp_bdf_inp " + version +
                             "\nschema own.yaml (version 7, BDF 2030.02)\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST(Usage, VersionNamesTheSchemaGivenByOption) {
  Program program;
  program.write("own.yaml", "schema_version: 3\nmodules: {}\n");
  const Outcome outcome = program.run({"--schema", "own.yaml", "--version"});
  EXPECT_THAT(outcome.out, HasSubstr("schema own.yaml (version 3"));
}

TEST(Usage, VersionSaysWhyThereIsNoSchema) {
  Program program;
  const Outcome outcome = program.run({"--schema", "missing.yaml", "--version"});
  EXPECT_THAT(outcome.out, HasSubstr("kelp-bdf "));
  EXPECT_THAT(outcome.out, HasSubstr("no schema: "));
  EXPECT_THAT(outcome.out, HasSubstr("missing.yaml"));
  EXPECT_EQ(outcome.status, 0);
}

struct Row {
  std::vector<std::string> arguments;
  std::string answer;
};

void PrintTo(const Row& row, std::ostream* stream) {
  for (const std::string& argument : row.arguments) {
    *stream << argument << ' ';
  }
}

class WrongUsage : public ::testing::TestWithParam<Row> {};

TEST_P(WrongUsage, GetsOneLineAndStatusTwo) {
  Program program;
  const Outcome outcome = program.run(GetParam().arguments);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "kelp-bdf: " + GetParam().answer + "\n");
  EXPECT_EQ(outcome.status, 2);
}

const Row rows[] = {
    {{}, "no command given; 'kelp-bdf --help' lists them"},
    {{"chek", "a.inp"}, "unknown command 'chek'; did you mean 'check'?"},
    {{"wibble"}, "unknown command 'wibble'"},
    {{"--strict"}, "unknown option '--strict'"},
    {{"--shcema", "x", "check"}, "unknown option '--shcema'; did you mean '--schema'?"},
    {{"check", "--strikt", "a.inp"}, "unknown option '--strikt'; did you mean '--strict'?"},
    {{"check", "--unknwon=warn", "a.inp"}, "unknown option '--unknwon'; did you mean '--unknown'?"},
    {{"check", "-x", "a.inp"}, "unknown option '-x'"},
    {{"check", "--\x1B[31m", "a.inp"}, "unknown option '--\\x1b[31m'"},
    {{"check"}, "input is required; see 'kelp-bdf check --help'"},
    {{"check", "--deny", "bdf.unknown_entri", "a.inp"},
     "there is no code 'bdf.unknown_entri'; did you mean 'bdf.unknown_entry'?"},
    {{"check", "--allow", "bdf.*,unknown_module", "a.inp"},
     "there is no code 'unknown_module'; did you mean 'bdf.unknown_module'?"},
    {{"check", "--warn=bfd.*", "a.inp"}, "there is no code 'bfd.*'; did you mean 'bdf.*'?"},
    {{"check", "--warn", "", "a.inp"}, "there is no code ''"},
    {{"check", "a.inp", "--allow"}, "option '--allow' needs a value; see 'kelp-bdf check --help'"},
    {{"check", "--max-findings=-1", "a.inp"},
     "--max-findings: '-1' is no number of findings; see 'kelp-bdf check --help'"},
    {{"format"}, "input is required; see 'kelp-bdf format --help'"},
    {{"get", "scf.charge"}, "input is required; see 'kelp-bdf get --help'"},
    {{"check", "-j0", "a.inp"},
     "--jobs: Value 0 not in range 1 to 1024; see 'kelp-bdf check --help'"},
    {{"check", "--max-size=many", "a.inp"},
     "--max-size: 'many' is no size such as 256M; see 'kelp-bdf check --help'"},
    {{"check", "a.inp", "--schema"},
     "option '--schema' needs a value; see 'kelp-bdf check --help'"},
    {{"check", "--unknown", "maybe", "a.inp"},
     "--unknown: maybe not in {error,warn,ignore}; see 'kelp-bdf check --help'"},
    {{"check", ""}, "input: it must not be empty; see 'kelp-bdf check --help'"},
    {{"show", "a.inp", ""}, "input: it must not be empty; see 'kelp-bdf show --help'"},
    {{"check", "--schema", "", "a.inp"},
     "--schema: it must not be empty; see 'kelp-bdf check --help'"},
    {{"--schema", "", "check", "a.inp"},
     "--schema: it must not be empty; see 'kelp-bdf check --help'"},
    {{"set", "a.inp", "scf.charge=1", "-o", ""},
     "--output: it must not be empty; see 'kelp-bdf set --help'"},
    {{"set", "a.inp", "scf.charge=1", "--output=", "scf.b=1"}, "option '--output' needs a value"},
    {{"set", "a.inp", "scf.charge=1", "--multiplicity", ""},
     "--multiplicity: it must not be empty; see 'kelp-bdf set --help'"},
    {{"schema", "lint", ""}, "file: it must not be empty; see 'kelp-bdf schema lint --help'"},
    {{"schema", "list", ""}, "module: it must not be empty; see 'kelp-bdf schema list --help'"},
    {{"--color=pink", "check"},
     "--color: pink not in {auto,always,never}; see 'kelp-bdf check --help'"},
};

INSTANTIATE_TEST_SUITE_P(Rows, WrongUsage, ::testing::ValuesIn(rows));

}  // namespace
}  // namespace kelp::test
