#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <utility>

#include "editor_fixture.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

BDFData four_modules() {
  BDFData data = document_of({"compass", "scf", "scf", "extra"});
  data.modules[1].trailing_lines = {"first"};
  data.modules[2].trailing_lines = {"second"};
  return data;
}

TEST(MakingAModule, SetsCanonicalNameAndKnownFlagAndNothingElse) {
  const BDFEditor editor({}, small_schema());
  const Module made = editor.make_module(" $HFSCF ");
  EXPECT_EQ(made.name, "scf");
  EXPECT_TRUE(made.known);
  EXPECT_TRUE(made.terminated);
  EXPECT_EQ(made.header_line, "");
  EXPECT_EQ(made.end_line, "");
  EXPECT_THAT(made.entries, IsEmpty());
  EXPECT_THAT(made.trailing_lines, IsEmpty());
  EXPECT_FALSE(made.location);
}

TEST(MakingAModule, LeavesTheDocumentAlone) {
  const BDFEditor editor({}, small_schema());
  editor.make_module("scf");
  EXPECT_THAT(editor.data().modules, IsEmpty());
  EXPECT_THAT(editor.data().statements, IsEmpty());
}

TEST(MakingAModule, AcceptsAnUnknownName) {
  const Module made = module_named("$MyMod");
  EXPECT_EQ(made.name, "mymod");
  EXPECT_FALSE(made.known);
  EXPECT_TRUE(made.terminated);
}

TEST(AppendingAModule, AddsItWithAStatementAtTheEnd) {
  BDFEditor editor(document_of({"scf"}), small_schema());
  editor.append_shell_statement("%date");
  Module* const made = editor.append_module("COMPASS");
  EXPECT_EQ(made, &editor.data().modules.back());
  EXPECT_EQ(made->name, "compass");
  EXPECT_TRUE(made->known);
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0", "shell(%date)", "1"));
  EXPECT_EQ(editor.render(), "$scf\n$end\n%date\n$compass\n$end\n");
}

TEST(AppendingAModule, ToAnEmptyDocumentGivesModuleZero) {
  BDFData data;
  data.mode = InputMode::Module;
  BDFEditor editor(std::move(data), small_schema());
  editor.append_module("COMPASS");
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0"));
  EXPECT_EQ(editor.render(), "$compass\n$end\n");
}

TEST(AppendingAModule, TwiceGivesTwoModulesWhetherRepeatableOrNot) {
  BDFEditor editor({}, small_schema());
  for (const char* name : {"compass", "compass", "extra", "extra", "unheard", "unheard"}) {
    editor.append_module(name);
  }
  EXPECT_THAT(names_of(editor.data().modules),
              ElementsAre("compass", "compass", "extra", "extra", "unheard", "unheard"));
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0", "1", "2", "3", "4", "5"));
}

TEST(AppendingAModule, FollowsAPartialStatementOrderWithTheNewModulesPosition) {
  BDFData data = document_of({"compass", "scf"});
  data.statements = {module_statement(1)};
  BDFEditor editor(std::move(data), small_schema());
  editor.append_module("extra");
  EXPECT_THAT(order_of(editor.data()), ElementsAre("1", "2"));
}

TEST(AppendingAModule, CreatesTheStatementOrderFirstWhenTheRepairEmptiedIt) {
  BDFData data;
  data.free_lines = {"free"};
  data.statements = {module_statement(0)};
  BDFEditor editor(std::move(data), small_schema());
  editor.rebuild_statement_module_indices_after_erase(0);
  ASSERT_THAT(editor.data().statements, IsEmpty());
  editor.append_module("scf");
  EXPECT_THAT(order_of(editor.data()), ElementsAre("raw(free)", "0"));
}

TEST(UpsertingAModule, TwiceGivesOneModule) {
  BDFEditor editor({}, small_schema());
  Module* const first = editor.upsert_module("compass");
  EXPECT_EQ(editor.upsert_module("$Compas"), first);
  EXPECT_THAT(names_of(editor.data().modules), ElementsAre("compass"));
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0"));
}

