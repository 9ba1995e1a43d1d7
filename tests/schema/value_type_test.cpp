// Whether one field of a value is of its type and within its bounds.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/schema.hpp"
#include "validate/value_check.hpp"

namespace kelp::input::bdf {
namespace {

struct Row {
  std::string field;
  std::string type;
  bool accepted;
};

TEST(ValueCheck, DecidesEachRowWithoutBounds) {
  const std::vector<Row> rows = {
      {"anything", "", true},
      {"anything", "string", true},
      {"", "string", true},
      {"anything", "any", true},
      {"anything", "colour", true},
      {"x", " $String ", true},
      {"12", "integer", true},
      {"+12", "integer", true},
      {"-12", " $INTEGER ", true},
      {"x", " $INTEGER ", false},
      {" 12\t", "integer", true},
      {"", "integer", false},
      {" ", "integer", false},
      {"1.0", "integer", false},
      {"12a", "integer", false},
      {"0x10", "integer", false},
      {"010", "integer", true},
      {"1e3", "integer", false},
      {"+-1", "integer", false},
      {"9223372036854775807", "integer", true},
      {"-9223372036854775808", "integer", true},
      {"9223372036854775808", "integer", false},
      {"-9223372036854775809", "integer", false},
      {"1.5d-3", "float", true},
      {"1.5D-3", "number", true},
      {" 1.5 ", "FLOAT", true},
      {"1.5x", "float", false},
      {"1,5", "number", false},
      {"1e999", "float", false},
      {"1e-999", "number", false},
      {"inf", "float", true},
      {"nan", "number", true},
      {"0x1p3", "float", true},
      {"7", "number", true},
      {"x", "number", false},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(token_matches_type(row.field, row.type, EntrySchemaInfo()), row.accepted)
        << '"' << row.field << "\" as " << row.type;
  }
}

EntrySchemaInfo bounds(std::optional<double> min, std::optional<double> max, bool exclusive) {
  EntrySchemaInfo info;
  info.min = min;
  info.max = max;
  info.min_exclusive = exclusive;
  info.max_exclusive = exclusive;
  return info;
}

struct BoundRow {
  std::string field;
  bool inclusive;
  bool exclusive;
};

TEST(ValueCheck, DecidesEachRowBetweenZeroAndTwo) {
  const std::vector<BoundRow> rows = {
      {"-1", false, false}, {"0", true, false}, {"-0", true, false},
      {"1", true, true},    {"2", true, false}, {"3", false, false},
  };
  for (const std::string_view type : {"integer", "float", "number"}) {
    for (const BoundRow& row : rows) {
      EXPECT_EQ(token_matches_type(row.field, type, bounds(0.0, 2.0, false)), row.inclusive)
          << row.field << " as " << type;
      EXPECT_EQ(token_matches_type(row.field, type, bounds(0.0, 2.0, true)), row.exclusive)
          << row.field << " as " << type;
    }
  }
}

TEST(ValueCheck, RejectsZeroBelowAnExclusiveMinimumOfZero) {
  EXPECT_FALSE(token_matches_type("0", "number", bounds(0.0, std::nullopt, true)));
  EXPECT_TRUE(token_matches_type("1e-300", "number", bounds(0.0, std::nullopt, true)));
}

TEST(ValueCheck, DoesNotBoundTexts) {
  EXPECT_TRUE(token_matches_type("99", "string", bounds(0.0, 2.0, true)));
  EXPECT_TRUE(token_matches_type("99", "colour", bounds(0.0, 2.0, true)));
}

TEST(ValueCheck, ComparesIntegersAsDoubles) {
  // 2^53 + 1 is no double; it becomes 2^53, which is allowed.
  EXPECT_TRUE(
      token_matches_type("9007199254740993", "integer", bounds({}, 9007199254740992.0, false)));
}

TEST(ValueCheck, FindsNoNumberOutsideTheBoundsThatIsNone) {
  EXPECT_TRUE(token_matches_type("nan", "number", bounds(0.0, 2.0, true)));
  EXPECT_FALSE(token_matches_type("inf", "number", bounds(0.0, 2.0, false)));
}

}  // namespace
}  // namespace kelp::input::bdf
