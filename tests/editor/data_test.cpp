#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <type_traits>

#include "editor_fixture.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

static_assert(noexcept(std::declval<BDFEditor&>().module("scf", 0)));
static_assert(noexcept(std::declval<const BDFEditor&>().module("scf", 0)));
static_assert(noexcept(std::declval<const BDFEditor&>().data()));
static_assert(!std::is_polymorphic_v<BDFEditor>);
static_assert(std::is_nothrow_move_constructible_v<BDFEditor>);
static_assert(std::is_nothrow_move_assignable_v<BDFEditor>);

SourceSpan line_span(std::uint64_t line) {
  return {line, 1, 8};
}

TEST(Editor, GivesReadAccessToTheDocumentItTookOver) {
  BDFData data = document_of({"compass", "scf"});
  data.script_name = "water.bdf";
  const BDFEditor editor(std::move(data), small_schema());
  EXPECT_EQ(editor.data().script_name, "water.bdf");
  EXPECT_THAT(names_of(editor.data().modules), ElementsAre("compass", "scf"));
}

TEST(Editor, OwnsItsDocumentAndLeavesTheHostsCopyAlone) {
  BDFData data = document_of({"scf"});
  BDFEditor editor(data, small_schema());
  editor.append_module("compass");
  EXPECT_EQ(data.modules.size(), 1U);
  EXPECT_THAT(data.statements, IsEmpty());
}

TEST(Editor, KeepsTheSchemaAliveWhenTheHostDropsItsCopy) {
  auto schema = std::make_unique<InputSchema>(
      InputSchema::from_yaml("{schema_version: 1, modules: {scf: {aliases: [hfscf]}}}"));
  BDFEditor editor(document_of({"scf"}), *schema);
  schema.reset();
  EXPECT_EQ(editor.module("HFSCF"), &editor.data().modules[0]);
}

TEST(Editor, CopiesChangeIndependently) {
  BDFEditor first(document_of({"scf"}), small_schema());
  BDFEditor second = first;
  second.append_module("extra");
  second.upsert_module("scf")->trailing_lines = {"only in the copy"};
  EXPECT_THAT(names_of(first.data().modules), ElementsAre("scf"));
  EXPECT_EQ(first.render(), "$scf\n$end\n");
  EXPECT_EQ(second.render(), "$scf\nonly in the copy\n$end\n$extra\n$end\n");
}

TEST(Editor, AMovedEditorTakesDocumentAndSchemaAlong) {
  BDFEditor first(document_of({"scf"}), small_schema());
  BDFEditor second = std::move(first);
  EXPECT_NE(second.module("hfscf"), nullptr);
  EXPECT_EQ(second.render(), "$scf\n$end\n");
}

TEST(EditorMode, ChangingItLeavesStatementsTokensGeometryAndModulesAsTheyWere) {
  BDFData data = document_of({"scf"}, InputMode::Mixed);
  data.free_lines = {"a line"};
  data.has_geometry = true;
  data.atoms = {atom("He")};
  data.geometry_lines = {"# note"};
  BDFEditor editor(std::move(data), small_schema());
  editor.add_easy_token("hf/cc-pvdz");
  editor.set_mode(InputMode::Module);
  EXPECT_EQ(editor.data().mode, InputMode::Module);
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0", "raw(a line)"));
  EXPECT_THAT(texts_of(editor.data().easy_tokens), ElementsAre("hf/cc-pvdz"));
  EXPECT_TRUE(editor.data().has_geometry);
  EXPECT_EQ(editor.data().atoms.size(), 1U);
  EXPECT_THAT(editor.data().geometry_lines, ElementsAre("# note"));
  EXPECT_THAT(names_of(editor.data().modules), ElementsAre("scf"));
}

TEST(EditorMode, ChangingItThereAndBackGivesTheSameText) {
  BDFEditor editor(document_of({"scf"}, InputMode::Easy), small_schema());
  editor.set_easy_tokens({"hf/cc-pvdz"});
  const std::string before = editor.render();
  editor.set_mode(InputMode::Module);
  EXPECT_NE(editor.render(), before);
  editor.set_mode(InputMode::Easy);
  EXPECT_EQ(editor.render(), before);
}

