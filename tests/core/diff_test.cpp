// What to change in one sequence to get another: right, and as little as possible.

#include "kelp/core/diff.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace kelp::core::diff {
namespace {

using Items = std::vector<std::string_view>;

// One item for each letter; the views point into the text.
Items letters(std::string_view text) {
  Items items;
  for (std::size_t i = 0; i < text.size(); ++i) {
    items.push_back(text.substr(i, 1));
  }
  return items;
}

std::string apply(const Items& old_items, const Items& new_items,
                  const std::vector<Change>& changes) {
  std::string result;
  std::size_t at = 0;
  for (const Change& change : changes) {
    for (; at < change.old_begin; ++at) {
      result += old_items[at];
    }
    for (std::size_t i = change.new_begin; i < change.new_end; ++i) {
      result += new_items[i];
    }
    at = change.old_end;
  }
  for (; at < old_items.size(); ++at) {
    result += old_items[at];
  }
  return result;
}

std::size_t cost(const std::vector<Change>& changes) {
  std::size_t sum = 0;
  for (const Change& change : changes) {
    sum += change.old_end - change.old_begin + change.new_end - change.new_begin;
  }
  return sum;
}

std::size_t smallest_cost(std::string_view from, std::string_view to) {
  std::vector<std::vector<std::size_t>> common(from.size() + 1,
                                               std::vector<std::size_t>(to.size() + 1));
  for (std::size_t i = 1; i <= from.size(); ++i) {
    for (std::size_t j = 1; j <= to.size(); ++j) {
      common[i][j] = from[i - 1] == to[j - 1] ? common[i - 1][j - 1] + 1
                                              : std::max(common[i - 1][j], common[i][j - 1]);
    }
  }
  return from.size() + to.size() - 2 * common[from.size()][to.size()];
}

std::string random_word(std::mt19937& random, std::size_t longest, std::size_t alphabet) {
  std::string word(random() % (longest + 1), ' ');
  for (char& letter : word) {
    letter = static_cast<char>('a' + random() % alphabet);
  }
  return word;
}

TEST(FindChanges, EqualSequencesNeedNone) {
  EXPECT_TRUE(find_changes({}, {}).empty());
  EXPECT_TRUE(find_changes(letters("abc"), letters("abc")).empty());
}

TEST(FindChanges, AReplacedItemIsOneChange) {
  const auto changes = find_changes(letters("abc"), letters("axc"));
  ASSERT_EQ(changes.size(), 1U);
  EXPECT_EQ(changes[0].old_begin, 1U);
  EXPECT_EQ(changes[0].old_end, 2U);
  EXPECT_EQ(changes[0].new_begin, 1U);
  EXPECT_EQ(changes[0].new_end, 2U);
}

TEST(FindChanges, SequencesWithNothingInCommonAreOneChange) {
  EXPECT_EQ(find_changes(letters("abc"), letters("xyz")).size(), 1U);
  EXPECT_EQ(find_changes(letters("abc"), {}).size(), 1U);
  EXPECT_EQ(find_changes({}, letters("xyz")).size(), 1U);
}

TEST(FindChanges, AreRightSeparateAndFewest) {
  std::mt19937 random(20);
  for (int round = 0; round < 20000; ++round) {
    const std::size_t alphabet = 1 + random() % 5;
    const std::string from = random_word(random, 14, alphabet);
    const std::string to = random_word(random, 14, alphabet);
    const Items old_items = letters(from);
    const Items new_items = letters(to);
    const std::vector<Change> changes = find_changes(old_items, new_items);
    ASSERT_EQ(apply(old_items, new_items, changes), to) << from;
    ASSERT_EQ(cost(changes), smallest_cost(from, to)) << from << " to " << to;
    for (std::size_t i = 1; i < changes.size(); ++i) {
      ASSERT_LT(changes[i - 1].old_end, changes[i].old_begin) << from << " to " << to;
    }
  }
}

TEST(FindChanges, LongSequencesWithLittleInCommonAreRight) {
  std::mt19937 random(7);
  const std::string from = random_word(random, 30000, 26) + "middle" + std::string(9000, 'a');
  const std::string to = random_word(random, 30000, 26) + "middle" + std::string(5000, 'b');
  const Items old_items = letters(from);
  const Items new_items = letters(to);
  EXPECT_EQ(apply(old_items, new_items, find_changes(old_items, new_items)), to);
}

}  // namespace
}  // namespace kelp::core::diff
