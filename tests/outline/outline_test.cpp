// What stands where in an input.

#include "kelp/input/bdf/outline.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/print.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using Lines = std::vector<std::string>;

const char* const mixed =
    "#!water.sh\nb3lyp/sto-3g charge = 1\n\nGeometry\nO 0 0 0.1\nH1 0 0.7 -0.4\nH2 0 -0.7 -0.4\n"
    "End Geometry\n\n"
    "$scf\n# comment\nSpin\n  2 \n\nrhf # x\nnosuch\n  1\n  2\n$end\n"
    "$scf\ncharge\n1\n";

struct MixedInput {
  ParsedInput input{mixed, shipped_schema()};
  Outline outline = outline_of(input);

  std::string text(const TextRange& range) const {
    return std::string(input.source().text_of(range));
  }
};

TEST(Outline, HoldsTheHeader) {
  const MixedInput it;
  EXPECT_EQ(it.outline.mode, InputMode::Mixed);
  EXPECT_EQ(it.outline.script_name, "water.sh");
  ASSERT_EQ(it.outline.header.size(), 2U);
  const Outline::Word& word = it.outline.header[1];
  EXPECT_EQ(word.text, "charge=1");
  EXPECT_EQ(word.canonical, "charge=1");
  EXPECT_EQ(word.category, "charge");
  EXPECT_TRUE(word.known);
  EXPECT_EQ(word.record, RecordId::of(RecordKind::EasyToken, 1));
  EXPECT_EQ(word.line, 2U);
  EXPECT_EQ(it.text(word.range), "charge = 1");
}

TEST(Outline, HoldsTheMolecule) {
  const MixedInput it;
  ASSERT_TRUE(it.outline.charge && it.outline.multiplicity && it.outline.geometry);
  EXPECT_EQ(it.outline.charge->text, "1");
  EXPECT_EQ(it.outline.charge->path, "easy.charge");
  EXPECT_EQ(it.outline.charge->record, RecordId::of(RecordKind::EasyToken, 1));
  EXPECT_EQ(it.outline.charge->line, 2U);
  EXPECT_EQ(it.text(it.outline.charge->range), "charge = 1");
  EXPECT_EQ(it.outline.multiplicity->text, "2");
  EXPECT_EQ(it.outline.multiplicity->path, "scf.spinmulti");
  EXPECT_EQ(it.outline.multiplicity->record, RecordId::of_entry(0, 1));
  EXPECT_EQ(it.outline.multiplicity->line, 12U);
  EXPECT_EQ(it.outline.geometry->atoms, 3U);
  EXPECT_EQ(it.outline.geometry->formula, "H2O");
  EXPECT_EQ(it.outline.geometry->record, RecordId::of(RecordKind::Geometry, 0));
  EXPECT_EQ(it.outline.geometry->line, 4U);
  EXPECT_EQ(it.text(it.outline.geometry->range),
            "Geometry\nO 0 0 0.1\nH1 0 0.7 -0.4\nH2 0 -0.7 -0.4\nEnd Geometry\n");
}

TEST(Outline, HoldsModulesWithTheirEntriesButNoComments) {
  const MixedInput it;
  ASSERT_EQ(it.outline.modules.size(), 2U);
  const Outline::Module& first = it.outline.modules[0];
  EXPECT_EQ(first.name, "scf");
  EXPECT_EQ(first.path, "scf");
  EXPECT_TRUE(first.known && first.terminated);
  EXPECT_EQ(first.record, RecordId::of_module(0));
  EXPECT_EQ(first.line, 10U);
  EXPECT_EQ(it.text(first.name_range), "$scf");
  EXPECT_EQ(it.text(first.range),
            "$scf\n# comment\nSpin\n  2 \n\nrhf # x\nnosuch\n  1\n  2\n$end\n");
  ASSERT_EQ(first.entries.size(), 3U);
  EXPECT_EQ(first.entries[0].name, "spinmulti");
  EXPECT_EQ(first.entries[0].path, "scf.spinmulti");
  EXPECT_EQ(first.entries[0].kind, EntryValueKind::Scalar);
  EXPECT_EQ(first.entries[0].line, 12U);
  EXPECT_EQ(it.text(first.entries[0].name_range), "Spin");
  EXPECT_EQ(it.text(first.entries[0].range), "Spin\n  2 \n");
  EXPECT_EQ(first.entries[0].values, Lines{"2"});
  EXPECT_EQ(first.entries[1].name, "rhf");
  EXPECT_EQ(first.entries[1].kind, EntryValueKind::Flag);
  EXPECT_EQ(first.entries[2].path, "scf.nosuch");
  EXPECT_FALSE(first.entries[2].known);
  EXPECT_EQ(first.entries[2].kind, EntryValueKind::Raw);
  EXPECT_EQ(first.entries[2].values, (Lines{"1", "2"}));
  const Outline::Module& second = it.outline.modules[1];
  EXPECT_EQ(second.path, "scf#2");
  EXPECT_FALSE(second.terminated);
  ASSERT_EQ(second.entries.size(), 1U);
  EXPECT_EQ(second.entries[0].path, "scf#2.charge");
}

