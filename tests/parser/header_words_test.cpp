// How a header line falls into tokens; the odd rows follow from the rules being tried in order.

#include "parser/header_words.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace kelp::input::bdf {
namespace {

struct Row {
  std::string_view line;
  std::vector<std::string> tokens;
};

void expect_tokens(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    EXPECT_EQ(split_header_line(row.line).tokens, row.tokens) << "\"" << row.line << "\"";
  }
}

TEST(HeaderWords, EverySpellingOfAPairIsOneToken) {
  expect_tokens({{"scf=rhf", {"scf=rhf"}},
                 {"scf = rhf", {"scf=rhf"}},
                 {"scf= rhf", {"scf=rhf"}},
                 {"scf =rhf", {"scf=rhf"}},
                 {" \tscf\t=\v rhf ", {"scf=rhf"}}});
}

TEST(HeaderWords, WordsWithoutEqualsSignsStandAlone) {
  expect_tokens({{"", {}},
                 {" \t\v\f\r ", {}},
                 {"a", {"a"}},
                 {"B3lyp/def2-svp  opt\tgrad", {"B3lyp/def2-svp", "opt", "grad"}},
                 {"a\vb\fc", {"a", "b", "c"}},
                 {"a # b", {"a", "#", "b"}}});
}

TEST(HeaderWords, ALoneEqualsSignJoinsItsNeighbours) {
  expect_tokens({{"a = b c", {"a=b", "c"}},
                 {"x a = b", {"x", "a=b"}},
                 {"a =", {"a="}},
                 {"x a =", {"x", "a="}},
                 {"=", {"="}},
                 {"= a", {"=", "a"}},
                 {"a = = b", {"a==", "b"}},
                 {"= = b", {"==b"}},
                 {"a = b = c", {"a=b=c"}}});
}

TEST(HeaderWords, AWordThatEndsInAnEqualsSignTakesTheNextWord) {
  expect_tokens({{"a= b c", {"a=b", "c"}},
                 {"a= =", {"a=="}},
                 {"a=", {"a="}},
                 {"x a=", {"x", "a="}},
                 {"x =y= z", {"x", "=y=z"}},
                 {"x == z", {"x", "==z"}},
                 {"a=b= c", {"a=b=c"}}});
}

TEST(HeaderWords, AWordThatBeginsWithAnEqualsSignJoinsTheTokenBefore) {
  expect_tokens({{"a =b c", {"a=b", "c"}},
                 {"=b", {"=b"}},
                 {"=b c", {"=b", "c"}},
                 {"a =b =c", {"a=b=c"}},
                 {"x ==", {"x=="}},
                 {"x =y=", {"x=y="}}});
}

}  // namespace
}  // namespace kelp::input::bdf
