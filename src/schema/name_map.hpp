#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "kelp/core/text.hpp"

namespace kelp::input::bdf {

/// Hashes owned and borrowed names alike and in any case (FNV-1a), so that a look-up needs no
/// normalised copy of a name, and so no allocation.
struct NameHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view name) const noexcept {
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const char byte : name) {
      hash = (hash ^ static_cast<unsigned char>(core::text::to_lower(byte))) * 0x100000001b3U;
    }
    return static_cast<std::size_t>(hash);
  }
};

/// Tells whether two names differ in case at most.
struct NameEqual {
  using is_transparent = void;
  bool operator()(std::string_view left, std::string_view right) const noexcept {
    return core::text::equals_ignoring_case(left, right);
  }
};

/// Maps normalised names; look-ups take bare keys.
template <typename Value>
using NameMap = std::unordered_map<std::string, Value, NameHash, NameEqual>;

/// Maps aliases, and each name itself, to canonical names.
using AliasMap = NameMap<std::string>;

/// Returns the value under a bare key, or null.
template <typename Value>
const Value* find_in(const NameMap<Value>& map, std::string_view name) noexcept {
  const auto found = map.find(name);
  return found == map.end() ? nullptr : &found->second;
}

}  // namespace kelp::input::bdf
