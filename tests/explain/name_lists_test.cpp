#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "kelp/input/bdf/names.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Names = std::vector<std::string>;

NameLists small_lists() {
  return NameLists(
      schema_from("easy_input:\n"
                  "  methods: {hf: {aliases: [scf-only]}}\n"
                  "  functionals: [pbe, b3lyp]\n"
                  "  basis: {known: {sto-3g: {aliases: [sto3g]}}}\n"
                  "  control_keywords: {charge: {aliases: q}}\n"
                  "modules:\n"
                  "  scf:\n"
                  "    aliases: [sfc]\n"
                  "    entries:\n"
                  "      rhf: {kind: flag}\n"
                  "      charge: {aliases: [q, $Qq]}\n"
                  "      second: {kind: nested_block, terminator: end, aliases: [two], entries: {\n"
                  "               on: {kind: flag, aliases: [yes]}}}\n"
                  "  opt: {entries: {q: }}\n"
                  "  empty:\n"));
}

TEST(NameLists, HoldNamesAndAliasesInOrder) {
  const NameLists names = small_lists();
  EXPECT_THAT(names.modules(), ElementsAre("empty", "opt", "scf", "sfc"));
  EXPECT_THAT(names.entries("scf"), ElementsAre("charge", "q", "qq", "rhf", "second", "two"));
  EXPECT_THAT(names.nested_entries("scf", "second"), ElementsAre("on", "yes"));
  EXPECT_THAT(names.easy_keywords(), ElementsAre("charge", "q"));
  EXPECT_THAT(names.methods(), ElementsAre("hf", "scf-only"));
  EXPECT_THAT(names.functionals(), ElementsAre("b3lyp", "pbe"));
  EXPECT_THAT(names.basis_sets(), ElementsAre("sto-3g", "sto3g"));
}

TEST(NameLists, AreFoundByAnyNameOfTheirOwner) {
  const NameLists names = small_lists();
  EXPECT_EQ(names.entries("$SFC"), names.entries("scf"));
  EXPECT_EQ(names.nested_entries("sfc", "Two"), names.nested_entries("scf", "second"));
}

TEST(NameLists, AreEmptyForWhatIsUnknownOrHasNothing) {
  const NameLists names = small_lists();
  EXPECT_THAT(names.entries("nothing"), IsEmpty());
  EXPECT_THAT(names.entries("empty"), IsEmpty());
  EXPECT_THAT(names.nested_entries("scf", "rhf"), IsEmpty());
  EXPECT_THAT(names.nested_entries("nothing", "second"), IsEmpty());
  EXPECT_THAT(names.modules_with_entry("nothing"), IsEmpty());
  EXPECT_THAT(NameLists(InputSchema()).modules(), IsEmpty());
}

TEST(NameLists, TellWhichModulesHaveAnEntry) {
  const NameLists names = small_lists();
  EXPECT_THAT(names.modules_with_entry(" Q "), ElementsAre("opt", "scf"));
  EXPECT_THAT(names.modules_with_entry("charge"), ElementsAre("scf"));
  EXPECT_THAT(names.modules_with_entry("on"), IsEmpty()) << "an entry of a block is none";
}

TEST(NameLists, OfWhatWasMovedFromCanStillBeAsked) {
  NameLists names = small_lists();
  NameLists others(std::move(names));
  EXPECT_EQ(names.modules(), others.modules());  // NOLINT(bugprone-use-after-move)
  others = NameLists(InputSchema());
  EXPECT_THAT(others.modules(), IsEmpty());
  EXPECT_THAT(names.modules(), ElementsAre("empty", "opt", "scf", "sfc"));
}

// The queries of the schema give the same names, a list at a time.
TEST(NameLists, AgreeWithTheQueriesOfTheSchema) {
  const InputSchema& schema = shipped_schema();
  const NameLists names(schema);
  const auto joined = [](Names all, const Names& canonical, auto aliases_of) {
    for (const std::string& name : canonical) {
      const Names aliases = aliases_of(name);
      all.insert(all.end(), aliases.begin(), aliases.end());
    }
    std::sort(all.begin(), all.end());
    return all;
  };
  const Names modules = schema.known_modules();
  EXPECT_EQ(names.modules(), joined(modules, modules, [&](const std::string& name) {
              return schema.module_aliases(name);
            }));
  const Names keywords = schema.known_easy_keywords();
  EXPECT_EQ(names.easy_keywords(), joined(keywords, keywords, [&](const std::string& name) {
              return schema.easy_keyword_aliases(name);
            }));
  for (const std::string& module : modules) {
    const Names entries = schema.known_entries(module);
    EXPECT_EQ(names.entries(module), joined(entries, entries, [&](const std::string& name) {
                return schema.entry_aliases(module, name);
              }));
    for (const std::string& entry : entries) {
      const Names children = schema.known_nested_entries(module, entry);
      EXPECT_EQ(names.nested_entries(module, entry),
                joined(children, children, [&](const std::string& name) {
                  return schema.nested_entry_aliases(module, entry, name);
                }));
    }
  }
}

}  // namespace
}  // namespace kelp::input::bdf