TEST(Outline, HoldsTheChildrenOfABlock) {
  const ParsedInput input("$bdfopt\nneb-block\n# comment\nnimage\n 5\n\ncrude\nend neb\n$end\n",
                          shipped_schema());
  const Outline outline = outline_of(input);
  ASSERT_EQ(outline.modules.at(0).entries.size(), 1U);
  const Outline::Entry& block = outline.modules[0].entries[0];
  ASSERT_EQ(block.children.size(), 2U);
  EXPECT_EQ(block.children[0].path, "bdfopt.neb-block.nimage");
  EXPECT_EQ(block.children[0].line, 4U);
  EXPECT_EQ(block.children[0].values, Lines{"5"});
  EXPECT_EQ(block.children[1].name, "crude");
  EXPECT_EQ(input.source().text_of(block.children[1].range), "crude\n");
}

TEST(Outline, OfAModuleInputTakesItsGeometryFromCompass) {
  const Outline outline = outline_of(
      ParsedInput("$compass\ngeometry\nfile=x.xyz\nC 0 0 0\nO 0 0 1.1\nend geometry\n$end\n",
                  shipped_schema()));
  EXPECT_EQ(outline.mode, InputMode::Module);
  ASSERT_TRUE(outline.geometry);
  EXPECT_EQ(outline.geometry->formula, "CO");
  EXPECT_EQ(outline.geometry->line, 2U);
  EXPECT_EQ(outline.geometry->record, RecordId::of_entry(0, 0));
}

TEST(Outline, LeavesOutWhatIsNotThere) {
  for (const char* const text : {"", "$scf\n$end\n", "$scf\ncharge\n$end\n",
                                 "$compass\ngeometry\nfile=x.xyz\nend geometry\n$end\n"}) {
    const Outline outline = outline_of(ParsedInput(text, shipped_schema()));
    EXPECT_FALSE(outline.charge) << text;
    EXPECT_FALSE(outline.multiplicity) << text;
    EXPECT_FALSE(outline.geometry) << text;
    EXPECT_TRUE(outline.header.empty()) << text;
  }
}

// A schema may make the names that the library knows aliases of others.
TEST(Outline, FindsAChargeWhoseNameIsAnAlias) {
  const InputSchema schema =
      schema_from("modules: {scf: {entries: {q: {kind: scalar, aliases: [charge]}}}}\n");
  const Outline outline = outline_of(ParsedInput("$scf\n\ncharge\n1\n$end\n", schema));
  ASSERT_TRUE(outline.charge);
  EXPECT_EQ(outline.charge->text, "1");
  EXPECT_EQ(outline.charge->path, "scf.charge");
  EXPECT_EQ(outline.charge->record, RecordId::of_entry(0, 1));
  EXPECT_EQ(outline.charge->line, 3U);
}

TEST(Outline, SaysWhatNamesMean) {
  const InputSchema schema = schema_from(
      "methods: {hf: {summary: Hartree-Fock.}}\n"
      "easy_keywords: {charge: {summary: Total charge., summary_zh: 总电荷。}}\n"
      "modules: {scf: {summary: Orbitals., entries: {n: {kind: nested_block, terminator: end,\n"
      "  summary: Block., entries: {d: {kind: flag, summary: Within.}}}}}}\n");
  const ParsedInput input("hf/sto-3g charge=1\n$scf\nn\nd\nend\n$end\n$nosuch\n$end\n", schema);
  const Outline english = outline_of(input);
  ASSERT_EQ(english.header.size(), 2U);
  EXPECT_EQ(english.header[0].summary, "");
  EXPECT_EQ(english.header[1].summary, "Total charge.");
  ASSERT_EQ(english.modules.size(), 2U);
  EXPECT_EQ(english.modules[0].summary, "Orbitals.");
  EXPECT_EQ(english.modules[0].entries.at(0).summary, "Block.");
  EXPECT_EQ(english.modules[0].entries.at(0).children.at(0).summary, "Within.");
  EXPECT_EQ(english.modules[1].summary, "");
  EXPECT_EQ(outline_of(input, Language::Chinese).header[1].summary, "总电荷。");
}

}  // namespace
}  // namespace kelp::input::bdf
