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
using ::testing::StartsWith;

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
            "  molecule      H2O  (line 4)\n"
            "  basis set     sto-3g  (line 2)\n"
            "  SCF           rhf, charge 1 (line 2), multiplicity 2 (line 12), 9 electrons"
            "  (line 10)\n"
            "  SCF           uks (default), b3lyp, charge 1 (line 20), multiplicity 2 (default),"
            " 9 electrons  (line 19)\n"
            "  tasks         SCF (lines 10, 19)\n"
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
            "  tasks         SCF (line 1)\n"
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

TEST(Show, BeginsWithTheCalculation) {
  Program program;
  const std::string input =
      "$compass\nbasis-block\n 6-31g\n C1, H = vdz\nend basis\ngeometry\nC1 0 0 0\nH 0 0 1\n"
      "end geometry\n$end\n$scf\nuks\ndft\n b3lyp\nspin\n 2\n$end\n"
      "$tddft\nistore\n 1\n$end\n$tddft\n$end\n$resp\ngeom\n$end\n";
  EXPECT_THAT(program.run({"show", "-"}, input).out,
              StartsWith("<stdin>: module input\n"
                         "  molecule      CH  (line 1)\n"
                         "  basis sets    6-31g, cc-pvdz for C1 H  (line 2)\n"
                         "  SCF           uks, b3lyp, charge 0 (default), multiplicity 2 (line 15),"
                         " 7 electrons  (line 11)\n"
                         "  tasks         SCF (line 11), TDDFT (lines 18, 22), gradient (line 24)\n"
                         "  multiplicity  2  (scf.spinmulti, line 15)\n"));
}

TEST(Show, TellsOfAnExcerptOnlyWhatIsCertain) {
  Program program;
  EXPECT_THAT(program.run({"show", "-"}, "$scf\nrks\n...\n$end\n").out,
              StartsWith("<stdin>: module input\n"
                         "  SCF           rks  (line 1)\n"
                         "  tasks         SCF (line 1)\n"
                         "     1  $scf"));
}

TEST(ShowJson, HoldsTheCalculation) {
  Program program;
  const std::string input =
      "tddft/pbe0/6-31g charge=1\n\nGeometry\nO 0 0 0\nH 0 0 1\nH 0 1 0\nEnd Geometry\n";
  const json shown = json::parse(program.run({"show", "--json", "-"}, input).out);
  EXPECT_EQ(shown["inputs"][0]["calculation"], json::parse(R"({
    "complete": true,
    "method": {"name": "tddft", "default": false, "line": 1},
    "systems": [{"formula": "H2O", "atoms": 3, "inline_basis": false, "line": 3,
                 "basis_sets": [{"name": "6-31g", "labels": [], "line": 1}]}],
    "scf": [{"system": 0, "charge": {"value": 1, "default": false, "line": 1},
             "multiplicity": {"value": 2, "default": true, "line": null}, "electrons": 9,
             "reference": null, "functional": {"name": "pbe0", "default": false, "line": 1},
             "line": 1}],
    "tasks": [{"task": "SCF", "system": 0, "line": 1}, {"task": "TDDFT", "system": 0, "line": 1}]
  })"));
}

