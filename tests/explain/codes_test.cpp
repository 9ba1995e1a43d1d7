#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "kelp/input/bdf/explain.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(CodePatterns, AreACodeOrWhatItBeginsWith) {
  EXPECT_TRUE(matches_code("bdf.unknown_entry", "bdf.unknown_entry"));
  EXPECT_TRUE(matches_code("BDF.Unknown_Entry", "bdf.unknown_entry"));
  EXPECT_TRUE(matches_code("bdf.*", "bdf.unknown_entry"));
  EXPECT_TRUE(matches_code("Bdf.Unk*", "bdf.unknown_entry"));
  EXPECT_TRUE(matches_code("bdf.unknown_entry*", "bdf.unknown_entry"));
  EXPECT_TRUE(matches_code("*", "bdf.unknown_entry"));
  EXPECT_FALSE(matches_code("", "bdf.unknown_entry"));
  EXPECT_FALSE(matches_code("bdf.unknown", "bdf.unknown_entry"));
  EXPECT_FALSE(matches_code("bdf.unknown_entry_*", "bdf.unknown_entry"));
  EXPECT_FALSE(matches_code("*.unknown_entry", "bdf.unknown_entry"));
  EXPECT_FALSE(matches_code("unknown_entry", "bdf.unknown_entry"));
}

TEST(CodePatterns, MeanCodesThatThereAre) {
  EXPECT_TRUE(means_any_code("text.encoding"));
  EXPECT_TRUE(means_any_code("text.*"));
  EXPECT_TRUE(means_any_code("*"));
  EXPECT_FALSE(means_any_code("text"));
  EXPECT_FALSE(means_any_code("text.encodings"));
  EXPECT_FALSE(means_any_code("texts.*"));
  EXPECT_FALSE(means_any_code(""));
}

TEST(CodePatterns, ThatMeanNothingAreSlipsOfOthers) {
  EXPECT_THAT(similar_codes("bdf.unknown_entri"), ElementsAre("bdf.unknown_entry"));
  EXPECT_THAT(similar_codes("unknown_entry"), ElementsAre("bdf.unknown_entry"));
  EXPECT_THAT(similar_codes("schem.*"), ElementsAre("schema.*"));
  EXPECT_THAT(similar_codes("schema.redundant"), IsEmpty());
  EXPECT_THAT(similar_codes("nothing.like_it"), IsEmpty());
}

}  // namespace
}  // namespace kelp::input::bdf
