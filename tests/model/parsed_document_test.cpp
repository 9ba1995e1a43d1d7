// Each field of the records as reading an input leaves it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf.hpp"
#include "support/print.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const InputSchema& schema() {
  static const InputSchema loaded = schema_from(R"(
easy_input:
  methods: [hf]
  functionals: [b3lyp]
  control_keywords: {charge: {aliases: [chg]}}
modules:
  scf:
    entries:
      charge: {aliases: [chg]}
      solvent: {kind: block, terminator: end solvent}
      options: {kind: nested_block, terminator: "&end", entries: {tol: {}}}
)");
  return loaded;
}

BDFData parsed(std::string_view text) {
  ParseOptions options;
  options.custom_unknown_policy = true;
  options.validate = false;
  return BDFParser::parse_string(text, schema(), options).data;
}

std::string place(const std::optional<SourceSpan>& span) {
  return testing::PrintToString(span ? std::to_string(span->line) + ":" +
                                           std::to_string(span->column) + "+" +
                                           std::to_string(span->length)
                                     : "nowhere");
}

testing::AssertionResult is_at(const std::optional<SourceSpan>& span, std::uint64_t line,
                               std::uint64_t length) {
  if (span && span->line == line && span->column == 1 && span->length == length) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure() << "is at " << place(span);
}

TEST(ParsedMode, IsEasyWithoutAModule) {
  EXPECT_EQ(parsed("HF/sto-3g\n").mode, InputMode::Easy);
  EXPECT_EQ(parsed("#!a.bdf\nHF/sto-3g\nGeometry\nH 0 0 0\nEnd Geometry\n").mode, InputMode::Easy);
}

TEST(ParsedMode, IsModuleWhenAModuleAShellOrADatabaseLineComesFirst) {
  for (const char* text : {"$scf\n$end\n", "%ls\n", "&database\n&end\n", "# c\n\n $SCF\n"}) {
    EXPECT_EQ(parsed(text).mode, InputMode::Module) << text;
  }
}

TEST(ParsedMode, IsMixedWhenAModuleFollowsAnEasyInput) {
  EXPECT_EQ(parsed("HF/sto-3g\n$scf\n$end\n").mode, InputMode::Mixed);
  EXPECT_EQ(parsed("#!a.bdf\n$scf\n$end\n").mode, InputMode::Mixed);
}

constexpr std::string_view side_lines =
    "$scf\n$end\n %ls -l\n&Database\nx\n&END\n # note\n* note\n\nother text\n$mp2\n";

TEST(ParsedStatement, HasTheKindOfItsLine) {
  std::vector<StatementKind> kinds;
  for (const Statement& statement : parsed(side_lines).statements) {
    kinds.push_back(statement.kind);
  }
  using enum StatementKind;
  EXPECT_THAT(kinds, ElementsAre(Module, Shell, Database, Comment, Comment, Raw, Raw, Module));
}

TEST(ParsedStatement, SelectsItsModuleOrNone) {
  const BDFData data = parsed(side_lines);
  ASSERT_EQ(data.statements.size(), 8U);
  EXPECT_EQ(data.statements.front().module_index, 0U);
  EXPECT_EQ(data.statements.back().module_index, 1U);
  for (std::size_t i = 1; i + 1 < data.statements.size(); ++i) {
    EXPECT_EQ(data.statements[i].module_index, static_cast<std::size_t>(-1)) << i;
  }
}

TEST(ParsedStatement, HoldsTheLinesOfItsSideTextUntrimmed) {
  const BDFData data = parsed(side_lines);
  ASSERT_EQ(data.statements.size(), 8U);
  EXPECT_THAT(data.statements[0].lines, IsEmpty());
  EXPECT_THAT(data.statements[1].lines, ElementsAre(" %ls -l"));
  EXPECT_THAT(data.statements[2].lines, ElementsAre("&Database", "x", "&END"));
  EXPECT_THAT(data.statements[5].lines, ElementsAre(""));
}

