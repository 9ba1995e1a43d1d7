#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor_fixture.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

BDFEditor editor_with_charges(const Lines& charges) {
  BDFEditor editor(document_of({"scf"}), small_schema());
  for (const std::string& charge : charges) {
    editor.append_module_entry("scf", "charge", {charge});
  }
  return editor;
}

Lines entries_of_scf(const BDFEditor& editor) {
  return entries_of(*editor.module("scf"));
}

TEST(AppendingAnEntry, TakesEverythingButTheValuesFromTheSchema) {
  BDFEditor editor(document_of({"scf"}), small_schema());
  const ModuleEntry* const made = editor.append_module_entry("HFSCF", " TEXT", {" a ", "", "b"});
  EXPECT_EQ(made, &editor.data().modules[0].entries.back());
  EXPECT_EQ(made->name, "text");
  EXPECT_TRUE(made->known);
  EXPECT_EQ(made->kind, EntryValueKind::TerminatedBlock);
  EXPECT_EQ(made->terminator, "endtext");
  EXPECT_THAT(made->values, ElementsAre(" a ", "", "b"));
  EXPECT_THAT(made->children, IsEmpty());
  EXPECT_EQ(made->raw_line, "");
  EXPECT_TRUE(made->terminated);
  EXPECT_FALSE(made->location);
}

TEST(AppendingAnEntry, AnUnknownOneIsRaw) {
  BDFEditor editor({}, small_schema());
  const ModuleEntry* made = editor.append_module_entry("scf", "Unheard", {"1"});
  EXPECT_EQ(made->name, "unheard");
  EXPECT_FALSE(made->known);
  EXPECT_EQ(made->kind, EntryValueKind::Raw);
  EXPECT_EQ(made->terminator, "");
  made = editor.append_module_entry("mymod", "charge", {"1"});
  EXPECT_FALSE(made->known);
  EXPECT_EQ(made->kind, EntryValueKind::Raw);
}

TEST(AppendingAnEntry, ResolvesAliasesWithinItsModule) {
  BDFEditor editor({}, small_schema());
  EXPECT_EQ(editor.append_module_entry("scf", "CHG", {"1"})->name, "charge");
  EXPECT_EQ(editor.append_module_entry("compass", "chg", {"1"})->name, "chg");
}

TEST(AppendingAnEntry, MakesNoCheckForDuplicates) {
  const BDFEditor editor = editor_with_charges({"1", "2", "1"});
  EXPECT_THAT(entries_of_scf(editor), ElementsAre("charge=1", "charge=2", "charge=1"));
}

TEST(AppendingAnEntry, CreatesAsManyModulesAsTheIndexAsksFor) {
  BDFEditor editor(document_of({"compass"}), small_schema());
  editor.append_module_entry("scf", "x", {"1"}, 1);
  EXPECT_THAT(names_of(editor.data().modules), ElementsAre("compass", "scf", "scf"));
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0", "1", "2"));
  EXPECT_THAT(editor.data().modules[1].entries, IsEmpty());
  EXPECT_THAT(entries_of(editor.data().modules[2]), ElementsAre("x=1"));
}

TEST(AppendingAnEntry, CountsTheModulesThatAreThereAlready) {
  BDFEditor editor(document_of({"scf", "compass"}), small_schema());
  editor.append_module_entry("hfscf", "rhf", {}, 2);
  EXPECT_THAT(names_of(editor.data().modules), ElementsAre("scf", "compass", "scf", "scf"));
  EXPECT_THAT(entries_of(editor.data().modules[3]), ElementsAre("rhf="));
}

TEST(AppendingAnEntry, MayNameModuleAndEntryThroughTheDocumentItself) {
  BDFEditor editor(document_of({"compass", "scf"}), small_schema());
  // Room is exhausted on purpose: the name's owner moves while modules are added.
  editor.append_module_entry(editor.data().modules[1].name, "rhf", {}, 9);
  EXPECT_EQ(editor.data().modules.size(), 11U);
  EXPECT_THAT(entries_of(*editor.module("scf", 9)), ElementsAre("rhf="));
}

TEST(SettingAnEntry, ReplacesTheValuesOfTheFirstMatchOnly) {
  BDFEditor editor = editor_with_charges({"1", "2"});
  const ModuleEntry* const set = editor.set_module_entry("scf", "charge", {"0"});
  EXPECT_EQ(set, &editor.data().modules[0].entries[0]);
  EXPECT_THAT(entries_of_scf(editor), ElementsAre("charge=0", "charge=2"));
}

