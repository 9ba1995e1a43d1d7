#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "kelp/input/bdf/document.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ModuleEntry entry_named(const std::string& name) {
  ModuleEntry entry;
  entry.name = name;
  return entry;
}

Module module_named(const std::string& name) {
  Module module;
  module.name = name;
  return module;
}

EasyToken token_of(const std::string& text, const std::string& key, const std::string& canonical) {
  EasyToken token;
  token.text = text;
  token.key = key;
  token.canonical = canonical;
  return token;
}

BDFData document() {
  BDFData data;
  for (const char* name : {"compass", "scf", "compass", ""}) {
    data.modules.push_back(module_named(name));
  }
  return data;
}

TEST(FindModule, FindsTheFirstOfThatName) {
  const BDFData data = document();
  EXPECT_EQ(data.find_module("compass"), &data.modules[0]);
  EXPECT_EQ(data.find_module("scf"), &data.modules[1]);
}

TEST(FindModule, LooksThroughDollarsBlanksAndCase) {
  const BDFData data = document();
  for (const char* name : {"$SCF", "scf ", " $$ Scf\t\r\n", "\n$scf"}) {
    EXPECT_EQ(data.find_module(name), &data.modules[1]) << testing::PrintToString(name);
  }
}

TEST(FindModule, ReturnsNullForAnAbsentName) {
  const BDFData data = document();
  EXPECT_EQ(data.find_module("tddft"), nullptr);
  EXPECT_EQ(data.find_module("scf$"), nullptr);
  EXPECT_EQ(BDFData().find_module("scf"), nullptr);
}

TEST(FindModule, FindsANamelessModuleByAnEmptyNameOnly) {
  const BDFData data = document();
  EXPECT_EQ(data.find_module(""), &data.modules[3]);
  EXPECT_EQ(data.find_module(" $ "), &data.modules[3]);
  EXPECT_EQ(data.module_count(""), 1U);
}

TEST(FindModule, KnowsNoAliases) {
  BDFData data;
  data.modules.push_back(module_named("xuanyuan"));
  EXPECT_EQ(data.find_module("xuan"), nullptr);
}

TEST(FindModules, ReturnsAllOfThatNameInOrder) {
  const BDFData data = document();
  EXPECT_THAT(data.find_modules("$Compass"), ElementsAre(&data.modules[0], &data.modules[2]));
  EXPECT_THAT(data.find_modules("tddft"), IsEmpty());
}

TEST(ModuleCount, CountsThoseOfThatName) {
  const BDFData data = document();
  EXPECT_EQ(data.module_count("COMPASS"), 2U);
  EXPECT_EQ(data.module_count("scf"), 1U);
  EXPECT_EQ(data.module_count("tddft"), 0U);
}

TEST(FindEasyToken, ComparesTheKeyWhereThereIsOne) {
  BDFData data;
  data.easy_tokens = {token_of("scf=rhf", "scf", "scf=rhf")};
  EXPECT_EQ(data.find_easy_token("SCF"), &data.easy_tokens[0]);
  EXPECT_EQ(data.find_easy_token("scf=rhf"), nullptr);
}

TEST(FindEasyToken, ComparesTheCanonicalFormOfATokenWithoutAKey) {
  BDFData data;
  data.easy_tokens = {token_of("A/B/C/D", "", "a/b/c/d")};
  data.easy_tokens[0].text = "something else";
  EXPECT_EQ(data.find_easy_token("A/b/c/d"), &data.easy_tokens[0]);
  EXPECT_EQ(data.find_easy_token("something else"), nullptr);
}

TEST(FindEasyToken, ComparesTheTextOfATokenWithNeither) {
  BDFData data;
  data.easy_tokens = {token_of("#Note", "", "")};
  EXPECT_EQ(data.find_easy_token("#note"), &data.easy_tokens[0]);
}

