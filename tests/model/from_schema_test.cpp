#include "model/from_schema.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "schema/lookup.hpp"
#include "support/print.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

const InputSchema& schema() {
  static const InputSchema loaded = schema_from(R"(
easy_input:
  methods: {hf: {aliases: [hartree]}, tddft: {}}
  functionals: {b3lyp: {}, hf: {}}
  basis: {known: {def2-svp: {aliases: [svp]}}}
  control_keywords: {charge: {aliases: [chg]}, grid: {category: accuracy}}
modules:
  scf:
    aliases: [selfcon]
    entries:
      charge: {kind: tuple, aliases: [chg]}
      block: {kind: nested_block, terminator: $END, entries: {tol: {kind: flag, aliases: [eps]}}}
)");
  return loaded;
}

struct Row {
  std::string text;
  std::string key;
  std::string value;
  std::string canonical;
  std::string category;
  std::string method;
  std::string functional;
  std::string basis;
  bool known;
};

TEST(EasyTokenFromText, FillsEachRowOfTheTable) {
  const std::vector<Row> rows = {
      {"B3LYP/SVP", "b3lyp", "", "b3lyp/def2-svp", "method_spec", "", "b3lyp", "def2-svp", true},
      {"Hartree/any", "hf", "", "hf/any", "method_spec", "hf", "", "any", true},
      {"TDDFT/b3lyp/SVP", "tddft", "", "tddft/b3lyp/def2-svp", "method_spec", "tddft", "b3lyp",
       "def2-svp", true},
      {"x/y", "x", "", "x/y", "method_spec", "", "x", "y", false},
      {"a/b/c/d", "", "", "a/b/c/d", "method_spec", "", "", "", false},
      {"hf/", "hf", "", "hf/", "method_spec", "hf", "", "", true},
      {"/x", "", "", "/x", "method_spec", "", "", "x", false},
      {"hf//x", "hf", "", "hf//x", "method_spec", "hf", "", "x", false},
      {"$ b3lyp/x", "b3lyp", "", " b3lyp/x", "method_spec", "", "b3lyp", "x", false},
      {"hf/a=b", "hf/a", "b", "hf/a=b", "method_spec", "", "", "", true},
      {"Chg=+1", "charge", "+1", "charge=+1", "control", "", "", "", true},
      {"chg=", "charge", "", "charge=", "control", "", "", "", true},
      {"chg = A=B ", "charge", "A=B", "charge=A=B", "control", "", "", "", true},
      {"GRID", "grid", "", "grid", "accuracy", "", "", "", true},
      {"chg", "charge", "", "charge", "control", "", "", "", true},
      {"Other=1/2", "other", "1/2", "other=1/2", "unknown", "", "", "", false},
      {"Other", "other", "", "other", "unknown", "", "", "", false},
      {"chg#x", "charge", "", "charge", "control", "", "", "", true},
      {"#x", "", "", "", "unknown", "", "", "", false},
      {"", "", "", "", "unknown", "", "", "", false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.text));
    const EasyToken token = easy_token_from_text(row.text, schema());
    EXPECT_EQ(token.text, row.text);
    EXPECT_EQ(token.key, row.key);
    EXPECT_EQ(token.value, row.value);
    EXPECT_EQ(token.canonical, row.canonical);
    EXPECT_EQ(token.category, row.category);
    EXPECT_EQ(token.method, row.method);
    EXPECT_EQ(token.functional, row.functional);
    EXPECT_EQ(token.basis, row.basis);
    EXPECT_EQ(token.known, row.known);
    EXPECT_FALSE(token.location.has_value());
  }
}

TEST(DescribeModule, TakesAliasesAndKeepsUnknownNames) {
  Module module;
  describe_module(module, " $SelfCon ", schema());
  EXPECT_EQ(module.name, "scf");
  EXPECT_TRUE(module.known);
  describe_module(module, "$Other", schema());
  EXPECT_EQ(module.name, "other");
  EXPECT_FALSE(module.known);
}

TEST(DescribeEntry, TakesKindAndTerminatorFromTheSchema) {
  const ModuleSpec* const scf = find_module_spec(SchemaAccess::impl(schema()), "scf");
  ModuleEntry entry;
  describe_entry(entry, "CHG", scf);
  EXPECT_EQ(entry.name, "charge");
  EXPECT_EQ(entry.kind, EntryValueKind::Tuple);
  EXPECT_TRUE(entry.known);
  describe_entry(entry, "Block", scf);
  EXPECT_EQ(entry.kind, EntryValueKind::NestedBlock);
  EXPECT_EQ(entry.terminator, "end");
}

TEST(DescribeEntry, MakesAnUnknownEntryRaw) {
  ModuleEntry entry;
  entry.terminator = "left over";
  describe_entry(entry, "$Other", find_module_spec(SchemaAccess::impl(schema()), "scf"));
  EXPECT_EQ(entry.name, "other");
  EXPECT_EQ(entry.kind, EntryValueKind::Raw);
  EXPECT_EQ(entry.terminator, "");
  EXPECT_FALSE(entry.known);
  describe_entry(entry, "Charge", nullptr);
  EXPECT_EQ(entry.name, "charge");
  EXPECT_FALSE(entry.known);
}

TEST(DescribeChild, AsksTheParentEntry) {
  const ModuleSpec* const scf = find_module_spec(SchemaAccess::impl(schema()), "scf");
  const EntrySpec* const block = find_entry_spec(scf, "block");
  ModuleEntry child;
  describe_child(child, "EPS", block);
  EXPECT_EQ(child.name, "tol");
  EXPECT_EQ(child.kind, EntryValueKind::Flag);
  EXPECT_TRUE(child.known);
  describe_child(child, "EPS", nullptr);
  EXPECT_EQ(child.name, "eps");
  EXPECT_EQ(child.kind, EntryValueKind::Raw);
  EXPECT_FALSE(child.known);
}

}  // namespace
}  // namespace kelp::input::bdf