TEST(ParsedStatement, LiesWhereItsModuleOrItsFirstLineLies) {
  const BDFData data = parsed(side_lines);
  ASSERT_EQ(data.statements.size(), 8U);
  EXPECT_TRUE(is_at(data.statements[0].location, 1, 4));
  EXPECT_TRUE(is_at(data.statements[1].location, 3, 7));
  EXPECT_TRUE(is_at(data.statements[2].location, 4, 9));
  EXPECT_TRUE(is_at(data.statements[5].location, 9, 0));
  EXPECT_TRUE(is_at(data.statements[7].location, 11, 4));
}

TEST(ParsedData, FreeLinesAreTheLinesOfAllSideStatements) {
  EXPECT_THAT(parsed(side_lines).free_lines, ElementsAre(" %ls -l", "&Database", "x", "&END",
                                                         " # note", "* note", "", "other text"));
}

TEST(ParsedData, LeadingLinesAreTheCommentsBeforeHeaderAndGeometry) {
  EXPECT_THAT(parsed(" # one\n\n* two\nHF/sto-3g\n  # three\nGeometry\n# four\n").leading_lines,
              ElementsAre(" # one", "* two", "  # three"));
}

TEST(ParsedData, ScriptNameIsTheTextAfterItsMark) {
  EXPECT_EQ(parsed("#! water.bdf \nHF/sto-3g\n").script_name, "water.bdf");
  EXPECT_EQ(parsed("#!\nHF/sto-3g\n").script_name, "job.bdf");
  EXPECT_EQ(parsed("HF/sto-3g\n").script_name, "job.bdf");
}

TEST(ParsedGeometry, KeepsAtomsAndOtherLinesApart) {
  const BDFData data = parsed(
      "HF/sto-3g\r\nGeometry # Angstrom\r\n h1 0 -1.5d0 2 extra\r\nH 0 0\r\nEnd geometry\r\n");
  EXPECT_TRUE(data.has_geometry);
  EXPECT_TRUE(data.geometry_terminated);
  EXPECT_TRUE(is_at(data.geometry_location, 2, 19));
  EXPECT_THAT(data.geometry_lines, ElementsAre("H 0 0"));
  ASSERT_EQ(data.atoms.size(), 1U);
  const AtomRecord& atom = data.atoms[0];
  EXPECT_EQ(atom.element, "h1");
  EXPECT_EQ(atom.x, 0.0);
  EXPECT_EQ(atom.y, -1.5);
  EXPECT_EQ(atom.z, 2.0);
  EXPECT_EQ(atom.line, " h1 0 -1.5d0 2 extra");
  EXPECT_TRUE(is_at(atom.location, 3, 20));
}

TEST(ParsedGeometry, IsOpenWhenTheInputEndsFirst) {
  const BDFData data = parsed("HF/sto-3g\nGeometry\nH 0 0 0");
  EXPECT_TRUE(data.has_geometry);
  EXPECT_FALSE(data.geometry_terminated);
  EXPECT_EQ(data.atoms.size(), 1U);
}

TEST(ParsedEasyToken, LiesOnItsHeaderLineAndIsAsLongAsItsText) {
  const BDFData data = parsed("HF/sto-3g   Chg = 1\n");
  ASSERT_EQ(data.easy_tokens.size(), 2U);
  EXPECT_TRUE(is_at(data.easy_tokens[0].location, 1, 9));
  EXPECT_EQ(data.easy_tokens[1].text, "Chg=1");
  EXPECT_EQ(data.easy_tokens[1].key, "charge");
  EXPECT_TRUE(is_at(data.easy_tokens[1].location, 1, 5));
}

