// Schemas read, and asked, in a host with other letters and numbers.

#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "kelp/input/bdf.hpp"
#include "support/locale.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

constexpr const char* document =
    "modules: {m: {repeatable: true, entries: {e: {min: 0.5, max: 1234.25, arity: 1000, "
    "count_line: true}, I: {}, f: {value_type: float, min: 1000.25}}}}";

void expect_the_same_schema() {
  const InputSchema schema = schema_from(document);
  const EntrySchemaInfo info = schema.entry_info("m", "e").value();
  EXPECT_EQ(info.min, 0.5);
  EXPECT_EQ(info.max, 1234.25);
  EXPECT_EQ(info.arity, 1000U);
  EXPECT_TRUE(info.count_line);
  EXPECT_TRUE(schema.is_known_entry("M", "i"));
  EXPECT_THROW(schema_from("modules: {m: {entries: {e: {min: '0,5'}}}}"), std::runtime_error);
  EXPECT_THROW(schema_from("modules: {m: {entries: {e: {arity: 1.000}}}}"), std::runtime_error);
  EXPECT_EQ(InputSchema::from_yaml("schema_version: 1000").metadata().schema_version, 1000);
}

TEST(SchemaLocale, TheGlobalCppLocaleChangesNothing) {
  const test::CommaLocale comma;
  expect_the_same_schema();
}

TEST(SchemaLocale, TheCLocaleChangesNothing) {
  const std::string name = test::comma_c_locale();
  if (name.empty()) {
    GTEST_SKIP() << "no C locale with a decimal comma is installed";
  }
  const std::string before = std::setlocale(LC_ALL, nullptr);
  std::setlocale(LC_ALL, name.c_str());
  expect_the_same_schema();
  std::setlocale(LC_ALL, before.c_str());
}

TEST(SchemaLocale, ValuesAreCheckedAlikeInEveryLocale) {
  const test::CommaLocale comma;
  const InputSchema schema = schema_from(document);
  ParseOptions options;
  options.custom_unknown_policy = true;
  EXPECT_TRUE(BDFParser::parse_string("$m\nf\n1000.5\n$end\n", schema, options).ok);
  EXPECT_FALSE(BDFParser::parse_string("$m\nf\n1000.125\n$end\n", schema, options).ok);
}

}  // namespace
}  // namespace kelp::input::bdf
