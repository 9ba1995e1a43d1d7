#pragma once

#include <yaml-cpp/yaml.h>

#include <string>
#include <unordered_map>

#include "schema/yaml_values.hpp"
#include "schema_lint/names.hpp"
#include "schema_lint/problems.hpp"

namespace kelp::input::bdf::lint {

/// Checks what a schema says its names and values mean. That something is missing is a problem only
/// of a schema that requires it of itself.
class MeaningCheck {
 public:
  MeaningCheck(Problems& problems, ExpansionBudget& budget)
      : problems_(problems), budget_(budget) {}

  /// Takes up what the map `metadata` says about summaries.
  void check_metadata(const YAML::Node& metadata);
  /// Checks that a name has a summary.
  void check_summary(const NamedItem& item);
  /// Checks the meanings of an entry's values; the description must be of the right form.
  void check_values(const YAML::Node& description);
  /// Takes up the families of basis sets, a map.
  void check_families(const YAML::Node& families);
  /// Checks that a basis set has a summary or a family; to be called when all families are known.
  void check_basis_set(const NamedItem& item);

 private:
  /// Values of a map by their normalised names.
  using Keys = std::unordered_map<std::string, YAML::Node>;

  void check_family(const YAML::Node& name, const YAML::Node& family);
  void check_prefix(const YAML::Node& name, const YAML::Node& prefix);
  Keys take_keys(const YAML::Node& map);
  void check_keys(const Keys& keys, const Names& known, std::string_view message);
  bool is_of_a_family(const std::string& basis) const;

  Problems& problems_;
  ExpansionBudget& budget_;
  bool required_ = false;
  std::unordered_map<std::string, YAML::Node> prefixes_;  ///< to the names of their families
};

}  // namespace kelp::input::bdf::lint
