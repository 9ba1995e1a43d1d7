#include "similar.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "kelp/core/text.hpp"

namespace kelp::app {
namespace {

constexpr std::size_t longest_name = 64;
constexpr std::size_t most_suggestions = 3;

// The number of letters to insert, drop, replace or swap with their neighbour to get from one word
// to the other.
std::size_t distance(std::string_view from, std::string_view to) {
  std::vector<std::vector<std::size_t>> cost(from.size() + 1,
                                             std::vector<std::size_t>(to.size() + 1));
  for (std::size_t i = 0; i <= from.size(); ++i) {
    for (std::size_t j = 0; j <= to.size(); ++j) {
      if (i == 0 || j == 0) {
        cost[i][j] = i + j;
        continue;
      }
      const std::size_t replaced = cost[i - 1][j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
      cost[i][j] = std::min({cost[i - 1][j] + 1, cost[i][j - 1] + 1, replaced});
      if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1]) {
        cost[i][j] = std::min(cost[i][j], cost[i - 2][j - 2] + 1);
      }
    }
  }
  return cost[from.size()][to.size()];
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
    const std::size_t allowed = slips_allowed(std::min(name.size(), candidate.size()));
    const std::size_t slips = distance(wanted, core::text::to_lower(candidate));
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

std::string with_similar(std::string message, std::string_view name,
                         const std::vector<std::string>& candidates) {
  const std::vector<std::string> near = similar_names(name, candidates);
  if (!near.empty()) {
    message += "; did you mean " + quoted_choice(near) + "?";
  }
  return message;
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

}  // namespace kelp::app
