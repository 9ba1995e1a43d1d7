// Lists of names, for tools that show or complete the vocabulary.

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/schema.hpp"
#include "schema/impl.hpp"
#include "schema/lookup.hpp"

namespace kelp::input::bdf {
namespace {

using Names = std::vector<std::string>;

template <typename Value>
Names sorted_keys(const NameMap<Value>& map) {
  Names names;
  names.reserve(map.size());
  for (const auto& item : map) {
    names.push_back(item.first);
  }
  std::sort(names.begin(), names.end());
  return names;
}

// A name list has no records of its own: canonical is what aliases lead to.
Names sorted_targets(const AliasMap& aliases) {
  Names names;
  for (const auto& item : aliases) {
    names.push_back(item.second);
  }
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

Names aliases_of(const AliasMap& aliases, std::string_view canonical) {
  Names names;
  for (const auto& item : aliases) {
    if (item.second == canonical && item.first != canonical) {
      names.push_back(item.first);
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace

Names InputSchema::known_modules() const {
  return sorted_keys(impl_->modules);
}

Names InputSchema::known_entries(std::string_view module) const {
  const ModuleSpec* const spec = find_module_spec(*impl_, module);
  return spec == nullptr ? Names() : sorted_keys(spec->entries);
}

Names InputSchema::known_nested_entries(std::string_view module, std::string_view entry) const {
  const EntrySpec* const spec = find_entry_spec(find_module_spec(*impl_, module), entry);
  return spec == nullptr ? Names() : sorted_keys(spec->children);
}

Names InputSchema::known_easy_keywords() const {
  return sorted_keys(impl_->control_keywords);
}
Names InputSchema::known_methods() const {
  return sorted_targets(impl_->methods);
}
Names InputSchema::known_functionals() const {
  return sorted_targets(impl_->functionals);
}
Names InputSchema::known_basis_sets() const {
  return sorted_targets(impl_->basis_sets);
}

Names InputSchema::module_aliases(std::string_view name) const {
  return aliases_of(impl_->module_aliases, canonical_module(name));
}

Names InputSchema::entry_aliases(std::string_view module, std::string_view entry) const {
  const ModuleSpec* const spec = find_module_spec(*impl_, module);
  return spec == nullptr ? Names()
                         : aliases_of(spec->entry_aliases, canonical_entry_name(spec, entry));
}

Names InputSchema::nested_entry_aliases(std::string_view module, std::string_view entry,
                                        std::string_view child) const {
  const EntrySpec* const spec = find_entry_spec(find_module_spec(*impl_, module), entry);
  return spec == nullptr ? Names()
                         : aliases_of(spec->child_aliases, canonical_child_name(spec, child));
}

Names InputSchema::easy_keyword_aliases(std::string_view name) const {
  return aliases_of(impl_->control_keyword_aliases, canonical_easy_key(name));
}

std::optional<EntrySchemaInfo> InputSchema::easy_keyword_info(std::string_view name) const {
  const ValueSpec* const spec = find_keyword_spec(*impl_, name);
  if (spec == nullptr) {
    return std::nullopt;
  }
  return static_cast<const EntrySchemaInfo&>(*spec);
}

}  // namespace kelp::input::bdf
