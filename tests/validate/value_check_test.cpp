// Which values agree with a description: their number, type, bounds and the list of those allowed.

#include <initializer_list>
#include <string>
#include <string_view>

#include "validate/findings.hpp"

namespace kelp::input::bdf {
namespace {

using namespace std::string_view_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A document whose only entry, `m.e`, has these value lines.
BDFData with_values(std::vector<std::string> values) {
  BDFData data;
  data.mode = InputMode::Module;
  data.modules.resize(1);
  data.modules[0].name = "m";
  data.modules[0].known = true;
  data.modules[0].entries.resize(1);
  data.modules[0].entries[0].name = "e";
  data.modules[0].entries[0].values = std::move(values);
  return data;
}

InputSchema described(std::string_view description) {
  return schema_from("modules: {m: {entries: {e: {" + std::string(description) + "}}}}");
}

void expect_valid(std::string_view description, std::initializer_list<std::string_view> values) {
  for (const std::string_view value : values) {
    EXPECT_THAT(findings(described(description), with_values({std::string(value)})), IsEmpty())
        << description << ": " << value;
  }
}

void expect_invalid(std::string_view description, std::initializer_list<std::string_view> values) {
  for (const std::string_view value : values) {
    EXPECT_THAT(findings(described(description), with_values({std::string(value)})),
                ElementsAre("nowhere error bdf.invalid_module_value BDF module entry 'm.e' has an "
                            "invalid value '" +
                            std::string(value) + "'."))
        << description << ": " << value;
  }
}

TEST(ValueType, AnyTextIsAStringOrAnything) {
  for (const std::string_view type : {"", "value_type: string", "value_type: ANY", "value_type: ''",
                                      "value_type: bool", "value_type: odd"}) {
    expect_valid(type, {"x", "1 2 3", "1.5,x", "\x80", "-"});
  }
}

TEST(ValueType, AnIntegerIsADecimalOf64BitsWithASign) {
  expect_valid("value_type: integer", {"0", "-0", "+7", "-7", "007", "9223372036854775807",
                                       "-9223372036854775808", "1 2", "1,2,-3", ", 1 ,"});
  expect_invalid("value_type: integer",
                 {"1.5", "1.", "x", "1x", "0x10", "1e3", "+-1", "--1", "+", "-", "1 x", "1_0",
                  "9223372036854775808", "-9223372036854775809", "99999999999999999999", "1;2"});
}

TEST(ValueType, AFloatIsWhatTheCLibraryReadsWithFortranExponentsToo) {
  for (const std::string_view type : {"value_type: float", "value_type: Number"}) {
    expect_valid(type, {"1", "-1.5", "+.5", "5.", "1e3", "1E-3", "1.0D-3", "1.0d-3", "1d0", "0x1p3",
                        "inf", "-INFINITY", "nan", "1.5 2.5", "1e308", "1e-307", "0", "-0.0"});
    expect_invalid(type, {"1.5x", "x", "1e", "1d", "e5", "1..2", "1.5F0", ".", "+-1", "1e400",
                          "-1e400", "1e-320", "1 x", "0x"});
  }
}

TEST(ValueType, OfAnArrayIsThatOfItsItems) {
  expect_invalid("kind: multiline, value_type: integer_array", {"1 2.5"});
  expect_invalid("kind: multiline, value_type: Float_Array", {"1 x"});
  expect_invalid("kind: multiline, value_type: number_array", {"1 x"});
  expect_valid("kind: multiline, value_type: string_array", {"1 x"});
}

TEST(Bounds, AreInclusiveUnlessTheSchemaSaysOtherwise) {
  expect_valid("value_type: integer, min: 0, max: 10", {"0", "10", "5", "+0"});
  expect_invalid("value_type: integer, min: 0, max: 10", {"-1", "11", "5 11"});
  expect_valid("value_type: float, min: 0, min_exclusive: true", {"0.0001", "1e300"});
  expect_invalid("value_type: float, min: 0, min_exclusive: true", {"0", "-0.0", "-1"});
  expect_valid("value_type: number, max: 1.5, max_exclusive: true", {"1.4999", "-1"});
  expect_invalid("value_type: number, max: 1.5, max_exclusive: true", {"1.5", "15D-1", "2", "inf"});
}

TEST(Bounds, LetWhatIsNotANumberThrough) {
  expect_valid("value_type: float, min: 0, max: 1, min_exclusive: true", {"nan"});
}

TEST(Bounds, ConcernNumbersOnly) {
  expect_valid("min: 5, max: 6", {"1", "x"});
}

TEST(Arity, CountsTheFieldsOfAllLines) {
  expect_valid("kind: tuple, arity: 2", {"1 2", "1,2", " a ,b ", "1,,2", ",1,2,"});
  expect_invalid("kind: tuple, arity: 2", {"1", "1,2,3", "1 2 3"});
  expect_valid("min_arity: 2, max_arity: 3", {"1 2", "1 2 3"});
  expect_invalid("min_arity: 2, max_arity: 3", {"1", "1 2 3 4"});
  expect_valid("allowed_arities: [1, 3]", {"1", "1 2 3"});
  expect_invalid("allowed_arities: [1, 3]", {"1 2", "1 2 3 4"});
  expect_valid("arity: 0, allowed_arities: []", {","});
  const InputSchema three = described("kind: multiline, arity: 3");
  EXPECT_THAT(findings(three, with_values({"1 2", "# x", "", "3"})), IsEmpty());
  EXPECT_THAT(findings(three, with_values({"1 2", "3", "4"})).size(), 1U);
}

TEST(Arity, LimitsHoldTogether) {
  expect_invalid("arity: 2, allowed_arities: [3]", {"1 2", "1 2 3"});
  expect_invalid("arity: 2, max_arity: 1", {"1", "1 2"});
  expect_invalid("min_arity: 3, allowed_arities: [2]", {"1 2", "1 2 3"});
}

TEST(AllowedValues, AreComparedInLowerCaseWithoutOneDollar) {
  expect_valid("allowed: [Yes, NO]", {"yes", "YES", "$YES", "$no"});
  expect_invalid("allowed: [Yes, NO]", {"maybe", "$$yes", "y", "yes no"});
}

TEST(AllowedValues, AreComparedWithAllFieldsJoinedByBlanks) {
  expect_valid("allowed: ['1 2']", {"1 2", "1,2", "1 ,\t2"});
  expect_invalid("allowed: ['1 2']", {"1", "2", "12", "2 1"});
  expect_invalid("allowed: ['1,2', '1  2']", {"1 2", "1,2"});
  const InputSchema pair = described("kind: multiline, allowed: [a b]");
  EXPECT_THAT(findings(pair, with_values({"A", "b # x"})), IsEmpty());
}

TEST(AllowedValues, MustHaveTheRightTypeToo) {
  expect_valid("value_type: integer, allowed: ['1']", {"1"});
  expect_invalid("value_type: integer, allowed: ['1', x]", {"x", "2", "+1"});
}

TEST(CleanedLines, HaveNoCommentsAndNoBlanksAround) {
  const InputSchema integers = described("kind: multiline, value_type: integer");
  EXPECT_THAT(findings(integers, with_values({" 1 # x", "#", "", "\t", "2#3", "# y"})), IsEmpty());
}

TEST(CleanedLines, AreQuotedWithBarsBetweenThem) {
  const InputSchema integers = described("kind: multiline, value_type: integer");
  EXPECT_THAT(findings(integers, with_values({" 1,2 ", "# c", "x # d", "", "3  4"})),
              ElementsAre("nowhere error bdf.invalid_module_value BDF module entry 'm.e' has an "
                          "invalid value '1,2 | x | 3  4'."));
}

TEST(CleanedLines, NoneOfThemAreAnEmptyList) {
  for (const std::string_view description : {"", "value_type: integer", "max_arity: 3"}) {
    EXPECT_THAT(findings(described(description), with_values({"# c", " "})), IsEmpty());
  }
  for (const std::string_view description : {"arity: 1", "min_arity: 1", "allowed: [x]"}) {
    EXPECT_THAT(findings(described(description), with_values({"# c"})),
                ElementsAre("nowhere error bdf.invalid_module_value BDF module entry 'm.e' has an "
                            "invalid value ''."))
        << description;
  }
  EXPECT_THAT(findings(described("allowed: ['']"), with_values({"# c"})), IsEmpty());
}

TEST(CleanedLines, KeepAStarForItIsNoCommentThere) {
  expect_invalid("value_type: integer", {"* 1"});
}

TEST(ValueText, MayHoldAnyByte) {
  expect_invalid("value_type: float", {"1\0"sv, "\xff", "1\x80"});
}

}  // namespace
}  // namespace kelp::input::bdf
