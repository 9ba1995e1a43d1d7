// The distance of Damerau and Levenshtein, as far as it is needed: of the table of all beginnings
// of both words three rows are kept, and it is left as soon as no later row can come below the
// limit.

#include "kelp/core/spelling.hpp"

#include <algorithm>
#include <array>
#include <numeric>

#include "kelp/core/text.hpp"

namespace kelp::core::spelling {
namespace {

bool same(char left, char right) noexcept {
  return text::to_lower(left) == text::to_lower(right);
}

std::size_t difference(std::size_t left, std::size_t right) noexcept {
  return left < right ? right - left : left - right;
}

}  // namespace

std::size_t slips_between(std::string_view from, std::string_view to, std::size_t limit) noexcept {
  if (from.size() > longest_word || to.size() > longest_word ||
      difference(from.size(), to.size()) > limit) {
    return limit + 1;
  }
  std::array<std::array<std::size_t, longest_word + 1>, 3> rows;
  std::iota(rows[0].begin(), rows[0].begin() + to.size() + 1, std::size_t{0});
  std::size_t least_before = 0;
  for (std::size_t i = 1; i <= from.size(); ++i) {
    auto& row = rows[i % 3];
    const auto& last = rows[(i + 2) % 3];
    const auto& before_last = rows[(i + 1) % 3];
    row[0] = i;
    std::size_t least = i;
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (same(from[i - 1], to[j - 1]) ? 0 : 1);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
      if (i > 1 && j > 1 && same(from[i - 1], to[j - 2]) && same(from[i - 2], to[j - 1])) {
        row[j] = std::min(row[j], before_last[j - 2] + 1);
      }
      least = std::min(least, row[j]);
    }
    // No later cell is less than all of this row, or than all of the row before and a swap.
    if (least > limit && least_before >= limit) {
      return limit + 1;
    }
    least_before = least;
  }
  return rows[from.size() % 3][to.size()];
}

std::optional<std::size_t> slips_if_near(std::string_view word, std::string_view other) noexcept {
  // Short words have many neighbours: one slip in three letters, three in a long word.
  const std::size_t shorter = std::min(word.size(), other.size());
  const std::size_t allowed = std::clamp<std::size_t>(shorter / 3, 1, 3);
  const std::size_t slips = slips_between(word, other, allowed);
  return slips <= allowed ? std::optional(slips) : std::nullopt;
}

}  // namespace kelp::core::spelling
