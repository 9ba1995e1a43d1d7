#include "schema_lint/names.hpp"

#include <algorithm>

#include "kelp/core/text.hpp"
#include "schema/normalize_key.hpp"

namespace kelp::input::bdf::lint {
namespace {

bool has_blank(std::string_view name) {
  return std::any_of(name.begin(), name.end(), core::text::is_space);
}

// Calls `use` for each alias of an item.
template <typename Use>
void for_each_alias(const YAML::Node& value, ExpansionBudget& budget, Use use) {
  if (!value.IsMap()) {
    return;
  }
  const YAML::Node aliases = value["aliases"];
  if (aliases && aliases.IsScalar()) {
    use(aliases);
  } else if (aliases && aliases.IsSequence()) {
    for (const auto& alias : aliases) {
      budget.pay_for(alias);
      if (alias.IsScalar()) {
        use(alias);
      }
    }
  }
}

}  // namespace

NameTable::NameTable(const YAML::Node& node, std::string_view thing, Problems& problems,
                     ExpansionBudget& budget)
    : thing_(thing), problems_(problems), budget_(budget) {
  add_items(node);
  add_aliases();
}

const NamedItem* NameTable::find(const std::string& name) const {
  auto found = owners_.find(name);
  if (found == owners_.end()) {
    found = aliases_.find(name);
    if (found == aliases_.end()) {
      return nullptr;
    }
  }
  return &items_[found->second];
}

Names NameTable::names() const {
  Names names;
  for (const auto& [name, owner] : owners_) {
    names.push_back(name);
  }
  for (const auto& [alias, owner] : aliases_) {
    names.push_back(alias);
  }
  std::sort(names.begin(), names.end());
  return names;
}

void NameTable::add_items(const YAML::Node& node) {
  for (const auto& item : node) {
    if (node.IsMap()) {
      budget_.pay_for_record(item.first);
      budget_.pay_for(item.second);
      add_name(item.first, item.second);
    } else {
      budget_.pay_for(item);
      add_name(item, YAML::Node());
    }
  }
}

void NameTable::add_name(const YAML::Node& key, const YAML::Node& value) {
  if (!key.IsScalar()) {
    problems_.error("schema.wrong_type", key, "The name of " + thing_ + " must be a text.");
    return;
  }
  NamedItem item{normalize_key(key.Scalar()), key, value};
  if (!is_usable(item.name, key)) {
    return;
  }
  const auto [first, is_new] = owners_.emplace(item.name, items_.size());
  if (!is_new) {
    const YAML::Node& other = items_[first->second].key;
    problems_.error("schema.duplicate_key", key,
                    quoted(key.Scalar()) + " is the same name as " + quoted(other.Scalar()) +
                        " on " + line_of(other) + "; the later one replaces it.");
  }
  items_.push_back(std::move(item));
}

void NameTable::add_aliases() {
  for (std::size_t owner = 0; owner < items_.size(); ++owner) {
    for_each_alias(items_[owner].value, budget_,
                   [this, owner](const YAML::Node& alias) { add_alias(owner, alias); });
  }
}

// When names are read, the later one wins: a collision takes a name from its owner.
void NameTable::add_alias(std::size_t owner, const YAML::Node& alias) {
  const std::string name = normalize_key(alias.Scalar());
  if (!is_usable(name, alias)) {
    return;
  }
  const NamedItem& item = items_[owner];
  if (const auto named = owners_.find(name); named != owners_.end()) {
    const NamedItem& other = items_[named->second];
    if (other.name == item.name) {
      problems_.warning("schema.redundant", alias, quoted(name) + " is the name itself.");
    } else {
      problems_.error("schema.name_collision", alias,
                      "The alias " + quoted(name) + " of " + quoted(item.name) +
                          " is the name of another " + thing_.substr(thing_.find(' ') + 1) +
                          " on " + line_of(other.key) + ".");
    }
    return;
  }
  const auto [claimed, is_new] = aliases_.emplace(name, owner);
  if (is_new) {
    return;
  }
  const NamedItem& other = items_[claimed->second];
  if (other.name == item.name) {
    problems_.warning("schema.redundant", alias, "The alias " + quoted(name) + " is given twice.");
  } else {
    problems_.error("schema.name_collision", alias,
                    "The alias " + quoted(name) + " of " + quoted(item.name) +
                        " is also an alias of " + quoted(other.name) + " on " + line_of(other.key) +
                        ".");
  }
}

// Keywords are the first words of lines, the words of a header have no blanks either, and a line
// that begins with # or * is a remark.
bool NameTable::is_usable(const std::string& name, const YAML::Node& node) {
  if (name.empty()) {
    problems_.error("schema.unusable_name", node, "The name of " + thing_ + " is empty.");
    return false;
  }
  if (has_blank(name) || name.front() == '#' || name.front() == '*') {
    problems_.error(
        "schema.unusable_name", node,
        "No input can hold the name " + quoted(name) + ": it has a blank or begins like a remark.");
    return false;
  }
  return true;
}

}  // namespace kelp::input::bdf::lint
