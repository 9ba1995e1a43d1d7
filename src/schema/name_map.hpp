#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace kelp::input::bdf {

/// Hashes owned and borrowed names alike, so that a look-up allocates nothing.
struct NameHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view name) const noexcept {
    return std::hash<std::string_view>{}(name);
  }
};

/// Maps normalised names.
template <typename Value>
using NameMap = std::unordered_map<std::string, Value, NameHash, std::equal_to<>>;

/// Maps aliases, and each name itself, to canonical names.
using AliasMap = NameMap<std::string>;

/// Returns the value under a name, or null.
template <typename Value>
const Value* find_in(const NameMap<Value>& map, std::string_view name) {
  const auto found = map.find(name);
  return found == map.end() ? nullptr : &found->second;
}

}  // namespace kelp::input::bdf
