#pragma once

#include <yaml-cpp/yaml.h>

#include <string_view>

#include "schema/yaml_values.hpp"
#include "schema_lint/names.hpp"
#include "schema_lint/problems.hpp"

namespace kelp::input::bdf::lint {

/// What a description describes. Not every key means something for each.
enum class Described { Entry, NestedEntry, Keyword };

/// Checks the description of an entry or an easy keyword for its form. Returns whether it can be
/// read, so that its meaning can be checked.
bool check_description_form(const YAML::Node& map, Problems& problems, ExpansionBudget& budget);

/// Checks the words of a description that are one of a list, its kind and its types, whatever else
/// is wrong about it.
void check_words(const YAML::Node& map, Described described, Problems& problems,
                 ExpansionBudget& budget);

/// Checks what a description says, which must be of the right form.
void check_description(const YAML::Node& map, Described described, Problems& problems,
                       ExpansionBudget& budget);

/// Checks what a description says about the other entries of its module or block.
void check_relations(const NamedItem& item, Described described, const NameTable& siblings,
                     Problems& problems, ExpansionBudget& budget);

}  // namespace kelp::input::bdf::lint
