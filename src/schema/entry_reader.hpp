#pragma once

#include <yaml-cpp/yaml.h>

#include <cstddef>
#include <string>
#include <vector>

#include "schema/impl.hpp"
#include "schema/yaml_values.hpp"

namespace kelp::input::bdf {

/// What the description of an entry, a nested entry or an easy keyword says beside the description
/// itself, for the caller to use.
struct EntryExtras {
  std::vector<std::string> aliases;  ///< as written
  YAML::Node entries;                ///< nested entries; null if there is no such key
  std::string category;              ///< normalised
  Meaning meaning;                   ///< empty without a pool for its texts
};

/// Reads the description of an entry into `info`, and what it means into a pool unless that is
/// null.
EntryExtras read_description(const YAML::Node& map, EntrySchemaInfo& info, ExpansionBudget& budget,
                             TextPool* texts = nullptr);

/// Reads what is said under `summary` and `summary_zh`.
template <std::size_t N>
Meaning read_summary(const Fields<N>& fields, TextPool& texts) {
  Meaning meaning;
  meaning.summary = {texts.add(scalar_view(fields["summary"])),
                     texts.add(scalar_view(fields["summary_zh"]))};
  return meaning;
}

/// An entry and the aliases that its parent is to know it by.
struct NamedEntry {
  EntrySpec spec;
  std::vector<std::string> aliases;  ///< as written
};

/// Reads an entry with all that is nested in it.
/// @throws std::runtime_error when the nesting is deeper than any document without aliases has.
NamedEntry read_entry(std::string name, const YAML::Node& node, ExpansionBudget& budget,
                      TextPool& texts, int depth = 0);

}  // namespace kelp::input::bdf
