// Documents made to break a reader. Each is refused with the loading error, or read; none may take
// more memory or time than its size deserves, or the run of these tests does not end.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>

#include "kelp/input/bdf/schema.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using testing::StartsWith;

std::string outcome(const std::string& yaml) {
  try {
    static_cast<void>(InputSchema::from_yaml(yaml));
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "loaded";
}

void expect_refused(const std::string& yaml) {
  EXPECT_THAT(outcome(yaml), StartsWith("failed to parse BDF input schema YAML: "))
      << yaml.substr(0, 500);
}

std::string repeated(int count, const std::function<std::string(int)>& part) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    text += part(i);
  }
  return text;
}

// Each level names the one before ten times: 10^20 entries in a kilobyte.
std::string nested_bomb(const std::string& first, const std::string& open,
                        const std::string& close) {
  const auto level = [&](int i) {
    std::string items;
    for (int copy = 0; copy < 10; ++copy) {
      items += "e" + std::to_string(copy) + ": *l" + std::to_string(i) + ", ";
    }
    return "l" + std::to_string(i + 1) + ": &l" + std::to_string(i + 1) + " " + open + items +
           close + "\n";
  };
  return "schema_version: 1\nl0: &l0 " + first + "\n" + repeated(20, level);
}

TEST(HostileSchema, WhoseEntriesMultiplyThroughAliasesIsRefused) {
  expect_refused(nested_bomb("{kind: flag}", "{entries: {", "}}") +
                 "modules: {m: {entries: {e: *l20}}}\n");
}

TEST(HostileSchema, WhoseWideAliasListsMultiplyIsRefused) {
  const std::string list = "[" + repeated(20'000, [](int) { return "x,"; }) + "]";
  const auto entry = [](int i) { return "e" + std::to_string(i) + ": {aliases: *a}, "; };
  expect_refused("schema_version: 1\na: &a " + list + "\nmodules: {m: {entries: {" +
                 repeated(10'000, entry) + "}}}\n");
}

TEST(HostileSchema, WhoseLongTextsMultiplyIsRefused) {
  const auto item = [](int) { return "*t, "; };
  const auto entry = [](int i) { return "e" + std::to_string(i) + ": {allowed: *l}, "; };
  expect_refused("schema_version: 1\nt: &t " + std::string(100'000, 't') + "\nl: &l [" +
                 repeated(1000, item) + "]\nmodules: {m: {entries: {" + repeated(1000, entry) +
                 "}}}\n");
}

TEST(HostileSchema, WhoseModulesShareALargeMapIsRefused) {
  const auto entry = [](int i) { return "e" + std::to_string(i) + ": ~, "; };
  const auto module = [](int i) { return "m" + std::to_string(i) + ": {entries: *e}, "; };
  expect_refused("schema_version: 1\ne: &e {" + repeated(5000, entry) + "}\nmodules: {" +
                 repeated(5000, module) + "}\n");
}

TEST(HostileSchema, WhoseRequirementsOrCountsMultiplyIsRefused) {
  for (const char* key : {"requires", "allowed_arities", "conflicts", "row"}) {
    const auto item = [](int) { return "1, "; };
    const std::string list = "&l [" + repeated(2000, item) + "]";
    const std::string value = key == std::string("row") ? "{allowed_arities: *l}" : "*l";
    const auto entry = [&](int i) {
      return "e" + std::to_string(i) + ": {" + key + ": " + value + "}, ";
    };
    SCOPED_TRACE(key);
    expect_refused("schema_version: 1\nl: " + list + "\nmodules: {m: {entries: {" +
                   repeated(3000, entry) + "}}}\n");
  }
}

TEST(HostileSchema, WhoseBombIsNeverReadIsAccepted) {
  EXPECT_EQ(outcome(nested_bomb("x", "{", "}") + "modules: {scf: ~}\n"), "loaded");
}

TEST(HostileSchema, WhoseEntryContainsItselfIsRefused) {
  expect_refused("schema_version: 1\nmodules: {m: {entries: {e: &e {entries: {e: *e}}}}}\n");
  expect_refused("schema_version: 1\nmodules: {m: {entries: &e {x: {entries: *e}}}}\n");
  expect_refused(
      "schema_version: 1\nmodules: {m: {entries: &e {x: {entries: *e}, y: {entries: "
      "*e}, z: {entries: *e}}}}\n");
}

TEST(HostileSchema, WhoseOtherNodesContainThemselvesDoesNotHang) {
  for (const char* yaml :
       {"modules: &m {a: *m, b: {aliases: &l [x, *l]}}", "easy_input: &e {methods: *e, basis: *e}",
        "easy_input: {control_keywords: &k {a: *k, aliases: *k}}", "x: &x [*x, *x]",
        "modules: {m: {entries: {e: {requires: &r [*r, a], row: &w {types: *w}}}}}",
        "metadata: &m {bdf_version: *m}"}) {
    EXPECT_EQ(outcome("schema_version: 1\n" + std::string(yaml) + "\n"), "loaded") << yaml;
  }
  expect_refused("&r {schema_version: *r}");
}

TEST(HostileSchema, NestedTenThousandLevelsDeepIsRefused) {
  constexpr int depth = 10'000;
  const std::string start = "schema_version: 1\nx: ";
  expect_refused(start + std::string(depth, '[') + std::string(depth, ']'));
  expect_refused(start + std::string(depth, '['));
  expect_refused(start + repeated(depth, [](int) { return "{a: "; }) + std::string(depth, '}'));
  expect_refused("schema_version: 1\nx:\n" + repeated(depth, [](int i) {
                   return std::string(static_cast<std::size_t>(i) + 1, ' ') + "a:\n";
                 }));
  expect_refused("schema_version: 1\nx:\n  " + repeated(depth, [](int) { return "- "; }) + "a\n");
  expect_refused("schema_version: 1\nx:\n  " + repeated(depth, [](int) { return "? "; }) + "a\n");
}

TEST(HostileSchema, NestedAsDeepAsYamlAllowsIsRead) {
  constexpr int depth = 200;
  const InputSchema schema = schema_from(
      "modules: {m: {entries: {e: " + repeated(depth, [](int) { return "{entries: {e: "; }) + "~" +
      repeated(depth, [](int) { return "}}"; }) + "}}}");
  EXPECT_TRUE(schema.is_known_nested_entry("m", "e", "e"));
}

TEST(HostileSchema, WithoutAliasesIsReadHoweverLarge) {
  const auto entry = [](int i) { return "      e" + std::to_string(i) + ":\n"; };
  const InputSchema schema =
      schema_from("modules:\n  m:\n    entries:\n" + repeated(100'000, entry));
  EXPECT_TRUE(schema.is_known_entry("m", "e99999"));
}

TEST(HostileSchema, ThatUsesAliasesAsAnHonestOneDoesIsRead) {
  const InputSchema schema = schema_from(R"(
shared: &grid {kind: tuple, allowed: &yes_no [yes, no]}
modules:
  a: {entries: {grid: *grid, flag: {allowed: *yes_no}}}
  b: {entries: {grid: *grid}}
)");
  EXPECT_EQ(schema.entry_value_kind("b", "grid"), EntryValueKind::Tuple);
  EXPECT_EQ(schema.entry_info("a", "flag").value().allowed.size(), 2U);
}

}  // namespace
}  // namespace kelp::input::bdf