TEST(UpsertingAModule, RefreshesNameKnownFlagAndEndAndKeepsTheRest) {
  BDFData data;
  data.mode = InputMode::Module;
  Module& stored = data.modules.emplace_back();
  stored.name = "HFSCF";
  stored.known = false;
  stored.terminated = false;
  stored.header_line = "$HFscf";
  stored.end_line = "$END";
  stored.entries.emplace_back().name = "rhf";
  stored.trailing_lines = {"kept"};
  stored.location = SourceSpan{3, 1, 6};
  BDFEditor editor(std::move(data), small_schema());
  const Module* const found = editor.upsert_module("uhfscf");
  EXPECT_EQ(found, &editor.data().modules[0]);
  EXPECT_EQ(found->name, "scf");
  EXPECT_TRUE(found->known);
  EXPECT_TRUE(found->terminated);
  EXPECT_EQ(found->header_line, "$HFscf");
  EXPECT_EQ(found->end_line, "$END");
  EXPECT_THAT(entries_of(*found), ElementsAre("rhf="));
  EXPECT_THAT(found->trailing_lines, ElementsAre("kept"));
  EXPECT_TRUE(found->location);
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0 @3"));
}

TEST(UpsertingAModule, ClearsTheKnownFlagOfAModuleThatTheSchemaDoesNotKnow) {
  BDFData data;
  data.modules.emplace_back().name = "unheard";
  data.modules[0].known = true;
  BDFEditor editor(std::move(data), small_schema());
  EXPECT_FALSE(editor.upsert_module("UNHEARD")->known);
}

TEST(UpsertingAModule, TakesTheFirstOfSeveral) {
  BDFEditor editor(four_modules(), small_schema());
  EXPECT_EQ(editor.upsert_module("scf"), &editor.data().modules[1]);
  EXPECT_EQ(editor.data().modules.size(), 4U);
}

TEST(UpsertingAModule, AppendsAnAbsentOne) {
  BDFEditor editor(document_of({"compass"}), small_schema());
  EXPECT_EQ(editor.upsert_module("hfscf")->name, "scf");
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0", "1"));
}

TEST(RemovingAModule, TakesTheChosenOccurrenceAndItsStatement) {
  BDFEditor editor(four_modules(), small_schema());
  EXPECT_TRUE(editor.remove_module("scf", 1));
  EXPECT_THAT(names_of(editor.data().modules), ElementsAre("compass", "scf", "extra"));
  EXPECT_THAT(editor.data().modules[1].trailing_lines, ElementsAre("first"));
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0", "1", "2"));
}

TEST(RemovingAModule, KeepsTheOrderOfStatementsThatDiffersFromTheModules) {
  BDFData data = four_modules();
  data.statements = {module_statement(3), side_statement(StatementKind::Raw, {"x"}),
                     module_statement(2), module_statement(1), module_statement(0)};
  BDFEditor editor(std::move(data), small_schema());
  EXPECT_TRUE(editor.remove_module("scf", 0));
  EXPECT_THAT(order_of(editor.data()), ElementsAre("2", "raw(x)", "1", "0"));
  EXPECT_EQ(editor.render(), "$extra\n$end\nx\n$scf\nsecond\n$end\n$compass\n$end\n");
}

TEST(RemovingAModule, FindsItByAliasAndCase) {
  BDFEditor editor(four_modules(), small_schema());
  EXPECT_TRUE(editor.remove_module("$HFSCF", 0));
  EXPECT_THAT(editor.data().modules[1].trailing_lines, ElementsAre("second"));
}

TEST(RemovingAModule, AnswersFalseAndChangesNothingWhenThereAreNotThatMany) {
  BDFEditor editor(four_modules(), small_schema());
  EXPECT_FALSE(editor.remove_module("scf", 2));
  EXPECT_FALSE(editor.remove_module("missing", 0));
  EXPECT_EQ(editor.data().modules.size(), 4U);
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0", "1", "2", "3"));
}

TEST(RemovingAllModulesOfAName, LeavesTheOthers) {
  BDFEditor editor(four_modules(), small_schema());
  EXPECT_TRUE(editor.remove_module("HFSCF"));
  EXPECT_THAT(names_of(editor.data().modules), ElementsAre("compass", "extra"));
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0", "1"));
  EXPECT_FALSE(editor.remove_module("scf"));
}

TEST(RemovingAllModulesOfAName, AnswersFalseForAMissingName) {
  BDFEditor editor(four_modules(), small_schema());
  EXPECT_FALSE(editor.remove_module("missing"));
  EXPECT_EQ(editor.data().modules.size(), 4U);
}

TEST(RemovingAllModulesOfAName, MayNameItThroughTheVeryModuleThatGoes) {
  BDFEditor editor(document_of({"scf", "extra", "scf"}), small_schema());
  EXPECT_TRUE(editor.remove_module(editor.data().modules[0].name));
  EXPECT_THAT(names_of(editor.data().modules), ElementsAre("extra"));
}

