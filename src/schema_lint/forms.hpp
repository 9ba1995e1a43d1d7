#pragma once

#include <yaml-cpp/yaml.h>

#include <span>
#include <string_view>

#include "schema/yaml_values.hpp"
#include "schema_lint/problems.hpp"

namespace kelp::input::bdf::lint {

/// What kind of node a key wants.
enum class Form {
  Text,
  Bool,
  Number,
  Count,
  Integer,
  TextList,
  CountList,
  Map,
  TextMap,       ///< a map of texts
  NameList,      ///< a map or a sequence of texts
  Requirements,  ///< a text, or a sequence of texts and of maps with `entry` and `equals`
};

/// A key of a map and what it wants.
struct KeyRule {
  std::string_view key;
  Form form;
};

/// How often the checks of the linter come by a node, at most.
inline constexpr unsigned visits_of_a_linter = 16;

/// Checks the nodes of a document for their form.
class FormCheck {
 public:
  FormCheck(Problems& problems, ExpansionBudget& budget) : problems_(problems), budget_(budget) {}

  /// Checks a map that has fixed keys: that it is one, that its keys are known and given once, and
  /// that each value has the form that its key wants. `thing` names the map: "a module".
  /// Returns whether all of that is so.
  bool check_map(const YAML::Node& node, std::span<const KeyRule> rules, std::string_view thing);

  /// Checks one value. Returns whether it is right.
  bool check(const YAML::Node& value, Form form, std::string_view key);

 private:
  bool check_key(const YAML::Node& key, const YAML::Node& value, std::span<const KeyRule> rules,
                 std::string_view thing);
  bool check_list(const YAML::Node& value, Form item_form, std::string_view key);
  bool check_text_map(const YAML::Node& value, std::string_view key);
  bool check_requirements(const YAML::Node& value, std::string_view key);
  bool check_requirement(const YAML::Node& item, std::string_view key);
  bool converts(const YAML::Node& value, Form form) const;
  bool wrong_type(const YAML::Node& value, std::string_view key, std::string_view wanted);

  Problems& problems_;
  ExpansionBudget& budget_;
};

/// Returns what a node is, in words: "a list".
std::string_view node_text(const YAML::Node& node);

}  // namespace kelp::input::bdf::lint
