// The description of an entry, key by key.

#include "schema/entry_reader.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <stdexcept>

#include <string>
#include <utility>
#include <vector>

#include "support/print.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

InputSchema schema_with(const std::string& description) {
  return schema_from("modules: {m: {entries: {e: {" + description + "}}}}");
}

EntrySchemaInfo described(const std::string& description) {
  return schema_with(description).entry_info("m", "e").value();
}

EntryValueKind kind_of(const std::string& text) {
  return described("kind: " + text).kind;
}

TEST(Kind, IsSelectedByEachOfItsTexts) {
  using enum EntryValueKind;
  const std::vector<std::pair<std::string, EntryValueKind>> rows = {
      {"flag", Flag},
      {"bool", Flag},
      {"boolean", Flag},
      {"scalar", Scalar},
      {"tuple", Tuple},
      {"multiline", MultiLine},
      {"multi_line", MultiLine},
      {"vector", MultiLine},
      {"counted_rows", CountedRows},
      {"countedrows", CountedRows},
      {"nested_block", NestedBlock},
      {"nestedblock", NestedBlock},
      {"terminated_block", TerminatedBlock},
      {"terminatedblock", TerminatedBlock},
      {"block", TerminatedBlock},
      {"raw", Raw},
      {"table", Scalar},
      {"''", Scalar},
      {"counted-rows", Scalar},
      {"[flag]", Scalar},
      {"{flag: 1}", Scalar},
      {"~", Scalar},
      {"Vector", MultiLine},
      {"' $Raw '", Raw},
      {"COUNTED_ROWS", CountedRows},
  };
  for (const auto& [text, kind] : rows) {
    EXPECT_EQ(kind_of(text), kind) << text;
  }
  EXPECT_EQ(described("").kind, Scalar);
}

TEST(ValueType, IsNormalisedAndArraysAreTheirElements) {
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"Integer_Array", "integer"},
      {"float_array", "float"},
      {"NUMBER_array", "float"},
      {"string_array", "string"},
      {"integer", "integer"},
      {"number", "number"},
      {"any", "any"},
      {"' $Odd Type '", "odd type"},
      {"any_array", "any_array"},
      {"''", ""},
      {"[integer]", "string"},
      {"~", "string"},
  };
  for (const auto& [text, type] : rows) {
    EXPECT_EQ(described("value_type: " + text).value_type, type) << text;
  }
}

TEST(Terminator, IsNormalised) {
  EXPECT_EQ(described("terminator: $END").terminator, "end");
  EXPECT_EQ(described("terminator: ' &End '").terminator, "&end");
  EXPECT_EQ(described("terminator: [end]").terminator, "");
}

TEST(DefaultValue, IsKeptAsWritten) {
  EXPECT_EQ(described("default: Yes").default_value, "Yes");
  EXPECT_EQ(described("default: ' $X '").default_value, " $X ");
  EXPECT_EQ(described("default: 1.50").default_value, "1.50");
  EXPECT_EQ(described("default: ''").default_value, "");
  EXPECT_EQ(described("default: ~").default_value, std::nullopt);
  EXPECT_EQ(described("default: [a]").default_value, std::nullopt);
  EXPECT_EQ(described("").default_value, std::nullopt);
}

TEST(Allowed, IsANormalisedTextList) {
  EXPECT_THAT(described("allowed: [Yes, NO]").allowed, ElementsAre("yes", "no"));
  EXPECT_THAT(described("allowed: ' $On '").allowed, ElementsAre("on"));
  EXPECT_THAT(described("allowed: [a, [b], {c: d}, ~, '', a]").allowed, ElementsAre("a", "", "a"));
  EXPECT_THAT(described("allowed: {a: b}").allowed, IsEmpty());
  EXPECT_THAT(described("allowed: ~").allowed, IsEmpty());
}

TEST(Bounds, AreNumbersWithExclusiveSwitches) {
  const EntrySchemaInfo info =
      described("min: -0.5, max: 1e3, min_exclusive: true, max_exclusive: on");
  EXPECT_EQ(info.min, -0.5);
  EXPECT_EQ(info.max, 1000.0);
  EXPECT_TRUE(info.min_exclusive);
  EXPECT_TRUE(info.max_exclusive);
  EXPECT_EQ(described("max: .inf").max, std::numeric_limits<double>::infinity());
  EXPECT_EQ(described("min: -.inf").min, -std::numeric_limits<double>::infinity());
}

