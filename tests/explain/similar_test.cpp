#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "kelp/input/bdf/names.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Names = std::vector<std::string>;

TEST(SimilarNames, AreOneLetterMoreLessElseOrSwappedAway) {
  for (const char* const slip : {"chargee", "chrge", "chbrge", "chrage", "CHRAGE"}) {
    EXPECT_THAT(similar_names(slip, {"charge", "spinmulti"}), ElementsAre("charge")) << slip;
  }
  EXPECT_THAT(similar_names("spin", {"charge", "spinmulti"}), IsEmpty());
}

TEST(SimilarNames, NeverHoldTheNameItselfInAnyCase) {
  EXPECT_THAT(similar_names("charge", {"charge"}), IsEmpty());
  EXPECT_THAT(similar_names("Charge", {"cHARGE"}), IsEmpty());
}

TEST(SimilarNames, AllowMoreSlipsInALongName) {
  EXPECT_THAT(similar_names("rhx", {"rhf"}), ElementsAre("rhf"));
  EXPECT_THAT(similar_names("rxx", {"rhf"}), IsEmpty());
  EXPECT_THAT(similar_names("exactdiaxxx", {"exactdiagon"}), ElementsAre("exactdiagon"));
  EXPECT_THAT(similar_names("exactdixxxx", {"exactdiagon"}), IsEmpty());
}

TEST(SimilarNames, AreTheNearestOnesOnlyInAlphabeticalOrderAndThreeAtMost) {
  EXPECT_THAT(similar_names("iterate", {"iterxxe", "iteratx", "iteraty"}),
              ElementsAre("iteratx", "iteraty"));
  EXPECT_THAT(similar_names("iter", {"itez", "itey", "itex", "itew"}),
              ElementsAre("itew", "itex", "itey"));
}

TEST(SimilarNames, OfASingleLetterOrOfAnEndlessWordAreNone) {
  EXPECT_THAT(similar_names("", {"a", ""}), IsEmpty());
  EXPECT_THAT(similar_names("a", {"b", "ab"}), IsEmpty());
  const std::string longest(64, 'a');
  EXPECT_THAT(similar_names(longest, {std::string(63, 'a')}), ElementsAre(std::string(63, 'a')));
  EXPECT_THAT(similar_names(longest + "a", {longest}), IsEmpty());
  EXPECT_THAT(similar_names(longest, {longest + "a"}), IsEmpty());
}

TEST(QuotedChoice, JoinsNamesForASentence) {
  EXPECT_EQ(quoted_choice({}), "");
  EXPECT_EQ(quoted_choice({"a"}), "'a'");
  EXPECT_EQ(quoted_choice({"a", "b"}), "'a' or 'b'");
  EXPECT_EQ(quoted_choice({"a", "b", "c"}), "'a', 'b' or 'c'");
}

}  // namespace
}  // namespace kelp::input::bdf
