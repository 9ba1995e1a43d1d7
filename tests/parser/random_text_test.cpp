// Texts thrown together from what the format is made of, always the same ones. Whatever the text,
// nothing is thrown, every line is kept in one place, and the document holds together.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>

#include "parser/parsing.hpp"
#include "support/line_claims.hpp"

namespace kelp::input::bdf {
namespace {

using namespace std::string_view_literals;
using ::testing::IsEmpty;

constexpr std::array fragments = {"$m"sv,
                                  "$em"sv,
                                  "$other"sv,
                                  "$odd"sv,
                                  "$end"sv,
                                  "$END"sv,
                                  "$end # x"sv,
                                  "$$end"sv,
                                  "$"sv,
                                  "flag"sv,
                                  "F 1"sv,
                                  "scalar"sv,
                                  "tuple"sv,
                                  "lines"sv,
                                  "rows"sv,
                                  "nest"sv,
                                  "open"sv,
                                  "block"sv,
                                  "upto_blank"sv,
                                  "dollar"sv,
                                  "raw"sv,
                                  "cflag"sv,
                                  "cscalar"sv,
                                  "clines"sv,
                                  "crows"sv,
                                  "cblock"sv,
                                  "cnest"sv,
                                  "craw"sv,
                                  "deep"sv,
                                  "endnest"sv,
                                  "EndBlock"sv,
                                  "endcblock"sv,
                                  "odd"sv,
                                  "# c"sv,
                                  "* d"sv,
                                  "#!"sv,
                                  "#! job"sv,
                                  "%ls"sv,
                                  "&database"sv,
                                  "&end"sv,
                                  "geometry"sv,
                                  "Geometry # x"sv,
                                  "end geometry"sv,
                                  "geometry2"sv,
                                  "H 0 0 0"sv,
                                  "O 1d0 x 2"sv,
                                  "hf/svp"sv,
                                  "q = 1"sv,
                                  "maxit=2"sv,
                                  "="sv,
                                  "1"sv,
                                  "2"sv,
                                  "-1"sv,
                                  "1.5"sv,
                                  "3 4"sv,
                                  ""sv,
                                  " "sv,
                                  "\t"sv,
                                  "\v"sv,
                                  "\0"sv,
                                  "\xff\x80"sv,
                                  "\r"sv,
                                  ","sv,
                                  "99999999999999999999"sv};

class RandomText {
 public:
  explicit RandomText(unsigned seed) : engine_(seed) {}

  std::string next() {
    std::string text;
    const std::size_t lines = below(40);
    for (std::size_t i = 0; i < lines; ++i) {
      text += pick(std::array{""sv, ""sv, ""sv, " "sv, "\t"sv, "\v"sv});
      text += pick(fragments);
      text += pick(std::array{""sv, ""sv, ""sv, " "sv, "\r"sv, " x"sv, " # y"sv});
      text += pick(std::array{"\n"sv, "\n"sv, "\n"sv, "\r\n"sv, "\r"sv, ""sv});
    }
    return text;
  }

 private:
  // Not a standard distribution: those differ from one library to the next.
  std::size_t below(std::size_t end) { return engine_() % end; }

  template <std::size_t N>
  std::string_view pick(const std::array<std::string_view, N>& from) {
    return from[below(N)];
  }

  std::mt19937 engine_;
};

TEST(RandomText, LosesNoLineAndHoldsTogether) {
  RandomText source(20240229);
  for (int i = 0; i < 20000; ++i) {
    const std::string text = source.next();
    const ParseOptions given = {i % 2 == 0, i % 3 != 0 || i % 2 != 0, i % 5 - 1, i % 7 == 0};
    const ParseResult result = parse(text, given);
    ASSERT_THAT(wrong_claims(text, schema_of_all_kinds(), given), IsEmpty()) << text;
    ASSERT_THAT(broken_invariants(result.data), IsEmpty()) << text;
  }
}

TEST(RandomText, HoldsTogetherWhereUnknownLinesAreDropped) {
  RandomText source(19991231);
  for (int i = 0; i < 5000; ++i) {
    const std::string text = source.next();
    const ParseResult result = parse(text, options(false, false));
    ASSERT_THAT(broken_invariants(result.data), IsEmpty()) << text;
  }
}

TEST(RandomText, IsReadAlikeEachTime) {
  RandomText source(7);
  for (int i = 0; i < 2000; ++i) {
    const std::string text = source.next();
    const BDFData first = document(text);
    const BDFData second = document(text);
    ASSERT_EQ(outline(first.statements), outline(second.statements));
    ASSERT_EQ(first.modules.size(), second.modules.size());
    for (std::size_t m = 0; m < first.modules.size(); ++m) {
      ASSERT_EQ(outline(first.modules[m].entries), outline(second.modules[m].entries));
    }
  }
}

TEST(RandomText, ValidatingAddsFindingsAndChangesNothingElse) {
  RandomText source(1582);
  for (int i = 0; i < 2000; ++i) {
    const std::string text = source.next();
    const BDFData checked = document(text, options(true, true));
    const BDFData unchecked = document(text, options(true, false));
    ASSERT_EQ(outline(checked.statements), outline(unchecked.statements)) << text;
    ASSERT_EQ(checked.mode, unchecked.mode) << text;
    ASSERT_THAT(unchecked.warnings, IsEmpty()) << text;
  }
}

}  // namespace
}  // namespace kelp::input::bdf
