#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

namespace kelp::input::bdf::lint {

/// Limits on a number of fields.
struct Arity {
  std::optional<std::uint64_t> exact;
  std::optional<std::uint64_t> least;
  std::optional<std::uint64_t> most;
  std::vector<std::uint64_t> allowed;

  bool allows(std::uint64_t count) const {
    return (!exact || count == *exact) && (!least || count >= *least) &&
           (!most || count <= *most) &&
           (allowed.empty() || std::find(allowed.begin(), allowed.end(), count) != allowed.end());
  }

  bool is_possible() const {
    if (exact) {
      return allows(*exact);
    }
    if (!allowed.empty()) {
      return std::any_of(allowed.begin(), allowed.end(),
                         [this](std::uint64_t count) { return allows(count); });
    }
    return !least || !most || *least <= *most;
  }
};

}  // namespace kelp::input::bdf::lint
