#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <string_view>

#include "kelp/input/bdf/schema.hpp"
#include "support/print.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const InputSchema& schema() {
  static const InputSchema loaded = schema_from(R"(
easy_input:
  methods: {hf: {aliases: [hartree]}}
  functionals: {b3lyp: {aliases: [b3]}}
  basis: {known: {def2-svp: {aliases: [svp]}}}
  control_keywords: {maxiter: {aliases: [niter]}}
modules:
  xuanyuan: {aliases: [xuan], repeatable: true}
  scf:
    aliases: [selfcon]
    entries:
      charge: {kind: tuple, aliases: [chg], min: 0, default: '0'}
      solvent: {kind: block, terminator: $End}
      options:
        kind: nested_block
        aliases: [opts]
        entries: {tol: {kind: flag, aliases: [eps], arity: 1}}
)");
  return loaded;
}

TEST(NameQueries, ResolveNamesAndAliases) {
  EXPECT_EQ(schema().canonical_method(" $Hartree"), "hf");
  EXPECT_EQ(schema().canonical_method("HF"), "hf");
  EXPECT_EQ(schema().canonical_functional("B3"), "b3lyp");
  EXPECT_EQ(schema().canonical_basis("SVP"), "def2-svp");
  EXPECT_EQ(schema().canonical_easy_key("$NIter"), "maxiter");
  EXPECT_EQ(schema().canonical_module("$Xuan "), "xuanyuan");
}

TEST(NameQueries, GiveAnUnknownNameItsNormalisedForm) {
  EXPECT_EQ(schema().canonical_method(" $New "), "new");
  EXPECT_EQ(schema().canonical_functional("New"), "new");
  EXPECT_EQ(schema().canonical_basis("cc-pVDZ"), "cc-pvdz");
  EXPECT_EQ(schema().canonical_easy_key("$$New"), "$new");
  EXPECT_EQ(schema().canonical_module(" $New"), "new");
}

TEST(NameQueries, KnowNamesAndAliases) {
  EXPECT_TRUE(schema().is_known_method("HF") && schema().is_known_method("$hartree"));
  EXPECT_TRUE(schema().is_known_functional("b3lyp") && schema().is_known_functional(" B3 "));
  EXPECT_TRUE(schema().is_known_basis("def2-SVP") && schema().is_known_basis("svp"));
  EXPECT_TRUE(schema().is_known_module("xuanyuan") && schema().is_known_module("$XUAN"));
}

TEST(NameQueries, DoNotMixTheirLists) {
  EXPECT_FALSE(schema().is_known_method("b3lyp"));
  EXPECT_FALSE(schema().is_known_functional("hf"));
  EXPECT_FALSE(schema().is_known_module("hf"));
  EXPECT_EQ(schema().canonical_functional("hartree"), "hartree");
}

TEST(NameQueries, KnowNoUnlistedBasisAlthoughTheListIsOpen) {
  EXPECT_FALSE(schema().is_known_basis("cc-pvdz"));
}

TEST(ModuleQueries, GiveTheCanonicalNameWhetherKnownOrNot) {
  EXPECT_EQ(schema().canonical_module("$SCF "), "scf");
  EXPECT_EQ(InputSchema().canonical_module("$SCF "), "scf");
}

TEST(ModuleQueries, TellWhetherAModuleIsRepeatable) {
  EXPECT_TRUE(schema().module_repeatable("xuan"));
  EXPECT_TRUE(schema().module_repeatable("$XUANYUAN"));
  EXPECT_FALSE(schema().module_repeatable("scf"));
  EXPECT_FALSE(schema().module_repeatable("new"));
}

TEST(ModuleQueries, ListTheModulesSortedBytewiseWithoutAliases) {
  EXPECT_THAT(schema().known_modules(), ElementsAre("scf", "xuanyuan"));
  EXPECT_THAT(schema_from("modules: {b: {}, a-: {}, a: {}, \"\\xE4\": {}, a1: {}, _: {}, Z: {}}")
                  .known_modules(),
              ElementsAre("_", "a", "a-", "a1", "b", "z", "\xC3\xA4"));
}

TEST(EntryQueries, ResolveAliasesOfModuleAndEntry) {
  EXPECT_EQ(schema().canonical_entry("$SelfCon", " Chg "), "charge");
  EXPECT_EQ(schema().canonical_entry("scf", "CHARGE"), "charge");
  EXPECT_TRUE(schema().is_known_entry("selfcon", "$chg"));
  EXPECT_EQ(schema().entry_value_kind("selfcon", "chg"), EntryValueKind::Tuple);
  EXPECT_EQ(schema().entry_terminator("SelfCon", "SOLVENT"), "end");
  EXPECT_EQ(schema().entry_info("selfcon", "chg").value().name, "charge");
}

TEST(EntryQueries, GiveAnUnknownEntryItsNormalisedForm) {
  EXPECT_EQ(schema().canonical_entry("scf", " $New "), "new");
  EXPECT_EQ(schema().canonical_entry("new", "Chg"), "chg");
  EXPECT_EQ(schema().canonical_entry("xuanyuan", "Chg"), "chg");
}

TEST(EntryQueries, AnswerRawEmptyOrFalseForWhatIsUnknown) {
  const std::string_view pairs[][2] = {{"new", "charge"}, {"scf", "new"}, {"", ""}};
  for (const auto& [module, entry] : pairs) {
    EXPECT_FALSE(schema().is_known_entry(module, entry)) << module << ' ' << entry;
    EXPECT_EQ(schema().entry_value_kind(module, entry), EntryValueKind::Raw);
    EXPECT_EQ(schema().entry_terminator(module, entry), "");
    EXPECT_FALSE(schema().entry_info(module, entry).has_value());
  }
}