TEST(Bounds, OfTheWrongTypeAreIgnored) {
  const EntrySchemaInfo info =
      described("min: [1], max: {a: 1}, min_exclusive: [true], max_exclusive: ~");
  EXPECT_FALSE(info.min || info.max || info.min_exclusive || info.max_exclusive);
}

TEST(Arities, AreCounts) {
  const EntrySchemaInfo info =
      described("arity: 2, min_arity: 0, max_arity: 18446744073709551615, allowed_arities: [3, 1]");
  EXPECT_EQ(info.arity, 2U);
  EXPECT_EQ(info.min_arity, 0U);
  EXPECT_EQ(info.max_arity, 18446744073709551615U);
  EXPECT_THAT(info.allowed_arities, ElementsAre(3U, 1U));
  EXPECT_THAT(described("allowed_arities: 4").allowed_arities, ElementsAre(4U));
}

TEST(Arities, OfTheWrongTypeAreIgnored) {
  const EntrySchemaInfo info =
      described("arity: [2], min_arity: {a: 1}, max_arity: ~, allowed_arities: {a: 1}");
  EXPECT_FALSE(info.arity || info.min_arity || info.max_arity);
  EXPECT_THAT(info.allowed_arities, IsEmpty());
}

TEST(Row, HasItsOwnAritiesAndTypes) {
  const EntrySchemaInfo info = described(
      "row: {arity: 4, min_arity: 1, max_arity: 9, allowed_arities: [1, 4], types: [' String ', "
      "FLOAT]}");
  EXPECT_EQ(info.row_arity, 4U);
  EXPECT_EQ(info.row_min_arity, 1U);
  EXPECT_EQ(info.row_max_arity, 9U);
  EXPECT_THAT(info.row_allowed_arities, ElementsAre(1U, 4U));
  EXPECT_THAT(info.row_types, ElementsAre("string", "float"));
  EXPECT_FALSE(info.arity || info.min_arity || info.max_arity);
  EXPECT_THAT(described("row: {types: Integer, allowed_arities: 2}").row_types,
              ElementsAre("integer"));
}

TEST(Row, KeepsArrayTypesAsTheyAre) {
  EXPECT_THAT(described("row: {types: [integer_array]}").row_types, ElementsAre("integer_array"));
}

TEST(Row, OfTheWrongTypeIsIgnored) {
  EXPECT_EQ(described("row: [arity, 4]").row_arity, std::nullopt);
  EXPECT_EQ(described("row: 4").row_arity, std::nullopt);
}

TEST(Switches, OfEntriesAreBooleans) {
  const EntrySchemaInfo on = described("count_line: true, repeatable: YES");
  EXPECT_TRUE(on.count_line);
  EXPECT_TRUE(on.repeatable);
  const EntrySchemaInfo off = described("count_line: false, repeatable: [true]");
  EXPECT_FALSE(off.count_line);
  EXPECT_FALSE(off.repeatable);
}

TEST(Requires, TakesTextsAndMaps) {
  const auto required =
      described("requires: [scf, {entry: '', equals: x}, {entry: Mode, equals: Fast}]").required;
  ASSERT_EQ(required.size(), 2U);
  EXPECT_EQ(required[0].entry, "scf");
  EXPECT_EQ(required[0].equals, std::nullopt);
  EXPECT_EQ(required[1].entry, "mode");
  EXPECT_EQ(required[1].equals, "fast");
}

TEST(Requires, OfAScalarIsOneRequirement) {
  const auto required = described("requires: ' $SCF '").required;
  ASSERT_EQ(required.size(), 1U);
  EXPECT_EQ(required[0].entry, "scf");
  EXPECT_FALSE(required[0].equals.has_value());
}

TEST(Requires, KeepsAnEmptyScalarButDropsAnEmptyMap) {
  EXPECT_EQ(described("requires: ''").required.size(), 1U);
  EXPECT_EQ(described("requires: ['', $]").required.size(), 2U);
  EXPECT_THAT(described("requires: [{}, {equals: x}, {entry: $}, {entry: [a]}]").required,
              IsEmpty());
}

