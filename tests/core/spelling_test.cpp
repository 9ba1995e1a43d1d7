#include "kelp/core/spelling.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace kelp::core::spelling {
namespace {

TEST(Spelling, CountsLettersInsertedDroppedReplacedAndSwapped) {
  EXPECT_EQ(slips_between("charge", "charge", 3), 0U);
  EXPECT_EQ(slips_between("chrage", "CHARGE", 3), 1U);
  EXPECT_EQ(slips_between("charg", "charge", 3), 1U);
  EXPECT_EQ(slips_between("charrge", "charge", 3), 1U);
  EXPECT_EQ(slips_between("cherge", "charge", 3), 1U);
  EXPECT_EQ(slips_between("hcrage", "charge", 3), 2U);
  EXPECT_EQ(slips_between("", "ab", 3), 2U);
}

TEST(Spelling, StopsAtTheLimit) {
  EXPECT_GT(slips_between("abcdef", "uvwxyz", 2), 2U);
  EXPECT_GT(slips_between("a", "abcdef", 2), 2U);
  const std::string longest(longest_word + 1, 'a');
  EXPECT_GT(slips_between(longest, longest, 3), 3U);
}

TEST(Spelling, AllowsLongWordsMoreSlipsThanShortOnes) {
  EXPECT_EQ(slips_if_near("edn", "end"), 1U);
  EXPECT_EQ(slips_if_near("dne", "end"), std::nullopt);
  EXPECT_EQ(slips_if_near("gemoerty", "geometry"), 2U);
  EXPECT_EQ(slips_if_near("gemoertx", "geometry"), std::nullopt);
  EXPECT_EQ(slips_if_near("scf", "scf"), 0U);
}

}  // namespace
}  // namespace kelp::core::spelling