TEST(EntryQueries, HaveAnEmptyTerminatorForAKnownEntryWithoutOne) {
  EXPECT_EQ(schema().entry_terminator("scf", "charge"), "");
}

TEST(EntryQueries, CopyTheWholeDescription) {
  const auto info = schema().entry_info("scf", "charge");
  ASSERT_TRUE(info.has_value());
  EXPECT_EQ(info->kind, EntryValueKind::Tuple);
  EXPECT_EQ(info->min, 0.0);
  EXPECT_EQ(info->default_value, "0");
}

TEST(NestedQueries, ResolveAliasesOfAllThree) {
  EXPECT_EQ(schema().canonical_nested_entry("selfcon", "OPTS", "$Eps"), "tol");
  EXPECT_TRUE(schema().is_known_nested_entry("selfcon", "opts", "EPS"));
  EXPECT_EQ(schema().nested_entry_value_kind("$scf", "options", "tol"), EntryValueKind::Flag);
  EXPECT_EQ(schema().nested_entry_info("scf", "opts", "eps").value().arity, 1U);
}

TEST(NestedQueries, AnswerForAnUnknownModuleParentOrChild) {
  const std::string_view rows[][3] = {{"new", "options", "tol"},
                                      {"scf", "new", "tol"},
                                      {"scf", "options", "new"},
                                      {"scf", "charge", "tol"}};
  for (const auto& [module, entry, child] : rows) {
    EXPECT_FALSE(schema().is_known_nested_entry(module, entry, child)) << module << entry << child;
    EXPECT_EQ(schema().nested_entry_value_kind(module, entry, child), EntryValueKind::Raw);
    EXPECT_FALSE(schema().nested_entry_info(module, entry, child).has_value());
  }
  EXPECT_EQ(schema().canonical_nested_entry("new", "options", " $Eps "), "eps");
  EXPECT_EQ(schema().canonical_nested_entry("scf", "new", "Eps"), "eps");
  EXPECT_EQ(schema().canonical_nested_entry("scf", "options", "$New"), "new");
}

TEST(SchemaState, IsEmptyWithoutMethodsFunctionalsKeywordsAndModules) {
  EXPECT_TRUE(schema_from("easy_input: {basis: [svp]}").empty());
  EXPECT_FALSE(schema_from("easy_input: {methods: [hf]}").empty());
  EXPECT_FALSE(schema_from("easy_input: {functionals: [b3lyp]}").empty());
  EXPECT_FALSE(schema_from("easy_input: {control_keywords: {a: ~}}").empty());
  EXPECT_FALSE(schema_from("modules: {scf: ~}").empty());
}

TEST(SchemaState, OfAnEmptySchemaKnowsNothing) {
  const InputSchema empty;
  EXPECT_TRUE(empty.empty());
  EXPECT_THAT(empty.known_modules(), IsEmpty());
  EXPECT_FALSE(empty.is_known_method("hf") || empty.is_known_functional("b3lyp"));
  EXPECT_FALSE(empty.is_known_basis("svp") || empty.is_known_module("scf"));
  EXPECT_FALSE(empty.is_known_entry("scf", "charge"));
  EXPECT_FALSE(empty.is_known_nested_entry("scf", "options", "tol"));
  EXPECT_FALSE(empty.is_known_easy_token("hf/svp") || empty.is_known_easy_token("charge=1"));
}

TEST(Queries, ThrowALogicErrorForANullTextWithALength) {
  const std::string_view null(static_cast<const char*>(nullptr), 2);
  EXPECT_THROW(static_cast<void>(schema().canonical_module(null)), std::logic_error);
  EXPECT_THROW(static_cast<void>(schema().canonical_easy_token(null)), std::logic_error);
  EXPECT_THROW(static_cast<void>(schema().easy_token_category(null)), std::logic_error);
  EXPECT_THROW(static_cast<void>(schema().is_known_easy_token(null)), std::logic_error);
}

// An alias map is consulted once: what it says is not looked up again as an alias.
TEST(AliasChains, AreNotFollowed) {
  const InputSchema chained = schema_from(R"(
modules:
  a: {aliases: [b], entries: {x: {kind: flag}}}
  c: {aliases: [a], entries: {y: {kind: tuple}}}
)");
  EXPECT_EQ(chained.canonical_module("b"), "a");
  EXPECT_EQ(chained.canonical_module("a"), "c");
  EXPECT_TRUE(chained.is_known_entry("b", "x"));
  EXPECT_TRUE(chained.is_known_entry("a", "y"));
  EXPECT_FALSE(chained.is_known_entry("a", "x"));
}

TEST(AliasChains, OfEntriesGoOneStepToo) {
  const InputSchema chained = schema_from(
      "modules: {m: {entries: {a: {kind: flag, aliases: [b]}, c: {kind: tuple, aliases: [a]}}}}");
  EXPECT_EQ(chained.entry_value_kind("m", "b"), EntryValueKind::Flag);
  EXPECT_EQ(chained.entry_value_kind("m", "a"), EntryValueKind::Tuple);
  EXPECT_EQ(chained.entry_info("m", "b").value().name, "a");
}

}  // namespace
}  // namespace kelp::input::bdf
