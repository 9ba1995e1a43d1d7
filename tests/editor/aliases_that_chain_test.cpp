// A schema may name one module by an alias that is itself the name of another module. A module made
// under such an alias does not answer to it afterwards; edits that create what they miss must still
// end, find their module again, and lose nothing.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor_fixture.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;

struct ChainedName {
  const char* what;
  const char* schema;
  const char* name;
  const char* stored;  // the name of a module made under `name`
};

const ChainedName chained_names[] = {
    {"two steps", "{b: {aliases: [a]}, c: {aliases: [b]}}", "a", "b"},
    {"three steps", "{b: {aliases: [a]}, c: {aliases: [b]}, d: {aliases: [c]}}", "a", "b"},
    {"a module's own name taken over", "{a: {}, b: {aliases: [a]}, c: {aliases: [b]}}", "a", "b"},
    {"an alias with a dollar sign", "{$b: {aliases: [a]}, c: {aliases: [b]}}", "$A ", "b"},
    {"a name with two dollar signs", "{}", "$$x", "$x"},
    {"a blank after the dollar sign", "{}", "$ x", " x"},
};

InputSchema schema_with(const char* modules) {
  return InputSchema::from_yaml(std::string("{schema_version: 1, modules: ") + modules + "}");
}

TEST(AliasesThatChain, TheSameCallReachesTheSameModule) {
  for (const ChainedName& row : chained_names) {
    SCOPED_TRACE(row.what);
    BDFEditor editor({}, schema_with(row.schema));
    for (const char* value : {"1", "2", "3"}) {
      editor.set_module_entry(row.name, 1, "key", {value});
    }
    ASSERT_THAT(names_of(editor.data().modules), ElementsAre(row.stored, row.stored));
    EXPECT_THAT(order_of(editor.data()), ElementsAre("0", "1"));
    EXPECT_TRUE(editor.data().modules[0].entries.empty());
    EXPECT_THAT(entries_of(editor.data().modules[1]), ElementsAre("key=3"));
  }
}

TEST(AliasesThatChain, AppendedEntriesGatherInOneModule) {
  for (const ChainedName& row : chained_names) {
    SCOPED_TRACE(row.what);
    BDFEditor editor({}, schema_with(row.schema));
    for (const char* value : {"1", "2"}) {
      editor.append_module_entry(row.name, "key", {value});
    }
    ASSERT_THAT(names_of(editor.data().modules), ElementsAre(row.stored));
    EXPECT_THAT(entries_of(editor.data().modules[0]), ElementsAre("key=1", "key=2"));
  }
}

TEST(AliasesThatChain, WhatWasThereBeforeStays) {
  for (const ChainedName& row : chained_names) {
    SCOPED_TRACE(row.what);
    BDFEditor editor(document_of({"first", "other"}), schema_with(row.schema));
    editor.append_raw_statement({"free"});
    editor.append_module_entry(row.name, "key", {"1"}, 2);
    EXPECT_THAT(names_of(editor.data().modules),
                ElementsAre("first", "other", row.stored, row.stored, row.stored));
    EXPECT_THAT(order_of(editor.data()), ElementsAre("0", "1", "raw(free)", "2", "3", "4"));
  }
}

// The regular look-up comes first: a module that answers to the name is never passed over.
TEST(AliasesThatChain, AModuleThatAnswersToTheNameIsUsed) {
  BDFData data;
  data.modules.emplace_back().name = "a";
  BDFEditor editor(std::move(data), schema_with("{b: {aliases: [a]}, c: {aliases: [b]}}"));
  ASSERT_EQ(editor.module("a"), &editor.data().modules[0]);
  editor.append_module_entry("a", "key", {"1"});
  EXPECT_THAT(names_of(editor.data().modules), ElementsAre("a"));
  EXPECT_THAT(entries_of(editor.data().modules[0]), ElementsAre("key=1"));
}

TEST(AliasesThatChain, ChargeAndMultiplicityLandInOneModule) {
  BDFData data;
  data.mode = InputMode::Module;
  BDFEditor editor(std::move(data),
                   schema_with("{newscf: {aliases: [scf]}, newest: {aliases: [newscf]}}"));
  editor.set_charge_and_multiplicity(1, 2);
  editor.set_charge_and_multiplicity(-1, 4);
  ASSERT_THAT(names_of(editor.data().modules), ElementsAre("newscf"));
  EXPECT_THAT(entries_of(editor.data().modules[0]), ElementsAre("charge=-1", "spinmulti=4"));
}

TEST(AliasesThatChain, RemovingGoesByTheRegularLookUp) {
  BDFEditor editor({}, schema_with("{b: {aliases: [a]}, c: {aliases: [b]}}"));
  editor.append_module("a");
  EXPECT_FALSE(editor.remove_module("a", 0));
  EXPECT_TRUE(editor.remove_module("b", 0));
  EXPECT_TRUE(editor.data().modules.empty());
  EXPECT_TRUE(editor.data().statements.empty());
}

}  // namespace
}  // namespace kelp::input::bdf
