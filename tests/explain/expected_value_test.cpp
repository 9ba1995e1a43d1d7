#include <gtest/gtest.h>

#include "kelp/input/bdf/explain.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

struct Row {
  int line;
  const char* description;
  const char* text;
};

EntrySchemaInfo described(const char* description) {
  return *schema_from("modules: {m: {entries: {x: {" + std::string(description) + "}}}}")
              .entry_info("m", "x");
}

TEST(ExpectedValue, SaysTypeNumberOfFieldsAndBounds) {
  for (const Row& row : {
           Row{__LINE__, "value_type: string", ""},
           Row{__LINE__, "value_type: integer", "integers"},
           Row{__LINE__, "value_type: integer, arity: 1", "an integer"},
           Row{__LINE__, "value_type: float, arity: 1, min: 0", "a number of at least 0"},
           Row{__LINE__, "value_type: float, arity: 1, min: 0, min_exclusive: true",
               "a number above 0"},
           Row{__LINE__, "value_type: number, arity: 1, min: -1, max: 0.5, max_exclusive: true",
               "a number of at least -1 and below 0.5"},
           Row{__LINE__, "value_type: integer, arity: 1, max: 7", "an integer at most 7"},
           Row{__LINE__, "value_type: integer, arity: 3", "3 integers"},
           Row{__LINE__, "arity: 1", "1 field"},
           Row{__LINE__, "min_arity: 1", "at least 1 field"},
           Row{__LINE__, "max_arity: 2", "at most 2 fields"},
           Row{__LINE__, "min_arity: 2, max_arity: 4, value_type: float, min: 1",
               "2 to 4 numbers of at least 1"},
           Row{__LINE__, "allowed_arities: [1, 3, 6], value_type: integer", "1 or 3 or 6 integers"},
           Row{__LINE__, "allowed: [a, b, c], arity: 1", "'a', 'b' or 'c'"},
       }) {
    EXPECT_EQ(expected_value(described(row.description)), row.text) << "line " << row.line;
  }
}

TEST(ExpectedValue, WritesBoundsAsOneWould) {
  for (const Row& row : {Row{__LINE__, "max: 100000", "integers at most 100000"},
                         Row{__LINE__, "max: 1e20", "integers at most 1e+20"},
                         Row{__LINE__, "max: 0.001", "integers at most 0.001"},
                         Row{__LINE__, "max: 1e-8", "integers at most 1e-08"}}) {
    const std::string description = std::string("value_type: integer, ") + row.description;
    EXPECT_EQ(expected_value(described(description.c_str())), row.text) << "line " << row.line;
  }
}

TEST(ExpectedValue, OfRowsSaysWhatTheyHold) {
  for (const Row& row : {
           Row{__LINE__, "kind: counted_rows", "rows"},
           Row{__LINE__, "kind: counted_rows, count_line: true, row: {arity: 2}",
               "the number of rows, then the rows of 2 fields"},
           Row{__LINE__, "kind: counted_rows, row: {min_arity: 1, types: [integer, float]}",
               "rows of at least 1 field (integer, float)"},
       }) {
    EXPECT_EQ(expected_value(described(row.description)), row.text) << "line " << row.line;
  }
}

TEST(ValueType, IsThatOfTheColumnsForRowsAndNoneWhereNothingIsChecked) {
  for (const Row& row : {
           Row{__LINE__, "", "string"},
           Row{__LINE__, "kind: multiline, value_type: float", "float"},
           Row{__LINE__, "kind: flag, value_type: integer", ""},
           Row{__LINE__, "kind: raw", ""},
           Row{__LINE__, "kind: block, terminator: end", ""},
           Row{__LINE__, "kind: counted_rows, value_type: integer", "integer"},
           Row{__LINE__, "kind: counted_rows, row: {types: [integer, float]}", "integer float"},
       }) {
    EXPECT_EQ(value_type_text(described(row.description)), row.text) << "line " << row.line;
  }
}

}  // namespace
}  // namespace kelp::input::bdf