TEST(ParsedModule, KeepsHeaderAndEndAsTheyStood) {
  const BDFData data = parsed("  $SCF \n chg\n 1\n\t$End\n$nonsense\n");
  ASSERT_EQ(data.modules.size(), 2U);
  const Module& scf = data.modules[0];
  EXPECT_EQ(scf.name, "scf");
  EXPECT_TRUE(scf.known);
  EXPECT_TRUE(scf.terminated);
  EXPECT_EQ(scf.header_line, "  $SCF ");
  EXPECT_EQ(scf.end_line, "\t$End");
  EXPECT_THAT(scf.trailing_lines, IsEmpty());
  EXPECT_TRUE(is_at(scf.location, 1, 7));
  const Module& other = data.modules[1];
  EXPECT_EQ(other.name, "nonsense");
  EXPECT_FALSE(other.known);
  EXPECT_FALSE(other.terminated);
  EXPECT_EQ(other.end_line, "");
}

TEST(ParsedEntry, HasItsCanonicalNameItsValuesAndItsLine) {
  const BDFData data = parsed("$scf\n  CHG\n  1\n$end\n");
  ASSERT_EQ(data.modules.at(0).entries.size(), 1U);
  const ModuleEntry& entry = data.modules[0].entries[0];
  EXPECT_EQ(entry.name, "charge");
  EXPECT_EQ(entry.kind, EntryValueKind::Scalar);
  EXPECT_EQ(entry.terminator, "");
  EXPECT_EQ(entry.values.size(), 1U);
  EXPECT_THAT(entry.children, IsEmpty());
  EXPECT_TRUE(entry.known);
  EXPECT_TRUE(entry.terminated);
  EXPECT_EQ(entry.raw_line, "  CHG");
  EXPECT_TRUE(is_at(entry.location, 2, 5));
}

TEST(ParsedEntry, OfATerminatedBlockSaysWhetherItsEndWasFound) {
  const BDFData closed = parsed("$scf\nsolvent\nwater\nEnd Solvent\n$end\n");
  EXPECT_EQ(closed.modules.at(0).entries.at(0).terminator, "end solvent");
  EXPECT_TRUE(closed.modules[0].entries[0].terminated);
  EXPECT_FALSE(parsed("$scf\nsolvent\nwater\n").modules.at(0).entries.at(0).terminated);
}

TEST(ParsedEntry, OfANestedBlockHoldsItsChildren) {
  const BDFData data = parsed("$scf\noptions\ntol\n1e-8\n&end\n$end\n");
  const ModuleEntry& block = data.modules.at(0).entries.at(0);
  EXPECT_EQ(block.kind, EntryValueKind::NestedBlock);
  ASSERT_EQ(block.children.size(), 1U);
  EXPECT_EQ(block.children[0].name, "tol");
}

TEST(ParsedEntry, OfACommentIsRaw) {
  const BDFData data = parsed("$scf\n # Note this\n$end\n");
  const ModuleEntry& entry = data.modules.at(0).entries.at(0);
  EXPECT_EQ(entry.kind, EntryValueKind::Raw);
  EXPECT_EQ(entry.raw_line, " # Note this");
  EXPECT_FALSE(entry.known);
}

TEST(ParsedWarning, IsAWarningOfTheValidation) {
  ParseOptions options;
  options.custom_unknown_policy = true;
  options.unknown_policy = 1;
  const ParseResult result = BDFParser::parse_string("$nonsense\n$end\n", schema(), options);
  EXPECT_TRUE(result.ok);
  ASSERT_EQ(result.data.warnings.size(), 1U);
  EXPECT_EQ(result.data.warnings[0].code, "bdf.unknown_module");
  EXPECT_NE(result.data.warnings[0].message, "");
  EXPECT_TRUE(is_at(result.data.warnings[0].location, 1, 9));
}

TEST(ParsedResult, OfAnEmptyInputSaysSo) {
  const ParseResult result = BDFParser::parse_string(" \n\n", schema(), {});
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.error, "BDF input is empty");
}

}  // namespace
}  // namespace kelp::input::bdf
