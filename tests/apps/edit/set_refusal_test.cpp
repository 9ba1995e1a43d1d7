// Changes that are refused leave the file as it is, byte for byte.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/program.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

struct Row {
  const char* what;
  std::vector<std::string> arguments;
  const char* text;
  const char* message;
};

const char* const two_modules = "$scf\n  charge\n    0\n$end\n$scf\n$end\n";

const Row impossible[] = {
    {"a number that skips one",
     {"scf#4.charge=1"},
     two_modules,
     "kelp-bdf: a.inp: cannot change 'scf#4.charge': there are 2 $scf, so that the next one is "
     "scf#3\n"},
    {"a path without a value",
     {"scf.charge"},
     two_modules,
     "kelp-bdf: 'scf.charge' is no PATH=VALUE; write 'scf.charge=' for a keyword without a "
     "value\n"},
    {"a malformed path",
     {"scf#x.charge=1"},
     two_modules,
     "kelp-bdf: 'scf#x.charge' is no path: 'x' is no number of a module, counted from 1; paths "
     "look like scf.charge, scf#2.charge, easy.charge or geometry\n"},
    {"a module",
     {"scf=1"},
     two_modules,
     "kelp-bdf: a.inp: cannot change 'scf': it names a module; a value belongs to one of its "
     "entries\n"},
    {"the geometry",
     {"geometry=x"},
     two_modules,
     "kelp-bdf: a.inp: cannot change 'geometry': atoms come from a file: --geometry FILE.xyz\n"},
    {"an entry of what is no block",
     {"scf.charge.x=1"},
     two_modules,
     "kelp-bdf: a.inp: cannot change 'scf.charge': it is no block of entries\n"},
    {"a flag with a value",
     {"scf.rhf=1"},
     two_modules,
     "kelp-bdf: a.inp: cannot change 'scf.rhf': it takes no value; write scf.rhf=\n"},
    {"two lines for one",
     {"scf.charge=1\\n2"},
     two_modules,
     "kelp-bdf: a.inp: cannot change 'scf.charge': it takes one line, not 2\n"},
    {"nothing to take out",
     {"--unset", "scf.chrage"},
     two_modules,
     "kelp-bdf: a.inp: nothing at 'scf.chrage' to take out; did you mean 'charge'?\n"},
    {"no such module to take out",
     {"--unset", "scf#3"},
     two_modules,
     "kelp-bdf: a.inp: nothing at 'scf#3' to take out\n"},
    {"nothing at all",
     {},
     two_modules,
     "kelp-bdf: nothing to set; name a PATH=VALUE or one of the options\n"},
    {"an empty input",
     {"scf.charge=1"},
     "# nothing\n",
     "kelp-bdf: a.inp: there is nothing to change: BDF input is empty\n"},
};

TEST(SetRefuses, WhatIsImpossibleEvenWhenForced) {
  for (const Row& row : impossible) {
    Program program;
    program.write("a.inp", row.text);
    std::vector<std::string> arguments = {"set", "--force", "-i", "a.inp"};
    arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
    const Outcome outcome = program.run(arguments);
    EXPECT_EQ(outcome.status, 2) << row.what;
    EXPECT_EQ(outcome.out, "") << row.what;
    EXPECT_EQ(outcome.err, row.message) << row.what;
    EXPECT_EQ(program.read("a.inp"), row.text) << row.what;
  }
}

const Row doubtful[] = {
    {"a value that adds an error",
     {"scf.charge=one"},
     two_modules,
     "a.inp (as edited):3:5: error: BDF module entry 'scf.charge' has an invalid value 'one'. "
     "[bdf.invalid_module_value]\n"},
    {"a value that ends the module",
     {"compass.basis=a\\n$end\\nb"},
     "$compass\n$end\n",
     "[bdf.edit_value]"},
    {"a value that is a keyword", {"scf.charge=rhf"}, "$scf\n$end\n", "[bdf.edit_value]"},
};

TEST(SetRefuses, WhatWouldDoHarm) {
  for (const Row& row : doubtful) {
    Program program;
    program.write("a.inp", row.text);
    std::vector<std::string> arguments = {"set", "-i", "--format", "concise", "a.inp"};
    arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
    const Outcome outcome = program.run(arguments);
    EXPECT_EQ(outcome.status, 2) << row.what;
    EXPECT_EQ(outcome.out, "") << row.what;
    EXPECT_THAT(outcome.err, HasSubstr(row.message)) << row.what;
    EXPECT_THAT(outcome.err, HasSubstr("kelp-bdf: 'a.inp' is left as it is; --force")) << row.what;
    EXPECT_EQ(program.read("a.inp"), row.text) << row.what;
    arguments.emplace_back("--force");
    const Outcome forced = program.run(arguments);
    EXPECT_EQ(forced.status, 0) << row.what;
    EXPECT_THAT(forced.err, HasSubstr(": warning: ")) << row.what;
    EXPECT_THAT(forced.err, Not(HasSubstr(": error: "))) << row.what;
    EXPECT_NE(program.read("a.inp"), row.text) << row.what;
  }
}

// With --force they are written, as 'SetUnknownNames' shows.
TEST(SetRefuses, NamesThatTheVocabularyDoesNotKnow) {
  for (const char* const argument :
       {"scf.nosuch=1", "nosuch.charge=1", "easy.nosuch=1", "easy.basis=cc-pvdx"}) {
    Program program;
    program.write("a.inp", "#!job\nhf/sto-3g\n\nGeometry\nHe 0 0 0\nEnd Geometry\n");
    const Outcome outcome = program.run({"set", "a.inp", argument});
    EXPECT_EQ(outcome.status, 2) << argument;
    EXPECT_EQ(outcome.out, "") << argument;
    EXPECT_THAT(outcome.err, HasSubstr("kelp-bdf: a.inp: cannot change '")) << argument;
    EXPECT_THAT(outcome.err, HasSubstr("(--force writes it)\n")) << argument;
  }
}

TEST(SetRefuses, NoErrorThatWasThereBefore) {
  Program program;
  const Outcome outcome = program.run({"set", "-", "scf.rhf="}, "$scf\n  charge\n    none\n$end\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "$scf\n  charge\n    none\n  rhf\n$end\n");
}

TEST(SetRefuses, ARepeatedErrorThatIsRepeatedOnceMore) {
  Program program;
  const Outcome outcome = program.run({"set", "-", "scf#2.charge=none"},
                                      "$scf\n  charge\n    none\n$end\n$scf\n$end\n");
  EXPECT_EQ(outcome.status, 2);
}

TEST(SetRefuses, NothingThatGoesAwayWithTheChange) {
  Program program;
  const Outcome outcome = program.run({"set", "-", "--unset", "scf.charge", "--unset", "mp2"},
                                      "$scf\n  charge # x\n  0\n$end\n$mp2\n$end\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "$scf\n$end\n");
}

TEST(SetRefuses, AMissingFileAndAFolder) {
  Program program;
  program.write("folder/a.inp", two_modules);
  for (const char* const name : {"missing.inp", "folder"}) {
    const Outcome outcome = program.run({"set", "-i", name, "scf.charge=1"});
    EXPECT_EQ(outcome.status, 2) << name;
    EXPECT_THAT(outcome.err, HasSubstr(name)) << name;
  }
  EXPECT_EQ(program.read("folder/a.inp"), two_modules);
}

}  // namespace
}  // namespace kelp::test