// All that a record says but where it stands.
json without_ranges(json record) {
  for (const char* const name : {"range", "name_range", "value_ranges"}) {
    record.erase(name);
  }
  return record;
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
  EXPECT_EQ(without_ranges(input["header"][1]),
            json::parse(R"({"text": "charge=1", "canonical": "charge=1", "category": "charge",
                            "known": true, "line": 2, "summary": null, "key": "charge",
                            "value": "1", "method": null, "functional": null, "basis": null})"));
  EXPECT_EQ(input["header"][0]["functional"], "b3lyp");
  EXPECT_EQ(input["header"][0]["key"], nullptr);
  EXPECT_EQ(without_ranges(input["charge"]),
            json::parse(R"({"value": "1", "path": "easy.charge", "line": 2})"));
  EXPECT_EQ(without_ranges(input["multiplicity"]),
            json::parse(R"({"value": "2", "path": "scf.spinmulti", "line": 12})"));
  EXPECT_EQ(without_ranges(input["geometry"]),
            json::parse(R"({"atoms": 3, "formula": "H2O", "line": 4})"));
  ASSERT_EQ(input["modules"].size(), 2U);
  EXPECT_EQ(input["modules"][0]["entries"].size(), 3U);
  EXPECT_EQ(without_ranges(input["modules"][0]["entries"][2]),
            json::parse(R"({"name": "nosuch", "path": "scf.nosuch", "kind": "raw", "known": false,
                            "line": 15, "values": ["1", "2"], "children": [], "summary": null,
                            "terminator": null, "terminated": true})"));
  EXPECT_EQ(input["modules"][1]["path"], "scf#2");
  EXPECT_EQ(input["modules"][1]["terminated"], false);
  EXPECT_EQ(input["modules"][1]["entries"][0]["path"], "scf#2.charge");
}

TEST(ShowJson, RangesLeadToTheText) {
  Program program;
  const std::string input =
      "#! \xC3\xA4\nhf/sto-3g charge = 1\nGeometry\nH 0 0 0\nEnd Geometry\n$scf\n Guess\n  hcore "
      "#c\n$end\n";
  const json shown = json::parse(program.run({"show", "--json", "-"}, input).out)["inputs"][0];
  const auto text_at = [&](const json& range) {
    const std::size_t begin = range["start"]["byte"];
    return input.substr(begin, range["end"]["byte"].get<std::size_t>() - begin);
  };
  EXPECT_EQ(text_at(shown["header"][1]["range"]), "charge = 1");
  EXPECT_EQ(text_at(shown["geometry"]["range"]), "Geometry\nH 0 0 0\nEnd Geometry\n");
  const json& module = shown["modules"][0];
  EXPECT_EQ(text_at(module["name_range"]), "$scf");
  EXPECT_EQ(text_at(module["range"]), "$scf\n Guess\n  hcore #c\n$end\n");
  EXPECT_EQ(text_at(module["entries"][0]["name_range"]), "Guess");
  EXPECT_EQ(text_at(module["entries"][0]["value_ranges"][0]), "hcore");
  EXPECT_EQ(text_at(shown["comments"][0]["range"]), "#c");
}

TEST(ShowJson, HoldsTheMoleculeAndWhatStandsOutsideModules) {
  Program program;
  const std::string input =
      "# first\n$compass\nunit\n bohr\ngeometry\n h1 0 0 1.5\n Q 0 0 -1d0\nend geometry\n$edn\n"
      "%cp a b # no comment\n* last\n$scf\nrhf # behind\n$end\n";
  const json shown = json::parse(program.run({"show", "--json", "-"}, input).out)["inputs"][0];
  EXPECT_EQ(shown["molecule"], json::parse(R"({
    "unit": "bohr", "unit_is_stated": true,
    "atoms": [{"label": "h1", "element": "H", "x": 0.0, "y": 0.0, "z": 1.5, "line": 6},
              {"label": "Q", "element": null, "x": 0.0, "y": 0.0, "z": -1.0, "line": 7}]})"));
  ASSERT_EQ(shown["misspelt_borders"].size(), 1U);
  EXPECT_EQ(without_ranges(shown["misspelt_borders"][0]),
            json::parse(R"({"text": "$edn", "meant": "$end", "line": 9})"));
  EXPECT_EQ(without_ranges(shown["statements"][0]),
            json::parse(R"({"kind": "shell", "lines": ["%cp a b # no comment"], "line": 10})"));
  std::string comments;
  for (const json& comment : shown["comments"]) {
    comments += comment["text"].get<std::string>() + '|';
  }
  EXPECT_EQ(comments, "# first|* last|# behind|");
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
