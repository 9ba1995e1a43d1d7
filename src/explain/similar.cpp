#include <algorithm>
#include <array>
#include <cstddef>
#include <numeric>
#include <utility>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/names.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::size_t longest_name = 64;
constexpr std::size_t most_suggestions = 3;

// The number of letters to insert, drop, replace or swap with their neighbour to get from one word
// to the other; some greater number when it is more than `limit`. Neither word may be longer than
// the longest name.
std::size_t distance(std::string_view from, std::string_view to, std::size_t limit) {
  // Of the table of all beginnings of both words, three rows are needed at a time.
  std::array<std::array<std::size_t, longest_name + 1>, 3> rows;
  std::iota(rows[0].begin(), rows[0].begin() + to.size() + 1, std::size_t{0});
  std::size_t least_before = 0;
  for (std::size_t i = 1; i <= from.size(); ++i) {
    auto& row = rows[i % 3];
    const auto& last = rows[(i + 2) % 3];
    const auto& before_last = rows[(i + 1) % 3];
    row[0] = i;
    std::size_t least = i;
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
      if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1]) {
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

// Short names have many neighbours: one slip in three letters, three in a long name.
std::size_t slips_allowed(std::size_t length) {
  return std::clamp<std::size_t>(length / 3, 1, 3);
}

}  // namespace

std::vector<std::string> similar_names(std::string_view name,
                                       const std::vector<std::string>& candidates) {
  if (name.size() < 2 || name.size() > longest_name) {
    return {};
  }
  const std::string wanted = core::text::to_lower(name);
  std::vector<std::pair<std::size_t, std::string>> near;
  for (const std::string& candidate : candidates) {
    // Not of two temporaries, to which it would return references.
    const auto [shorter, longer] = std::minmax({name.size(), candidate.size()});
    const std::size_t allowed = slips_allowed(shorter);
    if (longer > longest_name || longer - shorter > allowed) {
      continue;
    }
    const std::size_t slips = distance(wanted, core::text::to_lower(candidate), allowed);
    if (slips > 0 && slips <= allowed) {
      near.emplace_back(slips, candidate);
    }
  }
  std::sort(near.begin(), near.end());
  std::vector<std::string> names;
  for (auto& [slips, candidate] : near) {
    // What needs more slips than the best is hardly what was meant.
    if (slips == near.front().first && names.size() < most_suggestions) {
      names.push_back(std::move(candidate));
    }
  }
  return names;
}

std::string quoted_choice(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) {
      text += i + 1 == names.size() ? " or " : ", ";
    }
    text += "'" + names[i] + "'";
  }
  return text;
}

}  // namespace kelp::input::bdf