TEST(Requires, HasNoValueWhereEqualsIsEmptyOrNoText) {
  const auto required =
      described(
          "requires: [{entry: a, equals: ''}, {entry: b, equals: [x]}, {entry: c, equals: $}]")
          .required;
  ASSERT_EQ(required.size(), 3U);
  EXPECT_FALSE(required[0].equals.has_value());
  EXPECT_FALSE(required[1].equals.has_value());
  // A lone dollar is a text, of which nothing is left.
  EXPECT_EQ(required[2].equals, "");
}

TEST(Requires, SkipsItemsAndValuesOfOtherTypes) {
  EXPECT_EQ(described("requires: [[a], ~, b]").required.size(), 1U);
  EXPECT_THAT(described("requires: {entry: a}").required, IsEmpty());
  EXPECT_THAT(described("requires: ~").required, IsEmpty());
}

TEST(Conflicts, IsANormalisedTextList) {
  EXPECT_THAT(described("conflicts: [' $A ', B, [c]]").conflicts, ElementsAre("a", "b"));
  EXPECT_THAT(described("conflicts: A").conflicts, ElementsAre("a"));
  EXPECT_THAT(described("conflicts: {a: b}").conflicts, IsEmpty());
}

TEST(Description, IgnoresUnknownKeysAndKeysInAnotherCase) {
  const EntrySchemaInfo info = described("Kind: flag, MIN: 1, colour: blue");
  EXPECT_EQ(info.kind, EntryValueKind::Scalar);
  EXPECT_FALSE(info.min.has_value());
}

TEST(Description, IsReadAlikeForNestedEntriesAndKeywords) {
  const std::string text = "{kind: tuple, value_type: float_array, arity: 3, requires: [x]}";
  const InputSchema schema =
      schema_from("modules: {m: {entries: {e: {entries: {c: " + text + "}}}}}\n" +
                  "easy_input: {control_keywords: {k: " + text + "}}");
  const auto child = schema.nested_entry_info("m", "e", "c");
  ASSERT_TRUE(child.has_value());
  EXPECT_EQ(child->name, "c");
  const ValueSpec& keyword = SchemaAccess::impl(schema).control_keywords.at("k");
  for (const EntrySchemaInfo& info : {*child, static_cast<const EntrySchemaInfo&>(keyword)}) {
    EXPECT_EQ(info.kind, EntryValueKind::Tuple);
    EXPECT_EQ(info.value_type, "float");
    EXPECT_EQ(info.arity, 3U);
    EXPECT_EQ(info.required.size(), 1U);
  }
}

TEST(Description, OfAnEntryThatIsNoMapIsAllDefaults) {
  for (const char* value : {"~", "flag", "[kind]"}) {
    const InputSchema schema =
        schema_from("modules: {m: {entries: {$E: " + std::string(value) + "}}}");
    const auto info = schema.entry_info("m", "e");
    ASSERT_TRUE(info.has_value()) << value;
    EXPECT_EQ(info->name, "e");
    EXPECT_EQ(info->kind, EntryValueKind::Scalar);
    EXPECT_EQ(info->value_type, "string");
  }
}

// Whatever a key needs, a text that is not that makes the whole document fail.
TEST(Description, FailsForScalarsThatDoNotConvert) {
  for (const char* description :
       {"min: abc", "max: ''", "min: '1,5'", "max: 1x", "min_exclusive: maybe", "max_exclusive: 1",
        "arity: -1", "arity: 1.5", "min_arity: x", "max_arity: 18446744073709551616",
        "allowed_arities: x", "allowed_arities: [1, x]", "count_line: 2", "repeatable: maybe",
        "row: {arity: x}", "row: {min_arity: -2}", "row: {max_arity: ''}",
        "row: {allowed_arities: [a]}"}) {
    EXPECT_THROW(described(description), std::runtime_error) << description;
  }
}

TEST(Description, FailsForModulesAndBasisThatDoNotConvert) {
  EXPECT_THROW(schema_from("modules: {m: {repeatable: maybe}}"), std::runtime_error);
  EXPECT_THROW(schema_from("easy_input: {basis: {extensible: perhaps}}"), std::runtime_error);
}

}  // namespace
}  // namespace kelp::input::bdf
