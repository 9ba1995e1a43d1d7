#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor_fixture.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(StatementOrder, ADocumentWithoutOneGetsAllModulesInDocumentOrder) {
  const BDFEditor editor(document_of({"alpha", "beta", "alpha"}), small_schema());
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0", "1", "2"));
}

TEST(StatementOrder, FreeLinesFollowTheModulesAsOneRawStatementEach) {
  BDFData data = document_of({"scf"});
  data.free_lines = {"%echo hello", "", "&database", "  text  "};
  const BDFEditor editor(std::move(data), small_schema());
  EXPECT_THAT(order_of(editor.data()),
              ElementsAre("0", "raw(%echo hello)", "raw()", "raw(&database)", "raw(  text  )"));
  for (const Statement& statement : editor.data().statements) {
    EXPECT_EQ(statement.lines.size(), statement.kind == StatementKind::Module ? 0U : 1U);
  }
}

TEST(StatementOrder, TwoFreeLinesAloneGiveTwoRawStatements) {
  BDFData data;
  data.free_lines = {"one", "two"};
  const BDFEditor editor(std::move(data), small_schema());
  EXPECT_THAT(order_of(editor.data()), ElementsAre("raw(one)", "raw(two)"));
  EXPECT_THAT(editor.data().free_lines, ElementsAre("one", "two"));
}

TEST(StatementOrder, AModuleStatementCopiesTheModulesLocationOrItsAbsence) {
  BDFData data = document_of({"scf", "extra"});
  data.modules[0].location = SourceSpan{12, 1, 4};
  const BDFEditor editor(std::move(data), small_schema());
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0 @12", "1"));
  EXPECT_EQ(editor.data().statements[0].location->length, 4U);
}

TEST(StatementOrder, AnEmptyDocumentHasNone) {
  EXPECT_THAT(BDFEditor({}, small_schema()).data().statements, IsEmpty());
}

TEST(StatementOrder, LeadingLinesTokensAndGeometryAreNoStatements) {
  BDFData data;
  data.leading_lines = {"# note"};
  data.has_geometry = true;
  data.geometry_lines = {"line"};
  data.easy_tokens.emplace_back().text = "hf";
  EXPECT_THAT(BDFEditor(std::move(data), small_schema()).data().statements, IsEmpty());
}

TEST(StatementOrder, AnExistingOneIsKeptEvenWhenItListsOnlySomeModules) {
  BDFData data = document_of({"compass", "scf", "extra"});
  data.free_lines = {"unlisted"};
  data.statements = {side_statement(StatementKind::Comment, {"# first"}), module_statement(2)};
  const BDFEditor editor(std::move(data), small_schema());
  EXPECT_THAT(order_of(editor.data()), ElementsAre("comment(# first)", "2"));
  EXPECT_EQ(editor.render(), "# first\n$extra\n$end\n");
}

TEST(StatementOrder, BuildingItAgainChangesNothing) {
  BDFData data = document_of({"compass"});
  data.free_lines = {"free"};
  BDFEditor editor(std::move(data), small_schema());
  editor.ensure_statement_order();
  editor.ensure_statement_order();
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0", "raw(free)"));
}

TEST(StatementOrder, ANewDocumentGetsItsOwn) {
  BDFEditor editor(document_of({"compass", "scf"}), small_schema());
  BDFData next = document_of({"extra"}, InputMode::Easy);
  next.free_lines = {"free"};
  editor.set_data(std::move(next));
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0", "raw(free)"));
  EXPECT_THAT(names_of(editor.data().modules), ElementsAre("extra"));
  EXPECT_EQ(editor.data().mode, InputMode::Easy);
  EXPECT_NE(editor.module("EXTRA"), nullptr);
}

TEST(StatementOrder, ANewDocumentKeepsTheOneItBrings) {
  BDFEditor editor(document_of({"scf"}), small_schema());
  BDFData next = document_of({"compass", "extra"});
  next.statements = {module_statement(1), module_statement(0)};
  editor.set_data(std::move(next));
  EXPECT_THAT(order_of(editor.data()), ElementsAre("1", "0"));
}

TEST(StatementRepair, DropsTheErasedModulesStatementAndLowersLaterIndices) {
  BDFData data;
  data.statements = {module_statement(0), module_statement(1),
                     side_statement(StatementKind::Raw, {"raw"}), module_statement(2)};
  BDFEditor editor(std::move(data), small_schema());
  editor.rebuild_statement_module_indices_after_erase(1);
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0", "raw(raw)", "1"));
}

TEST(StatementRepair, DropsEveryStatementOfTheErasedModule) {
  BDFData data;
  data.statements = {module_statement(3), module_statement(1), module_statement(0),
                     module_statement(1), module_statement(2)};
  BDFEditor editor(std::move(data), small_schema());
  editor.rebuild_statement_module_indices_after_erase(1);
  EXPECT_THAT(order_of(editor.data()), ElementsAre("2", "0", "1"));
}

TEST(StatementRepair, AnIndexThatNoStatementCarriesOnlyLowersTheLargerOnes) {
  BDFData data;
  data.statements = {module_statement(5), module_statement(2), module_statement(9)};
  BDFEditor editor(std::move(data), small_schema());
  editor.rebuild_statement_module_indices_after_erase(4);
  EXPECT_THAT(order_of(editor.data()), ElementsAre("4", "2", "8"));
}

TEST(StatementRepair, AModuleStatementWithoutAModuleSurvives) {
  BDFData data;
  data.statements = {module_statement(Statement::no_module), module_statement(1)};
  BDFEditor editor(std::move(data), small_schema());
  editor.rebuild_statement_module_indices_after_erase(0);
  editor.rebuild_statement_module_indices_after_erase(7);
  EXPECT_THAT(order_of(editor.data()), ElementsAre("none", "0"));
}

TEST(StatementRepair, SideStatementsAreLeftAloneWhateverIndexTheyCarry) {
  BDFData data;
  data.statements = {side_statement(StatementKind::Shell, {"%a"}), module_statement(1)};
  data.statements[0].module_index = 0;
  data.statements.push_back(side_statement(StatementKind::Raw, {"b"}));
  data.statements[2].module_index = 5;
  BDFEditor editor(std::move(data), small_schema());
  editor.rebuild_statement_module_indices_after_erase(0);
  ASSERT_EQ(editor.data().statements.size(), 3U);
  EXPECT_EQ(editor.data().statements[0].module_index, 0U);
  EXPECT_EQ(editor.data().statements[1].module_index, 0U);
  EXPECT_EQ(editor.data().statements[2].module_index, 5U);
}

TEST(StatementRepair, DoesNotLookAtTheModules) {
  BDFEditor editor(document_of({"compass", "scf"}), small_schema());
  editor.rebuild_statement_module_indices_after_erase(0);
  EXPECT_THAT(names_of(editor.data().modules), ElementsAre("compass", "scf"));
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0"));
}

}  // namespace
}  // namespace kelp::input::bdf