TEST(ModuleEdits, AcceptOddNames) {
  for (const char* name : {"", "$", "$end", "#", "a b", "\n", "$$x", "\xC3\xA4"}) {
    BDFEditor editor({}, small_schema());
    ASSERT_NE(editor.append_module(name), nullptr) << name;
    ASSERT_NE(editor.upsert_module(name), nullptr) << name;
    EXPECT_EQ(order_of(editor.data()).size(), editor.data().modules.size()) << name;
  }
}

TEST(Module, OfANameWithoutTextIsNone) {
  BDFEditor editor(document_of({"scf"}), small_schema());
  EXPECT_EQ(editor.module(std::string_view(nullptr, 3)), nullptr);
}

// Statements refer to modules twice, to none, or to some that are not there.
BDFData random_document(std::mt19937& random) {
  const Lines names = {"scf", "compass", "HFSCF", "extra", "unknown"};
  BDFData data;
  for (std::size_t count = random() % 8; count > 0; --count) {
    data.modules.push_back(module_named("x"));
    data.modules.back().name = names[random() % names.size()];
  }
  for (std::size_t count = random() % 12; count > 0; --count) {
    const std::size_t module = random() % 13 == 0 ? Statement::no_module : random() % 11;
    const StatementKind kind = random() % 5 == 0 ? StatementKind::Raw : StatementKind::Module;
    data.statements.push_back({kind, module, {}, std::nullopt});
  }
  return data;
}

TEST(RemoveModule, OfANameIsTheSameAsOneAfterTheOther) {
  std::mt19937 random(7);
  for (int i = 0; i < 2000; ++i) {
    BDFEditor one(random_document(random), small_schema());
    BDFEditor all = one;
    bool removed = false;
    while (one.remove_module("scf", 0)) {
      removed = true;
    }
    ASSERT_EQ(all.remove_module("uhfscf"), removed);
    ASSERT_EQ(all.data().modules.size(), one.data().modules.size());
    ASSERT_EQ(all.data().statements.size(), one.data().statements.size());
    for (std::size_t k = 0; k < one.data().modules.size(); ++k) {
      ASSERT_EQ(all.data().modules[k].name, one.data().modules[k].name);
    }
    for (std::size_t k = 0; k < one.data().statements.size(); ++k) {
      ASSERT_EQ(all.data().statements[k].kind, one.data().statements[k].kind);
      ASSERT_EQ(all.data().statements[k].module_index, one.data().statements[k].module_index);
    }
  }
}

BDFData many_modules() {
  Lines names;
  for (int i = 0; i < 200; ++i) {
    names.push_back(i % 3 == 0 ? "hfscf" : i % 3 == 1 ? "scf" : "extra");
  }
  return document_of(names);
}

// Edits among many modules find them in an index; `module` of a const editor never does.
TEST(EditingOneOfManyModules, ReachesTheOneThatIsFoundByGoingThroughThem) {
  std::mt19937 random(3);
  BDFEditor editor(many_modules(), small_schema());
  for (int step = 0; step < 3000; ++step) {
    const char* const name = random() % 2 == 0 ? "SCF" : " $extra";
    const std::size_t index = random() % 150;
    const bool was_there = std::as_const(editor).module(name, index) != nullptr;
    switch (random() % 8) {
      case 0:
        EXPECT_EQ(editor.remove_module(name, index), was_there);
        break;
      case 1: {
        const bool has_mark =
            was_there && std::as_const(editor).module(name, index)->find_entry("mark") != nullptr;
        EXPECT_EQ(editor.remove_module_entry(name, index, "mark", std::nullopt), has_mark);
        break;
      }
      default: {
        const std::string value = std::to_string(step);
        editor.set_module_entry(name, index, "mark", {value});
        const Module* const found = std::as_const(editor).module(name, index);
        ASSERT_NE(found, nullptr);
        ASSERT_NE(found->find_entry("mark"), nullptr);
        EXPECT_THAT(found->find_entry("mark")->values, ElementsAre(value));
      }
    }
  }
}

TEST(EditingOneOfManyModules, TakesARenamedModuleByItsNewName) {
  BDFEditor editor(many_modules(), small_schema());
  Module* const first = editor.module("scf", 0);
  editor.set_module_entry("scf", 100, "mark", {"1"});
  const Module* const marked = std::as_const(editor).module("scf", 100);
  first->name = "extra";
  EXPECT_EQ(std::as_const(editor).module("scf", 99), marked);
  editor.set_module_entry("scf", 99, "mark", {"2"});
  EXPECT_THAT(marked->find_entry("mark")->values, ElementsAre("2"));
}

}  // namespace
}  // namespace kelp::input::bdf
