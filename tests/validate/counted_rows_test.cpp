// A count and that many rows of columns.

#include <string>
#include <string_view>
#include <vector>

#include "validate/findings.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Row {
  std::vector<std::string> values;
  bool valid;
};

void expect_validity(std::string_view description, const std::vector<Row>& rows) {
  const InputSchema schema = schema_from("modules: {m: {entries: {e: {kind: counted_rows, " +
                                         std::string(description) + "}}}}");
  for (const Row& row : rows) {
    BDFData data;
    data.mode = InputMode::Module;
    data.modules.resize(1);
    data.modules[0].name = "m";
    data.modules[0].known = true;
    data.modules[0].entries.resize(1);
    data.modules[0].entries[0].name = "e";
    data.modules[0].entries[0].values = row.values;
    const Findings found = findings(schema, data);
    EXPECT_EQ(found.empty(), row.valid)
        << description << ": " << ::testing::PrintToString(row.values);
  }
}

TEST(CountLine, IsOneIntegerThatCountsTheOtherLines) {
  expect_validity("count_line: true", {{{"0"}, true},
                                       {{"2", "a", "b"}, true},
                                       {{"+2", "a", "b"}, true},
                                       {{" 2 # rows", "a", "# c", "", "b"}, true},
                                       {{"# c", "1", "a"}, true},
                                       {{"2,", "a", "b"}, true},
                                       {{"1"}, false},
                                       {{"2", "a"}, false},
                                       {{"2", "a", "b", "c"}, false},
                                       {{"-1"}, false},
                                       {{"-1", "a"}, false},
                                       {{"1 1", "a"}, false},
                                       {{"1.0", "a"}, false},
                                       {{"one", "a"}, false},
                                       {{","}, false},
                                       {{"99999999999999999999", "a"}, false}});
}

TEST(CountLine, IsCheckedAgainstNoTypeAndNoLimit) {
  expect_validity("count_line: true, value_type: float, min: 5, arity: 3, allowed: [x]",
                  {{{"1", "6"}, true}, {{"1", "4"}, false}});
}

TEST(CountLine, IsARowWhereTheSchemaDoesNotAskForOne) {
  expect_validity("", {{{"2", "a"}, true}, {{"x"}, true}});
  expect_validity("row: {arity: 2}", {{{"1 2", "3 4"}, true}, {{"1", "1 2"}, false}});
}

TEST(CountedRows, NeedOneLineThatIsNoComment) {
  expect_validity("", {{{"# c"}, false}, {{"", " "}, false}, {{"x"}, true}});
  expect_validity("count_line: true", {{{"# c"}, false}});
}

TEST(CountedRows, EachHaveTheRightNumberOfColumns) {
  expect_validity("row: {arity: 2}", {{{"1 2", "3,4"}, true}, {{"1 2", "3"}, false}});
  expect_validity("row: {min_arity: 2, max_arity: 3}",
                  {{{"1 2", "1 2 3"}, true}, {{"1"}, false}, {{"1 2 3 4"}, false}});
  expect_validity("row: {allowed_arities: [1, 3]}",
                  {{{"1", "1 2 3"}, true}, {{"1 2"}, false}, {{"1", "1 2"}, false}});
}

TEST(CountedRows, AreNotHeldToTheArityOfWholeValues) {
  expect_validity("arity: 1, min_arity: 9, max_arity: 0, allowed_arities: [7], allowed: [x]",
                  {{{"1 2", "3"}, true}});
}

TEST(CountedRows, HaveTypedColumnsTheLastTypeHoldingForTheRest) {
  expect_validity("row: {types: [string, integer, Float]}", {{{"x 1 1.5"}, true},
                                                             {{"x"}, true},
                                                             {{"x 1 1.5 2.5 3d0"}, true},
                                                             {{"x 1.5"}, false},
                                                             {{"x 1 y"}, false},
                                                             {{"x 1 1.5 y"}, false},
                                                             {{"x 1", "x y"}, false}});
}

TEST(CountedRows, WithoutColumnTypesHaveThatOfTheValue) {
  expect_validity("value_type: integer", {{{"1 2", "3"}, true}, {{"1", "2 x"}, false}});
  expect_validity("value_type: integer, row: {types: [string]}", {{{"x y"}, true}});
}

TEST(CountedRows, ColumnTypesKnowNoArrays) {
  expect_validity("row: {types: integer_array}", {{{"x"}, true}});
}

TEST(CountedRows, EveryNumberIsWithinTheBoundsOfTheEntry) {
  expect_validity("min: 0, max: 10, max_exclusive: true, row: {types: [string, integer, float]}",
                  {{{"99 0 9.99"}, true}, {{"x -1"}, false}, {{"x 1 10"}, false}});
}

TEST(CountedRows, AreReportedOnceWithAllLinesTheCountIncluded) {
  const InputSchema schema = schema_from(
      "modules: {m: {entries: {e: {kind: counted_rows, count_line: true, row: {arity: 1}}}}}");
  EXPECT_THAT(findings(schema, "$m\ne\n 2 # two\na b\nc d\n$end\n"),
              ElementsAre("2:1+1 error bdf.invalid_module_value BDF module entry 'm.e' has an "
                          "invalid value '2 | a b | c d'."));
  EXPECT_THAT(findings(schema, "$m\ne\n 2\na\nb\n$end\n"), IsEmpty());
}

TEST(CountedRows, OneRowTooManyMakesTheMessageListAllLines) {
  const InputSchema schema =
      schema_from("modules: {m: {entries: {e: {kind: counted_rows, count_line: true}}}}");
  BDFData data = BDFParser::parse_string("$m\ne\n2\na\nb\n$end\n", schema, {}).data;
  data.modules.at(0).entries.at(0).values.push_back(" c ");
  EXPECT_THAT(findings(schema, data),
              ElementsAre("2:1+1 error bdf.invalid_module_value BDF module entry 'm.e' has an "
                          "invalid value '2 | a | b | c'."));
}

TEST(CountedRows, WithNothingButCommentsAreQuotedAsEmpty) {
  const InputSchema schema = schema_from("modules: {m: {entries: {e: {kind: counted_rows}}}}");
  EXPECT_THAT(findings(schema, "$m\ne\n# c\n$end\n"),
              ElementsAre("2:1+1 error bdf.invalid_module_value BDF module entry 'm.e' has an "
                          "invalid value ''."));
}

}  // namespace
}  // namespace kelp::input::bdf
