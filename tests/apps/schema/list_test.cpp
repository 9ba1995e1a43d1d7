#include <gtest/gtest.h>

#include <string>

#include "support/program.hpp"

namespace kelp::test {
namespace {

constexpr const char* schema =
    "schema_version: 1\n"
    "easy_input:\n"
    "  control_keywords:\n"
    "    charge: {value_type: integer, default: 0, aliases: [q]}\n"
    "modules:\n"
    "  scf:\n"
    "    repeatable: true\n"
    "    aliases: [sfc]\n"
    "    entries:\n"
    "      rhf: {kind: flag}\n"
    "      maxiter: {value_type: integer, default: 100, aliases: [iter, it]}\n"
    "      rows: {kind: counted_rows, row: {types: [integer, float]}}\n"
    "      block: {kind: nested_block, terminator: end, entries: {on: {kind: flag}}}\n"
    "  numgrad:\n";

TEST(SchemaList, ListsTheModules) {
  Program program;
  program.write("s.yaml", schema);
  const Outcome outcome = program.run({"schema", "list", "--schema", "s.yaml"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "module   entries  repeatable  aliases\n"
            "numgrad  0        no\n"
            "scf      4        yes         sfc\n");
}

TEST(SchemaList, ListsTheEntriesOfAModuleByNameOrAlias) {
  Program program;
  program.write("s.yaml", schema);
  for (const char* const name : {"scf", "$SCF", "sfc"}) {
    const Outcome outcome = program.run({"schema", "list", name, "--schema", "s.yaml"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out,
              "name      kind          type           default  aliases\n"
              "block     nested_block\n"
              "block.on  flag\n"
              "maxiter   scalar        integer        100      it, iter\n"
              "rhf       flag\n"
              "rows      counted_rows  integer float\n")
        << name;
  }
}

TEST(SchemaList, ListsTheWordsOfTheHeader) {
  Program program;
  program.write("s.yaml", schema);
  EXPECT_EQ(program.run({"schema", "list", "easy", "--schema", "s.yaml"}).out,
            "name    kind    type     default  aliases\n"
            "charge  scalar  integer  0        q\n");
}

TEST(SchemaList, PutsWhatNamesMeanBelowThem) {
  Program program;
  program.write("s.yaml",
                "schema_version: 1\n"
                "easy_keywords: {charge: {summary: Total charge.}}\n"
                "modules:\n"
                "  scf:\n"
                "    summary: Orbitals.\n"
                "    summary_zh: 轨道。\n"
                "    entries:\n"
                "      block:\n"
                "        {kind: nested_block, terminator: end, entries: {on: {kind: flag,\n"
                "         summary: Within.}}}\n"
                "      maxiter:\n"
                "        summary: As many words as it takes to make a sentence that is longer than"
                " a line of a hundred columns can hold.\n");
  EXPECT_EQ(program.run({"schema", "list", "--schema", "s.yaml"}).out,
            "module  entries  repeatable  aliases\n"
            "scf     2        no\n"
            "    Orbitals.\n");
  EXPECT_EQ(program.run({"schema", "list", "--schema", "s.yaml", "--lang", "zh"}).out,
            "module  entries  repeatable  aliases\n"
            "scf     2        no\n"
            "    轨道。\n");
  EXPECT_EQ(program.run({"schema", "list", "easy", "--schema", "s.yaml"}).out,
            "name    kind    type    default  aliases\n"
            "charge  scalar  string\n"
            "    Total charge.\n");
  EXPECT_EQ(
      program.run({"schema", "list", "scf", "--schema", "s.yaml"}).out,
      "name      kind          type    default  aliases\n"
      "block     nested_block\n"
      "block.on  flag\n"
      "    Within.\n"
      "maxiter   scalar        string\n"
      "    As many words as it takes to make a sentence that is longer than a line of a hundred "
      "columns can\n"
      "    hold.\n");
}

TEST(SchemaList, ACellThatIsVeryLongDoesNotPushThoseOfOtherRowsAside) {
  Program program;
  program.write("s.yaml", "schema_version: 1\nmodules: {m: {entries: {" + std::string(40, 'x') +
                              ": {aliases: [y]}, z: {kind: flag}}}}\n");
  EXPECT_EQ(program.run({"schema", "list", "m", "--schema", "s.yaml"}).out,
            "name  kind    type    default  aliases\n" + std::string(40, 'x') +
                "  scalar  string           y\n"
                "z     flag\n");
}

TEST(SchemaList, SaysWhichModuleMayHaveBeenMeant) {
  Program program;
  const Outcome outcome = program.run({"schema", "list", "scff"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "kelp-bdf: there is no module 'scff'; did you mean 'scf'?\n");
}

TEST(SchemaPath, PrintsThePathOfTheSchemaInUse) {
  Program program;
  program.write("s.yaml", schema);
  EXPECT_EQ(program.run({"schema", "path", "--schema", "s.yaml"}).out, "s.yaml\n");
  const Outcome outcome = program.run({"schema", "path"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.out.find("bdf.yaml"), std::string::npos) << outcome.out;
}

TEST(Schema, WithoutACommandSaysThatThereIsNothingToDo) {
  Program program;
  const Outcome outcome = program.run({"schema"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_NE(outcome.err, "");
  EXPECT_EQ(program.run({"schema", "lst"}).err,
            "kelp-bdf: unknown command 'lst'; did you mean 'list'?\n");
}

}  // namespace
}  // namespace kelp::test
