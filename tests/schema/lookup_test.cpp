// A module or parent entry resolved once answers as the public queries do, which resolve it each
// time.

#include "schema/lookup.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/print.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

std::vector<std::string> names_of(const AliasMap& map) {
  std::vector<std::string> names = {"", "$", "unknown", " $Unknown ", "scf"};
  for (const auto& [alias, name] : map) {
    names.push_back(alias);
    names.push_back(" $" + alias + "\t");
    names.push_back(name);
  }
  return names;
}

void compare_child(const InputSchema& schema, const std::string& module, const std::string& entry,
                   const EntrySpec* parent, const std::string& child) {
  const EntrySpec* const spec = find_child_spec(parent, child);
  ASSERT_EQ(canonical_child_name(parent, child),
            schema.canonical_nested_entry(module, entry, child));
  ASSERT_EQ(spec != nullptr, schema.is_known_nested_entry(module, entry, child));
  const auto info = schema.nested_entry_info(module, entry, child);
  ASSERT_EQ(spec != nullptr, info.has_value());
  ASSERT_EQ(spec != nullptr ? spec->kind : EntryValueKind::Raw,
            schema.nested_entry_value_kind(module, entry, child));
  if (spec != nullptr) {
    ASSERT_EQ(spec->name, info->name);
  }
}

void compare_entry(const InputSchema& schema, const std::string& module, const ModuleSpec* handle,
                   const std::string& entry) {
  const EntrySpec* const spec = find_entry_spec(handle, entry);
  ASSERT_EQ(canonical_entry_name(handle, entry), schema.canonical_entry(module, entry));
  ASSERT_EQ(spec != nullptr, schema.is_known_entry(module, entry));
  ASSERT_EQ(spec != nullptr ? spec->kind : EntryValueKind::Raw,
            schema.entry_value_kind(module, entry));
  ASSERT_EQ(spec != nullptr ? spec->terminator : "", schema.entry_terminator(module, entry));
  const auto info = schema.entry_info(module, entry);
  ASSERT_EQ(spec != nullptr, info.has_value());
  if (spec != nullptr) {
    ASSERT_EQ(spec->name, info->name);
    for (const std::string& child : names_of(spec->child_aliases)) {
      compare_child(schema, module, entry, spec, child);
    }
  }
  compare_child(schema, module, entry, spec, "any");
}

// Returns how many entries were compared.
std::size_t compare_all(const InputSchema& schema) {
  const InputSchema::Impl& impl = SchemaAccess::impl(schema);
  std::size_t count = 0;
  for (const std::string& module : names_of(impl.module_aliases)) {
    const ModuleSpec* const handle = find_module_spec(impl, module);
    EXPECT_EQ(handle != nullptr && handle->repeatable, schema.module_repeatable(module));
    for (const std::string& entry :
         names_of(handle == nullptr ? AliasMap() : handle->entry_aliases)) {
      SCOPED_TRACE(module + " / " + entry);
      compare_entry(schema, module, handle, entry);
      if (testing::Test::HasFatalFailure()) {
        return count;
      }
      ++count;
    }
  }
  return count;
}

TEST(SchemaHandles, AgreeWithThePublicQueriesOverTheShippedSchema) {
  EXPECT_GT(compare_all(shipped_schema()), 1000U);
}

TEST(SchemaHandles, AgreeWhereAliasesTakeOverNames) {
  EXPECT_GT(compare_all(schema_from(R"(
modules:
  a: {aliases: [b, x], repeatable: true, entries: {one: {kind: flag, aliases: [two]}}}
  c:
    aliases: [a, d]
    entries:
      p: {aliases: [q], entries: {u: {aliases: [v]}, w: {kind: flag, aliases: [u]}}}
      r: {kind: block, terminator: end r, aliases: [p]}
      '': {kind: tuple}
  d: {aliases: [c], entries: {s: ~}}
)")),
            20U);
}

TEST(FunctionalUse, IsToldOfKnownMethodsWhereTheSchemaListsThem) {
  const InputSchema schema = schema_from(
      "easy_input: {methods: {hf: {aliases: [h]}, rks: {}}, methods_without_functional: [HF]}\n");
  const auto use_of = [](const InputSchema& asked, const char* method) {
    return functional_use(SchemaAccess::impl(asked), method);
  };
  EXPECT_EQ(use_of(schema, "H"), FunctionalUse::None);
  EXPECT_EQ(use_of(schema, "rks"), FunctionalUse::Needed);
  EXPECT_EQ(use_of(schema, "odd"), FunctionalUse::Untold);
  EXPECT_EQ(use_of(schema_from("easy_input: {methods: [hf]}\n"), "hf"), FunctionalUse::Untold);
  EXPECT_EQ(use_of(shipped_schema(), "x-tddft-soc"), FunctionalUse::Needed);
  EXPECT_EQ(use_of(shipped_schema(), "ri-mp2"), FunctionalUse::None);
}

TEST(SchemaHandles, OfAnEmptySchemaAreNull) {
  const InputSchema empty;
  EXPECT_EQ(find_module_spec(SchemaAccess::impl(empty), "scf"), nullptr);
  EXPECT_EQ(find_keyword_spec(SchemaAccess::impl(empty), "charge"), nullptr);
  EXPECT_EQ(find_entry_spec(nullptr, "charge"), nullptr);
  EXPECT_EQ(find_child_spec(nullptr, "tol"), nullptr);
  EXPECT_EQ(canonical_entry_name(nullptr, " $X"), "x");
  EXPECT_EQ(canonical_child_name(nullptr, " $X"), "x");
}

}  // namespace
}  // namespace kelp::input::bdf
