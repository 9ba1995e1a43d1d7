#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string_view>

#include "schema/impl.hpp"
#include "schema/lookup.hpp"
#include "support/print.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

InputSchema::Impl read(std::string_view yaml) {
  return SchemaAccess::impl(schema_from(yaml));
}

TEST(Modules, AreKnownByTheirNormalisedNames) {
  const auto impl = read("modules: {$Compass: {}, ' SCF ': {}}");
  EXPECT_THAT(impl.module_aliases,
              UnorderedElementsAre(Pair("compass", "compass"), Pair("scf", "scf")));
  EXPECT_EQ(impl.modules.at("compass").name, "compass");
}

TEST(Modules, OfTheWrongTypeAreNone) {
  for (const char* yaml :
       {"modules: [scf]", "modules: scf", "modules: ~", "modules: {[scf]: {}}"}) {
    EXPECT_THAT(read(yaml).modules, IsEmpty()) << yaml;
    EXPECT_THAT(read(yaml).module_aliases, IsEmpty()) << yaml;
  }
}

TEST(Module, WhoseValueIsNoMapIsKnownSingularAndWithoutEntries) {
  for (const char* yaml : {"modules: {scf: ~}", "modules: {scf: text}", "modules: {scf: [a]}"}) {
    const auto impl = read(yaml);
    ASSERT_TRUE(impl.modules.contains("scf")) << yaml;
    EXPECT_FALSE(impl.modules.at("scf").repeatable);
    EXPECT_THAT(impl.modules.at("scf").entries, IsEmpty());
  }
}

TEST(Module, CanBeRepeatable) {
  const auto impl =
      read("modules: {a: {repeatable: Yes}, b: {repeatable: no}, c: {repeatable: []}}");
  EXPECT_TRUE(impl.modules.at("a").repeatable);
  EXPECT_FALSE(impl.modules.at("b").repeatable);
  EXPECT_FALSE(impl.modules.at("c").repeatable);
}

TEST(Module, HasAliases) {
  const auto impl = read("modules: {xuanyuan: {aliases: [$Xuan, XY, {a: b}]}, scf: {aliases: HF}}");
  EXPECT_THAT(impl.module_aliases,
              UnorderedElementsAre(Pair("xuanyuan", "xuanyuan"), Pair("xuan", "xuanyuan"),
                                   Pair("xy", "xuanyuan"), Pair("scf", "scf"), Pair("hf", "scf")));
}

TEST(Module, GivesAnAliasListedTwiceToTheLaterOne) {
  const auto impl = read("modules: {a: {aliases: [x]}, b: {aliases: [x]}}");
  EXPECT_EQ(impl.module_aliases.at("x"), "b");
}

TEST(Module, TakesItsNameBackFromAnEarlierAlias) {
  EXPECT_EQ(read("modules: {a: {aliases: [b]}, b: {}}").module_aliases.at("b"), "b");
}

TEST(Module, LosesItsNameToALaterAlias) {
  const InputSchema schema = schema_from("modules: {b: {repeatable: true}, a: {aliases: [b]}}");
  EXPECT_EQ(schema.canonical_module("b"), "a");
  EXPECT_FALSE(schema.module_repeatable("b"));
  EXPECT_THAT(schema.known_modules(), testing::ElementsAre("a", "b"));
}

TEST(Module, ReplacesAnEarlierOneOfTheSameName) {
  const auto impl = read(R"(
modules:
  scf: {repeatable: true, aliases: [one], entries: {old: {}}}
  $SCF: {aliases: [two], entries: {new: {}}}
)");
  EXPECT_FALSE(impl.modules.at("scf").repeatable);
  EXPECT_FALSE(impl.modules.at("scf").entries.contains("old"));
  EXPECT_TRUE(impl.modules.at("scf").entries.contains("new"));
  EXPECT_EQ(impl.module_aliases.at("one"), "scf");
  EXPECT_EQ(impl.module_aliases.at("two"), "scf");
}

