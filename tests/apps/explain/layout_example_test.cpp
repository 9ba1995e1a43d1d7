// What `explain` shows as the way to write an entry must be right: every entry of the vocabulary is
// written as shown, read and checked.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "describe.hpp"
#include "kelp/input/bdf.hpp"
#include "support/schema.hpp"

namespace kelp::app {
namespace {

using input::bdf::InputSchema;
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
  const auto result = input::bdf::BDFParser::parse_string(text, schema, {});
  input::bdf::ValidationOptions strict;
  strict.unknown_entries_as_errors = true;
  for (const auto& issue : schema.validate(result.data, strict)) {
    EXPECT_EQ(issue.code, "bdf.missing_required_entry") << issue.message << "\n" << text;
  }
}

TEST(LayoutExample, EveryEntryOfTheVocabularyMayBeWrittenAsShown) {
  const InputSchema& schema = input::bdf::shipped_schema();
  std::size_t count = 0;
  for (const std::string& module : schema.known_modules()) {
    for (const std::string& entry : schema.known_entries(module)) {
      ++count;
      const Lines children = schema.known_nested_entries(module, entry);
      if (children.empty() || schema.nested_entry_value_kind(module, entry, children.front()) ==
                                  input::bdf::EntryValueKind::Flag) {
        expect_valid(
            module_with(module, layout_example(*schema.entry_info(module, entry), children)),
            schema);
      }
    }
  }
  EXPECT_GT(count, 500U);
}

TEST(LayoutExample, EveryNestedEntryMayBeWrittenAsShown) {
  const InputSchema& schema = input::bdf::shipped_schema();
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
  const InputSchema& schema = input::bdf::shipped_schema();
  for (const std::string& name : schema.known_easy_keywords()) {
    expect_valid("#! x\nhf/sto-3g " + header_example(*schema.easy_keyword_info(name)) +
                     "\nGeometry\nNe 0 0 0\nEnd Geometry\n",
                 schema);
  }
}

TEST(LayoutExample, ShowsValuesWithinTheBounds) {
  const InputSchema schema = input::bdf::schema_from(
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

}  // namespace
}  // namespace kelp::app