TEST(FindEasyToken, FindsTheFirstOfThatName) {
  BDFData data;
  data.easy_tokens = {token_of("x=1", "x", "x=1"), token_of("X=2", "x", "x=2")};
  EXPECT_EQ(data.find_easy_token("x"), &data.easy_tokens[0]);
}

TEST(FindEasyToken, TakesAKeyThatIsOnlyBlankForAnEmptyName) {
  BDFData data;
  data.easy_tokens = {token_of("x", " ", "x")};
  EXPECT_EQ(data.find_easy_token(""), &data.easy_tokens[0]);
  EXPECT_EQ(data.find_easy_token("x"), nullptr);
}

TEST(FindEntry, FindsEntriesOfAModule) {
  Module module;
  module.entries = {entry_named("charge"), entry_named("rhf"), entry_named("charge")};
  const Module& same = module;
  EXPECT_EQ(same.find_entry(" CHARGE"), &module.entries[0]);
  EXPECT_EQ(same.find_entry("$rhf"), &module.entries[1]);
  EXPECT_EQ(same.find_entry("uhf"), nullptr);
  EXPECT_THAT(same.find_entries("charge"), ElementsAre(&module.entries[0], &module.entries[2]));
  EXPECT_THAT(same.find_entries("uhf"), IsEmpty());
}

TEST(FindChild, FindsChildrenOfABlock) {
  ModuleEntry block;
  block.children = {entry_named("grid"), entry_named("tol"), entry_named("grid")};
  const ModuleEntry& same = block;
  EXPECT_EQ(same.find_child("Grid"), &block.children[0]);
  EXPECT_EQ(same.find_child("tol\r\n"), &block.children[1]);
  EXPECT_EQ(same.find_child("none"), nullptr);
  EXPECT_THAT(same.find_children("GRID"), ElementsAre(&block.children[0], &block.children[2]));
  EXPECT_THAT(same.find_children("none"), IsEmpty());
}

TEST(FindChild, DoesNotLookIntoGrandchildren) {
  ModuleEntry block;
  block.children = {entry_named("outer")};
  block.children[0].children = {entry_named("inner")};
  EXPECT_EQ(block.find_child("inner"), nullptr);
}

TEST(MutableLookUps, GiveTheSameRecordsToBeChanged) {
  BDFData data = document();
  data.easy_tokens = {token_of("x", "x", "x")};
  Module& module = data.modules[1];
  module.entries = {entry_named("charge")};
  module.entries[0].children = {entry_named("child")};
  EXPECT_EQ(data.find_module("scf"), &module);
  EXPECT_THAT(data.find_modules("compass"), ElementsAre(&data.modules[0], &data.modules[2]));
  EXPECT_EQ(data.find_easy_token("x"), &data.easy_tokens[0]);
  EXPECT_EQ(module.find_entry("charge"), &module.entries[0]);
  EXPECT_THAT(module.find_entries("charge"), ElementsAre(&module.entries[0]));
  EXPECT_EQ(module.entries[0].find_child("child"), &module.entries[0].children[0]);
  EXPECT_THAT(module.entries[0].find_children("child"),
              ElementsAre(&module.entries[0].children[0]));
  data.find_module("scf")->name = "mp2";
  EXPECT_EQ(module.name, "mp2");
}

TEST(MutableLookUps, ExistBesideConstantOnes) {
  using Mutable = BDFData;
  using Constant = const BDFData;
  static_assert(std::is_same_v<decltype(std::declval<Mutable&>().find_module("")), Module*>);
  static_assert(std::is_same_v<decltype(std::declval<Constant&>().find_module("")), const Module*>);
  static_assert(
      std::is_same_v<decltype(std::declval<Mutable&>().find_modules("")), std::vector<Module*>>);
  static_assert(std::is_same_v<decltype(std::declval<Constant&>().find_modules("")),
                               std::vector<const Module*>>);
  static_assert(std::is_same_v<decltype(std::declval<Constant&>().module_count("")), std::size_t>);
}

}  // namespace
}  // namespace kelp::input::bdf
