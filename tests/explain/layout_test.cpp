// What `explain` shows as the way to write an entry must be right: every entry of the vocabulary is
// written as shown, read and checked.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kelp/input/bdf.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using Lines = std::vector<std::string>;

std::string module_with(const std::string& module, const Lines& lines) {
  std::string text = "$" + module + "\n";
  for (const std::string& line : lines) {
    text += line + "\n";
  }
  return text + "$end\n";
}

// What an entry needs beside it is another matter.
void expect_valid(const std::string& text, const InputSchema& schema) {
  const auto result = BDFParser::parse_string(text, schema, {});
  ValidationOptions strict;
  strict.unknown_entries_as_errors = true;
  for (const auto& issue : schema.validate(result.data, strict)) {
    EXPECT_EQ(issue.code, "bdf.missing_required_entry") << issue.message << "\n" << text;
  }
}

TEST(LayoutExample, EveryEntryOfTheVocabularyMayBeWrittenAsShown) {
  const InputSchema& schema = shipped_schema();
  std::size_t count = 0;
  for (const std::string& module : schema.known_modules()) {
    for (const std::string& entry : schema.known_entries(module)) {
      ++count;
      const Lines children = schema.known_nested_entries(module, entry);
      if (children.empty() ||
          schema.nested_entry_value_kind(module, entry, children.front()) == EntryValueKind::Flag) {
        expect_valid(
            module_with(module, layout_example(*schema.entry_info(module, entry), children)),
            schema);
      }
    }
  }
  EXPECT_GT(count, 500U);
}

TEST(LayoutExample, EveryNestedEntryMayBeWrittenAsShown) {
  const InputSchema& schema = shipped_schema();
  std::size_t count = 0;
  for (const std::string& module : schema.known_modules()) {
    for (const std::string& entry : schema.known_entries(module)) {
      for (const std::string& child : schema.known_nested_entries(module, entry)) {
        ++count;
        Lines lines = layout_example(*schema.nested_entry_info(module, entry, child), {});
        lines.insert(lines.begin(), entry);
        lines.push_back(schema.entry_terminator(module, entry));
        expect_valid(module_with(module, lines), schema);
      }
    }
  }
  EXPECT_GT(count, 40U);
}

TEST(LayoutExample, EveryWordOfTheHeaderMayBeWrittenAsShown) {
  const InputSchema& schema = shipped_schema();
  for (const std::string& name : schema.known_easy_keywords()) {
    expect_valid("#! x\nhf/sto-3g " + header_example(*schema.easy_keyword_info(name)) +
                     "\nGeometry\nNe 0 0 0\nEnd Geometry\n",
                 schema);
  }
}

TEST(LayoutExample, ShowsValuesWithinTheBounds) {
  const InputSchema schema = schema_from(
      "modules: {m: {entries: {"
      "a: {value_type: integer, min: 7}, b: {value_type: float, min: 3, min_exclusive: true},"
      "c: {value_type: float, max: 0.5}, d: {value_type: float, max: 1, max_exclusive: true},"
      "e: {value_type: integer, arity: 3}, f: {allowed: [x, y]}, g: {default: Z}}}}");
  const std::vector<std::pair<std::string, std::string>> expected = {
      {"a", "  7"},     {"b", "  4.0"}, {"c", "  0.5"}, {"d", "  0.5"},
      {"e", "  1 1 1"}, {"f", "  x"},   {"g", "  Z"}};
  for (const auto& [name, value] : expected) {
    EXPECT_EQ(layout_example(*schema.entry_info("m", name), {}), (Lines{name, value}));
  }
}

// Bounds are any numbers, whatever fits into an integer.
TEST(LayoutExample, OfAnIntegerWithABoundBeyondAllIntegersIsThatBound) {
  EntrySchemaInfo info;
  info.name = "x";
  info.value_type = "integer";
  info.min = 1e30;
  EXPECT_EQ(layout_example(info, {}), (Lines{"x", "  1000000000000000019884624838656"}));
  info.min.reset();
  info.max = -0.5;
  EXPECT_EQ(layout_example(info, {}), (Lines{"x", "  0"}));
}

}  // namespace
}  // namespace kelp::input::bdf