TEST(EditorModuleLookup, CountsModulesOfOneNameInDocumentOrder) {
  BDFEditor editor(document_of({"alpha", "beta", "alpha"}), small_schema());
  const std::vector<Module>& modules = editor.data().modules;
  EXPECT_EQ(editor.module("alpha", 0), &modules[0]);
  EXPECT_EQ(editor.module("alpha", 1), &modules[2]);
  EXPECT_EQ(editor.module("alpha", 2), nullptr);
  EXPECT_EQ(editor.module("beta", 0), &modules[1]);
  EXPECT_EQ(editor.module("beta", 1), nullptr);
}

TEST(EditorModuleLookup, AnswersNullForAnAbsentNameAndForTheLargestIndex) {
  BDFEditor editor(document_of({"scf"}), small_schema());
  EXPECT_EQ(editor.module("compass"), nullptr);
  EXPECT_EQ(editor.module("scf", static_cast<std::size_t>(-1)), nullptr);
  EXPECT_EQ(BDFEditor({}, small_schema()).module("scf"), nullptr);
}

TEST(EditorModuleLookup, FindsAModuleStoredUnderAnAliasOrInAnotherCase) {
  BDFData data;
  for (const char* name : {"HFSCF", "scf", "$UhfScf ", "compass"}) {
    data.modules.emplace_back().name = name;
  }
  const BDFEditor editor(std::move(data), small_schema());
  for (const char* wanted : {"scf", "SCF", "$scf", " hfscf\t", "UHFSCF"}) {
    for (std::size_t i = 0; i < 3; ++i) {
      EXPECT_EQ(editor.module(wanted, i), &editor.data().modules[i]) << wanted << ' ' << i;
    }
    EXPECT_EQ(editor.module(wanted, 3), nullptr) << wanted;
  }
}

TEST(EditorModuleLookup, ComparesUnknownNamesWithoutRegardToCase) {
  BDFEditor editor(document_of({"MyMod"}), small_schema());
  EXPECT_EQ(editor.module("$mymod"), &editor.data().modules[0]);
  EXPECT_EQ(editor.module("my mod"), nullptr);
}

TEST(EditorModuleLookup, TheConstSearchAnswersTheSame) {
  BDFEditor editor(document_of({"scf", "extra", "scf"}), small_schema());
  const BDFEditor& constant = editor;
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(constant.module("hfscf", i), editor.module("hfscf", i)) << i;
  }
}

TEST(EditorModuleLookup, AModuleFoundCanBeChangedInPlace) {
  BDFEditor editor(document_of({"scf"}), small_schema());
  editor.module("scf")->trailing_lines.push_back("# seen");
  EXPECT_EQ(editor.render(), "$scf\n# seen\n$end\n");
}

TEST(EditorValidation, GivesTheFindingsOfTheSchemaWithDefaultOptions) {
  BDFData data = document_of({"scf", "scf", "unheard"}, InputMode::Mixed);
  data.modules[1].location = line_span(7);
  data.modules[1].terminated = false;
  const BDFEditor editor(data, small_schema());
  const std::vector<ValidationIssue> expected = small_schema().validate(data, {});
  const std::vector<ValidationIssue> issues = editor.validate();
  ASSERT_FALSE(expected.empty());
  ASSERT_EQ(issues.size(), expected.size());
  for (std::size_t i = 0; i < issues.size(); ++i) {
    EXPECT_EQ(issues[i].code, expected[i].code) << i;
    EXPECT_EQ(issues[i].message, expected[i].message) << i;
    EXPECT_EQ(issues[i].severity, expected[i].severity) << i;
    ASSERT_EQ(issues[i].location.has_value(), expected[i].location.has_value()) << i;
    if (expected[i].location) {
      EXPECT_EQ(issues[i].location->line, expected[i].location->line) << i;
    }
  }
}

TEST(EditorValidation, FollowsTheEdits) {
  BDFEditor editor(document_of({"scf", "scf"}), small_schema());
  const std::size_t before = editor.validate().size();
  editor.remove_module("scf", 1);
  EXPECT_LT(editor.validate().size(), before);
}

}  // namespace
}  // namespace kelp::input::bdf
