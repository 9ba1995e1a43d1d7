// Outlines, for people and as JSON.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>

#include "support/program.hpp"

namespace kelp::test {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

const std::string mixed =
    "#!water.sh\nb3lyp/sto-3g charge=1\n\nGeometry\nO 0 0 0.1\nH1 0 0.7 -0.4\nH2 0 -0.7 -0.4\n"
    "End Geometry\n\n"
    "$scf\n# remark\nSpin\n2\nrhf\nnosuch\n  1\n  2\n$end\n"
    "$scf\ncharge\n1\n";

// Says nothing about what its names mean.
const char* const plain_schema =
    "schema_version: 1\n"
    "easy_input: {functionals: [b3lyp], basis: [sto-3g],\n"
    "             control_keywords: {charge: {value_type: integer, category: charge}}}\n"
    "modules:\n"
    "  scf: {entries: {spinmulti: {value_type: integer, aliases: [spin]},\n"
    "                  charge: {value_type: integer}, rhf: {kind: flag}}}\n"
    "  compass: {entries: {geometry: {kind: terminated_block, terminator: end geometry}}}\n";

TEST(Show, PrintsAnOutline) {
  Program program;
  program.write("a.inp", mixed);
  program.write("s.yaml", plain_schema);
  const Outcome outcome = program.run({"show", "a.inp", "--schema", "s.yaml"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out,
            "a.inp: mixed input\n"
            "  script name   water.sh\n"
            "  header        b3lyp/sto-3g charge=1  (line 2)\n"
            "  charge        1  (easy.charge, line 2)\n"
            "  multiplicity  2  (scf.spinmulti, line 12)\n"
            "  geometry      3 atoms, H2O  (line 4)\n"
            "    10  $scf\n"
            "    12    spinmulti  2\n"
            "    14    rhf\n"
            "    15    nosuch     1  (and 1 more line)  (unknown)\n"
            "    19  $scf  (scf#2)  (no $end)\n"
            "    20    charge  1\n");
}

TEST(Show, PrintsTheOutlineOfAModuleInput) {
  Program program;
  program.write("s.yaml", plain_schema);
  const Outcome outcome = program.run(
      {"show", "-", "--schema", "s.yaml"},
      "$compass\ngeometry\nfile=x.xyz\nC 0 0 0\nO 0 0 1.1\nend geometry\n$end\n$x\n$end\n");
  EXPECT_EQ(outcome.out,
            "<stdin>: module input\n"
            "  geometry      2 atoms, CO  (line 2)\n"
            "     1  $compass\n"
            "     2    geometry  file=x.xyz  (and 2 more lines)\n"
            "     8  $x  (unknown)\n");
}

TEST(Show, FindsAChargeThatTheSchemaCallsSomethingElse) {
  Program program;
  program.write("s.yaml",
                "schema_version: 1\n"
                "modules: {scf: {entries: {q: {kind: scalar, aliases: [charge]}}}}\n");
  const Outcome outcome =
      program.run({"show", "--schema", "s.yaml", "-"}, "$scf\ncharge\n1\n$end\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out,
            "<stdin>: module input\n"
            "  charge        1  (scf.charge, line 2)\n"
            "     1  $scf\n"
            "     2    q  1\n");
}

TEST(Show, PutsWhatNamesMeanBesideThemAndCutsItAtAHundredColumns) {
  Program program;
  program.write(
      "s.yaml",
      "schema_version: 1\n"
      "modules:\n"
      "  m:\n"
      "    summary: A module.\n"
      "    entries:\n"
      "      a: {summary: The entry a., summary_zh: 项。}\n"
      "      b: {summary: As many words as it takes to make a sentence that is longer than"
      " a line of a hundred columns can hold.}\n"
      "      c: {kind: flag}\n"
      "      n: {kind: nested_block, terminator: end, entries: {d: {kind: flag,"
      " summary: Within.}}}\n");
  const std::string input = "$m\na\n 1\nb\n 22\nc\nn\nd\nend\na\n" + std::string(50, 'x') +
                            "\na\n" + std::string(60, 'y') + "\n$end\n";
  EXPECT_EQ(program.run({"show", "-", "--schema", "s.yaml"}, input).out,
            "<stdin>: module input\n"
            "     1  $m       A module.\n"
            "     2    a  1   The entry a.\n"
            "     4    b  22  As many words as it takes to make a sentence that is longer than a "
            "line of a...\n"
            "     6    c\n"
            "     7    n\n"
            "     8      d    Within.\n"
            "    10    a  " +
                std::string(50, 'x') +
                "  The entry a.\n"
                "    12    a  " +
                std::string(60, 'y') + "\n");
  EXPECT_THAT(program.run({"show", "-", "--schema", "s.yaml", "--lang", "zh"}, input).out,
              HasSubstr("\n     2    a  1   项。\n"));
}

TEST(Show, LongValuesAreCut) {
  Program program;
  const Outcome outcome =
      program.run({"show", "-"}, "$compass\ntitle\n" + std::string(200, 'x') + "\n$end\n");
  EXPECT_THAT(outcome.out, HasSubstr("title  " + std::string(60, 'x') + "...\n"));
}

TEST(ShowJson, HoldsTheOutline) {
  Program program;
  program.write("a.inp", mixed);
  program.write("s.yaml", plain_schema);
  const Outcome outcome = program.run({"show", "--json", "a.inp", "--schema", "s.yaml"});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  const json document = json::parse(outcome.out);
  EXPECT_EQ(document["version"], 1);
  ASSERT_EQ(document["inputs"].size(), 1U);
  const json& input = document["inputs"][0];
  EXPECT_EQ(input["file"], "a.inp");
  EXPECT_EQ(input["mode"], "mixed");
  EXPECT_EQ(input["script_name"], "water.sh");
  EXPECT_EQ(input["header"][1],
            json::parse(R"({"text": "charge=1", "canonical": "charge=1", "category": "charge",
                            "known": true, "line": 2, "summary": null})"));
  EXPECT_EQ(input["charge"], json::parse(R"({"value": "1", "path": "easy.charge", "line": 2})"));
  EXPECT_EQ(input["multiplicity"],
            json::parse(R"({"value": "2", "path": "scf.spinmulti", "line": 12})"));
  EXPECT_EQ(input["geometry"], json::parse(R"({"atoms": 3, "formula": "H2O", "line": 4})"));
  ASSERT_EQ(input["modules"].size(), 2U);
  EXPECT_EQ(input["modules"][0]["entries"].size(), 3U);
  EXPECT_EQ(input["modules"][0]["entries"][2],
            json::parse(R"({"name": "nosuch", "path": "scf.nosuch", "kind": "raw", "known": false,
                            "line": 15, "values": ["1", "2"], "children": [], "summary": null})"));
  EXPECT_EQ(input["modules"][1]["path"], "scf#2");
  EXPECT_EQ(input["modules"][1]["terminated"], false);
  EXPECT_EQ(input["modules"][1]["entries"][0]["path"], "scf#2.charge");
}

TEST(ShowJson, HoldsWhatNamesMean) {
  Program program;
  program.write(
      "s.yaml",
      "schema_version: 1\n"
      "easy_keywords: {charge: {summary: Total charge., summary_zh: 总电荷。}}\n"
      "methods: {hf: {summary: Hartree-Fock.}}\n"
      "modules: {scf: {summary: Orbitals., entries: {n: {kind: nested_block,\n"
      "  terminator: end, summary: Block., entries: {d: {kind: flag, summary: In.}}}}}}\n");
  const std::string input =
      "hf/sto-3g charge=1\n\nGeometry\nH 0 0 0\nEnd Geometry\n"
      "$scf\nn\nd\nend\n$end\n";
  const json shown =
      json::parse(program.run({"show", "--json", "-", "--schema", "s.yaml"}, input).out);
  const json& outline = shown["inputs"][0];
  EXPECT_EQ(outline["header"][1]["summary"], "Total charge.");
  const json& module = outline["modules"][0];
  EXPECT_EQ(module["summary"], "Orbitals.");
  EXPECT_EQ(module["entries"][0]["summary"], "Block.");
  EXPECT_EQ(module["entries"][0]["children"][0]["summary"], "In.");
  program.set_variable("LANG", "zh_CN.UTF-8");
  const json chinese =
      json::parse(program.run({"show", "--json", "-", "--schema", "s.yaml"}, input).out);
  EXPECT_EQ(chinese["inputs"][0]["header"][1]["summary"], "总电荷。");
}

TEST(ShowJson, WhatIsNotThereIsNull) {
  Program program;
  const json input =
      json::parse(program.run({"show", "--json", "-"}, "$scf\n$end\n").out)["inputs"][0];
  for (const char* const key : {"script_name", "charge", "multiplicity", "geometry"}) {
    EXPECT_TRUE(input.at(key).is_null()) << key;
  }
  EXPECT_TRUE(input["header"].empty());
}

TEST(ShowJson, BytesThatAreNoUtf8DoNotBreakIt) {
  Program program;
  const Outcome outcome = program.run({"show", "--json", "-"}, "$compass\ntitle\n\xFF\xFE\n$end\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_FALSE(json::parse(outcome.out, nullptr, false).is_discarded());
}

TEST(Show, GoesOnAfterAFileThatItCannotRead) {
  Program program;
  program.write("a.inp", "$scf\n$end\n");
  program.write("empty.inp", "");
  const Outcome outcome = program.run({"show", "missing.inp", "empty.inp", "a.inp"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.out, HasSubstr("a.inp: module input\n"));
  EXPECT_THAT(outcome.err, HasSubstr("missing.inp"));
  EXPECT_THAT(outcome.err, HasSubstr("empty.inp: there is nothing to show: BDF input is empty\n"));
}

}  // namespace
}  // namespace kelp::test