TEST(SettingAnEntry, KeepsItsPosition) {
  BDFEditor editor(document_of({"scf"}), small_schema());
  for (const char* name : {"rhf", "charge", "spinmulti"}) {
    editor.append_module_entry("scf", name, {});
  }
  editor.set_module_entry("scf", "chg", {"2"});
  EXPECT_THAT(entries_of_scf(editor), ElementsAre("rhf=", "charge=2", "spinmulti="));
}

TEST(SettingAnEntry, AppendsAnAbsentOne) {
  BDFEditor editor = editor_with_charges({"1"});
  const ModuleEntry* const set = editor.set_module_entry("scf", " SpinMulti ", {"3"});
  EXPECT_EQ(set, &editor.data().modules[0].entries[1]);
  EXPECT_TRUE(set->known);
  EXPECT_EQ(set->kind, EntryValueKind::Scalar);
  EXPECT_THAT(entries_of_scf(editor), ElementsAre("charge=1", "spinmulti=3"));
}

TEST(SettingAnEntry, DropsTheChildrenOfANestedBlock) {
  BDFEditor editor(document_of({"scf"}), small_schema());
  ModuleEntry* const grid = editor.append_module_entry("scf", "grid", {});
  grid->children.resize(3);
  EXPECT_EQ(editor.set_module_entry("scf", "GRID", {"v"}), grid);
  EXPECT_THAT(grid->children, IsEmpty());
  EXPECT_THAT(grid->values, ElementsAre("v"));
  EXPECT_EQ(grid->kind, EntryValueKind::NestedBlock);
}

TEST(SettingAnEntry, RecomputesFlagsAndKeepsKeywordLineAndLocation) {
  BDFData data = document_of({"scf"});
  ModuleEntry& stored = data.modules[0].entries.emplace_back();
  stored.name = "Text";
  stored.kind = EntryValueKind::Raw;
  stored.terminator = "stale";
  stored.terminated = false;
  stored.raw_line = "  TEXT here";
  stored.location = SourceSpan{4, 1, 11};
  BDFEditor editor(std::move(data), small_schema());
  const ModuleEntry* const set = editor.set_module_entry("scf", "text", {"v"});
  EXPECT_EQ(editor.data().modules[0].entries.size(), 1U);
  EXPECT_EQ(set->name, "text");
  EXPECT_TRUE(set->known);
  EXPECT_EQ(set->kind, EntryValueKind::TerminatedBlock);
  EXPECT_EQ(set->terminator, "endtext");
  EXPECT_TRUE(set->terminated);
  EXPECT_EQ(set->raw_line, "  TEXT here");
  EXPECT_EQ(set->location->line, 4U);
}

TEST(SettingAnEntry, AnUnknownOneStillRendersWithTheKeywordLineItWasReadWith) {
  BDFData data = document_of({"scf"});
  ModuleEntry& stored = data.modules[0].entries.emplace_back();
  stored.name = "unheard";
  stored.kind = EntryValueKind::Raw;
  stored.raw_line = "  UnHeard  # odd";
  stored.values = {" old"};
  BDFEditor editor(std::move(data), small_schema());
  editor.set_module_entry("scf", "unheard", {" new"});
  EXPECT_EQ(editor.render(), "$scf\n  UnHeard  # odd\n new\n$end\n");
}

TEST(SettingAnEntry, InALaterModuleLeavesTheEarlierOneAlone) {
  BDFEditor editor(document_of({"scf", "scf"}), small_schema());
  editor.set_module_entry("scf", 1, "charge", {"5"});
  EXPECT_THAT(editor.data().modules[0].entries, IsEmpty());
  EXPECT_THAT(entries_of(editor.data().modules[1]), ElementsAre("charge=5"));
}

TEST(SettingAnEntry, CreatesModulesUpToItsIndexOnce) {
  BDFEditor editor({}, small_schema());
  editor.set_module_entry("scf", 2, "charge", {"5"});
  editor.set_module_entry("scf", 2, "charge", {"6"});
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0", "1", "2"));
  EXPECT_THAT(entries_of(editor.data().modules[2]), ElementsAre("charge=6"));
}

