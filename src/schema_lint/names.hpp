#pragma once

#include <yaml-cpp/yaml.h>

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "schema/yaml_values.hpp"
#include "schema_lint/problems.hpp"

namespace kelp::input::bdf::lint {

/// One name of a map or list of names, with what is said about it.
struct NamedItem {
  std::string name;  ///< normalised
  YAML::Node key;
  YAML::Node value;
};

/// The names of one map or list, and who bears them.
class NameTable {
 public:
  /// Takes up all names, then all aliases, reporting those that collide or can never be met.
  /// `thing` is what the names stand for: "entry".
  NameTable(const YAML::Node& node, std::string_view thing, Problems& problems,
            ExpansionBudget& budget);

  const std::vector<NamedItem>& items() const { return items_; }
  /// Returns the item that a name or alias means, or null.
  const NamedItem* find(const std::string& name) const;
  /// Returns all names, for suggestions.
  Names names() const;

 private:
  void add_items(const YAML::Node& node);
  void add_name(const YAML::Node& key, const YAML::Node& value);
  void add_aliases();
  void add_alias(std::size_t owner, const YAML::Node& alias);
  bool is_usable(const std::string& name, const YAML::Node& node);

  std::string thing_;
  Problems& problems_;
  ExpansionBudget& budget_;
  std::vector<NamedItem> items_;
  std::unordered_map<std::string, std::size_t> owners_;   ///< of names
  std::unordered_map<std::string, std::size_t> aliases_;  ///< owners of aliases
};

}  // namespace kelp::input::bdf::lint
