#include <algorithm>
#include <cstddef>
#include <utility>

#include "kelp/core/spelling.hpp"
#include "kelp/input/bdf/names.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::size_t most_suggestions = 3;

}  // namespace

std::vector<std::string> similar_names(std::string_view name,
                                       const std::vector<std::string>& candidates) {
  if (name.size() < 2) {
    return {};
  }
  std::vector<std::pair<std::size_t, std::string>> near;
  for (const std::string& candidate : candidates) {
    const auto slips = core::spelling::slips_if_near(name, candidate);
    if (slips && *slips > 0) {
      near.emplace_back(*slips, candidate);
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