TEST(ModuleEntries, HaveNormalisedNamesAndAliases) {
  const auto impl = read(R"(
modules:
  scf:
    entries:
      Charge: {aliases: [Chg, $Q]}
      ' $Rhf ': ~
      uhf: text
      [rohf]: {}
)");
  const ModuleSpec& scf = impl.modules.at("scf");
  EXPECT_EQ(scf.entries.size(), 3U);
  EXPECT_EQ(scf.entries.at("rhf").name, "rhf");
  EXPECT_THAT(scf.entry_aliases,
              UnorderedElementsAre(Pair("charge", "charge"), Pair("chg", "charge"),
                                   Pair("q", "charge"), Pair("rhf", "rhf"), Pair("uhf", "uhf")));
}

TEST(ModuleEntries, OfTheWrongTypeAreNone) {
  for (const char* yaml : {"modules: {scf: {entries: [a]}}", "modules: {scf: {entries: a}}"}) {
    EXPECT_THAT(read(yaml).modules.at("scf").entries, IsEmpty()) << yaml;
  }
}

TEST(ModuleEntries, LetTheLaterOfTwoNamesWin) {
  const auto impl = read(R"(
modules:
  scf:
    entries:
      a: {kind: flag, aliases: [x, b]}
      A: {kind: tuple}
      b: {kind: raw, aliases: x}
)");
  const ModuleSpec& scf = impl.modules.at("scf");
  EXPECT_EQ(scf.entries.at("a").kind, EntryValueKind::Tuple);
  EXPECT_THAT(scf.entry_aliases,
              UnorderedElementsAre(Pair("a", "a"), Pair("b", "b"), Pair("x", "b")));
}

TEST(ModuleEntries, CanHaveAnEmptyName) {
  const InputSchema schema = schema_from("modules: {scf: {entries: {'$': {kind: flag}}}}");
  EXPECT_EQ(schema.entry_value_kind("scf", " "), EntryValueKind::Flag);
}

TEST(NestedEntries, AreReadToAnyDepthWithTheirAliases) {
  const auto impl = read(R"(
modules:
  m:
    entries:
      outer:
        kind: nested_block
        terminator: $END
        entries:
          Middle:
            aliases: [Mid]
            kind: nested_block
            entries: {Inner: {kind: flag, aliases: In}, [x]: {}}
          second: ~
)");
  const EntrySpec& outer = impl.modules.at("m").entries.at("outer");
  EXPECT_EQ(outer.terminator, "end");
  EXPECT_THAT(outer.child_aliases,
              UnorderedElementsAre(Pair("middle", "middle"), Pair("mid", "middle"),
                                   Pair("second", "second")));
  const EntrySpec* const middle = find_child_spec(&outer, "MID");
  ASSERT_NE(middle, nullptr);
  EXPECT_EQ(middle->name, "middle");
  EXPECT_EQ(middle->children.size(), 1U);
  const EntrySpec* const inner = find_child_spec(middle, "in");
  ASSERT_NE(inner, nullptr);
  EXPECT_EQ(inner->kind, EntryValueKind::Flag);
}

TEST(NestedEntries, LetTheLaterOfTwoNamesWin) {
  const auto impl = read(R"(
modules:
  m:
    entries:
      outer: {entries: {a: {kind: flag, aliases: x}, A: {kind: raw}, c: {aliases: [x, a]}}}
)");
  const EntrySpec& outer = impl.modules.at("m").entries.at("outer");
  EXPECT_EQ(outer.children.at("a")->kind, EntryValueKind::Raw);
  EXPECT_THAT(outer.child_aliases,
              UnorderedElementsAre(Pair("a", "c"), Pair("c", "c"), Pair("x", "c")));
}

TEST(NestedEntries, OfTheWrongTypeAreNone) {
  const auto impl = read("modules: {m: {entries: {a: {entries: [x]}, b: {entries: x}}}}");
  EXPECT_THAT(impl.modules.at("m").entries.at("a").children, IsEmpty());
  EXPECT_THAT(impl.modules.at("m").entries.at("b").children, IsEmpty());
}

}  // namespace
}  // namespace kelp::input::bdf
