#include <gtest/gtest.h>

#include "kelp/input/bdf/explain.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

// Each name as often as there are enumerators, and the number after the last one.
template <typename Enum>
void expect_names(const std::vector<std::string_view>& names) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    EXPECT_EQ(to_string(static_cast<Enum>(i)), names[i]);
  }
  EXPECT_EQ(to_string(static_cast<Enum>(names.size())), "unknown");
  EXPECT_EQ(to_string(static_cast<Enum>(-1)), "unknown");
}

TEST(ToString, NamesEachEnumerator) {
  expect_names<InputMode>({"easy", "module", "mixed"});
  expect_names<StatementKind>({"module", "shell", "database", "comment", "raw"});
  expect_names<ValidationSeverity>({"warning", "error"});
  expect_names<Severity>({"note", "warning", "error"});
  expect_names<EntryValueKind>({"flag", "scalar", "tuple", "multiline", "counted_rows",
                                "nested_block", "terminated_block", "raw"});
}

TEST(ToString, OfAKindIsTheWordThatASchemaHasForIt) {
  for (int number = 0; number < 8; ++number) {
    const auto kind = static_cast<EntryValueKind>(number);
    const InputSchema schema = schema_from("modules: {m: {entries: {x: {terminator: end, kind: " +
                                           std::string(to_string(kind)) + "}}}}");
    EXPECT_EQ(schema.entry_value_kind("m", "x"), kind);
  }
}

}  // namespace
}  // namespace kelp::input::bdf