// An entry stored under an alias is not found by the canonical name: the search is the document's,
// which knows no aliases.
TEST(SettingAnEntry, DoesNotSeeAnEntryStoredUnderAnAlias) {
  BDFData data = document_of({"scf"});
  data.modules[0].entries.emplace_back().name = "chg";
  BDFEditor editor(std::move(data), small_schema());
  editor.set_module_entry("scf", "charge", {"1"});
  EXPECT_THAT(entries_of_scf(editor), ElementsAre("chg=", "charge=1"));
}

TEST(RemovingEntries, WithoutAnOccurrenceTakesAllMatches) {
  BDFEditor editor = editor_with_charges({"1", "2"});
  editor.append_module_entry("scf", "rhf", {});
  editor.append_module_entry("scf", "CHG", {"3"});
  EXPECT_TRUE(editor.remove_module_entry("scf", 0, "charge", std::nullopt));
  EXPECT_THAT(entries_of_scf(editor), ElementsAre("rhf="));
  EXPECT_FALSE(editor.remove_module_entry("scf", 0, "charge", std::nullopt));
}

TEST(RemovingEntries, WithAnOccurrenceTakesThatOne) {
  BDFEditor editor = editor_with_charges({"1", "2"});
  EXPECT_TRUE(editor.remove_module_entry("scf", 0, "charge", 1));
  EXPECT_THAT(entries_of_scf(editor), ElementsAre("charge=1"));
  EXPECT_FALSE(editor.remove_module_entry("scf", 0, "charge", 1));
  EXPECT_THAT(entries_of_scf(editor), ElementsAre("charge=1"));
  EXPECT_TRUE(editor.remove_module_entry("scf", 0, "charge", 0));
  EXPECT_THAT(entries_of_scf(editor), IsEmpty());
}

TEST(RemovingEntries, MatchesEntriesStoredUnderAnAliasToo) {
  BDFData data = document_of({"scf"});
  for (const char* name : {"CHG", "rhf", "charge"}) {
    data.modules[0].entries.emplace_back().name = name;
  }
  BDFEditor editor(std::move(data), small_schema());
  EXPECT_TRUE(editor.remove_module_entry("scf", 0, "charge", 1));
  EXPECT_THAT(entries_of_scf(editor), ElementsAre("CHG=", "rhf="));
  EXPECT_TRUE(editor.remove_module_entry("scf", "charge"));
  EXPECT_THAT(entries_of_scf(editor), ElementsAre("rhf="));
}

TEST(RemovingEntries, NeverMatchesChildren) {
  BDFEditor editor(document_of({"scf"}), small_schema());
  ModuleEntry* const grid = editor.append_module_entry("scf", "grid", {});
  grid->children.emplace_back().name = "charge";
  EXPECT_FALSE(editor.remove_module_entry("scf", "charge"));
  EXPECT_EQ(editor.data().modules[0].entries[0].children.size(), 1U);
}

TEST(RemovingEntries, NeverCreatesAModule) {
  BDFEditor editor(document_of({"scf"}), small_schema());
  EXPECT_FALSE(editor.remove_module_entry("scf", 1, "charge", std::nullopt));
  EXPECT_FALSE(editor.remove_module_entry("compass", 0, "charge", 0));
  EXPECT_THAT(names_of(editor.data().modules), ElementsAre("scf"));
}

TEST(RemovingEntries, TheShortFormServesTheFirstModule) {
  BDFEditor editor(document_of({"scf", "scf"}), small_schema());
  editor.set_module_entry("scf", 0, "rhf", {});
  editor.set_module_entry("scf", 1, "rhf", {});
  EXPECT_TRUE(editor.remove_module_entry("hfscf", "RHF"));
  EXPECT_THAT(editor.data().modules[0].entries, IsEmpty());
  EXPECT_THAT(entries_of(editor.data().modules[1]), ElementsAre("rhf="));
  EXPECT_FALSE(editor.remove_module_entry("hfscf", "RHF"));
}

TEST(RemovingEntries, MayNameTheEntryThroughTheVeryEntryThatGoes) {
  BDFEditor editor = editor_with_charges({"1", "2", "3"});
  const Module& scf = editor.data().modules[0];
  EXPECT_TRUE(editor.remove_module_entry(scf.name, scf.entries[0].name));
  EXPECT_THAT(scf.entries, IsEmpty());
}

}  // namespace
}  // namespace kelp::input::bdf
