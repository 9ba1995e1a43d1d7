#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "kelp/input/bdf/schema.hpp"

namespace kelp::app {

/// Says what an unknown name may have been meant to be. The lists that it compares with are made
/// once. The schema must outlive it.
class NameHints {
 public:
  explicit NameHints(const input::bdf::InputSchema& schema) : schema_(schema) {}

  /// Return names and aliases that are near a misspelt one, the nearest first.
  std::vector<std::string> similar_modules(std::string_view name);
  std::vector<std::string> similar_entries(std::string_view module, std::string_view name);
  std::vector<std::string> similar_nested_entries(std::string_view module, std::string_view entry,
                                                  std::string_view name);
  /// Returns the modules that have an entry of that name or alias.
  const std::vector<std::string>& modules_with_entry(const std::string& name);

 private:
  using Names = std::vector<std::string>;

  const input::bdf::InputSchema& schema_;
  Names modules_;
  std::unordered_map<std::string, Names> entries_;         ///< by module, or by module and block
  std::unordered_map<std::string, Names> modules_having_;  ///< by entry
};

}  // namespace kelp::app
