// Adding, replacing and removing modules and their entries.

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <new>
#include <utility>

#include "kelp/input/bdf/editor.hpp"
#include "model/from_schema.hpp"
#include "schema/lookup.hpp"

namespace kelp::input::bdf {
namespace {

const ModuleSpec* spec_of(const Module& module, const InputSchema& schema) {
  return find_module_spec(SchemaAccess::impl(schema), module.name);
}

Module* stored_under(std::vector<Module>& modules, const std::string& name, std::size_t index) {
  for (Module& module : modules) {
    if (module.name == name && index-- == 0) {
      return &module;
    }
  }
  return nullptr;
}

const AliasMap* entry_aliases(const ModuleSpec* spec) {
  return spec == nullptr ? nullptr : &spec->entry_aliases;
}

ModuleEntry* append_entry(Module& module, std::string_view name, std::vector<std::string> values,
                          const ModuleSpec* spec) {
  ModuleEntry entry;
  describe_entry(entry, name, spec);
  entry.values = std::move(values);
  module.entries.push_back(std::move(entry));
  return &module.entries.back();
}

/// Makes room for one more record, growing as `push_back` does.
template <typename Record>
void make_room(std::vector<Record>& records) {
  if (records.size() == records.capacity()) {
    records.reserve(records.empty() ? 1 : 2 * records.size());
  }
}

/// Drops the statements of removed modules and counts the others anew. `removed_up_to` tells for
/// each module how many were removed up to and with it.
void forget_modules(std::vector<Statement>& statements,
                    const std::vector<std::size_t>& removed_up_to) {
  const auto removed_before = [&](std::size_t module) {
    return module == 0 ? 0 : removed_up_to[std::min(module, removed_up_to.size()) - 1];
  };
  std::erase_if(statements, [&](const Statement& statement) {
    const std::size_t module = statement.module_index;
    return statement.kind == StatementKind::Module && module < removed_up_to.size() &&
           removed_up_to[module] > removed_before(module);
  });
  for (Statement& statement : statements) {
    if (statement.kind == StatementKind::Module && statement.module_index != Statement::no_module) {
      statement.module_index -= removed_before(statement.module_index);
    }
  }
}

}  // namespace

// The interface takes its texts by value, whether they are kept or not.
// NOLINTBEGIN(performance-unnecessary-value-param)

Module BDFEditor::make_module(std::string name) const {
  Module made;
  describe_module(made, name, schema_);
  return made;
}

Module* BDFEditor::append_module(std::string name) {
  Module* const added = add_module(std::move(name));
  forget_index();
  return added;
}

Module* BDFEditor::add_module(std::string name) {
  ensure_statement_order();
  Module made = make_module(std::move(name));
  make_room(data_.modules);
  data_.statements.push_back({StatementKind::Module, data_.modules.size(), {}, std::nullopt});
  Module& added = data_.modules.emplace_back(std::move(made));
  keep_index(data_.modules.size() - 1);
  return &added;
}

// The module is there already: without memory for the index there is none.
void BDFEditor::keep_index(std::size_t added) noexcept {
  if (by_name_.empty()) {
    return;
  }
  try {
    const AliasMap& aliases = SchemaAccess::impl(schema_).module_aliases;
    by_name_[canonical_name(aliases, data_.modules[added].name)].push_back(added);
  } catch (const std::bad_alloc&) {
    by_name_.clear();
  }
}

void BDFEditor::forget_index() {
  by_name_.clear();
  may_be_renamed_ = true;
}

// Does what `module` does. To go through all modules up to the n-th for each of them takes the
// square of their number; the first ones are found as fast that way.
Module* BDFEditor::find_module_to_edit(std::string_view name, std::size_t index) {
  constexpr std::size_t few = 32;
  if (may_be_renamed_ || index < few || name.data() == nullptr) {
    return const_cast<Module*>(std::as_const(*this).module(name, index));
  }
  const AliasMap& aliases = SchemaAccess::impl(schema_).module_aliases;
  if (by_name_.empty()) {
    std::map<std::string, Indices> all;
    for (std::size_t i = 0; i < data_.modules.size(); ++i) {
      all[canonical_name(aliases, data_.modules[i].name)].push_back(i);
    }
    by_name_ = std::move(all);
  }
  const auto found = by_name_.find(canonical_name(aliases, name));
  return found == by_name_.end() || index >= found->second.size()
             ? nullptr
             : &data_.modules[found->second[index]];
}

Module* BDFEditor::upsert_module(std::string name) {
  name = schema_.canonical_module(name);
  Module* const found = module(name, 0);
  if (found == nullptr) {
    return append_module(std::move(name));
  }
  const bool known = schema_.is_known_module(name);
  found->name = std::move(name);
  found->known = known;
  found->terminated = true;
  return found;
}

bool BDFEditor::remove_module(std::string_view name, std::size_t index) {
  const Module* const found = find_module_to_edit(name, index);
  if (found == nullptr) {
    return false;
  }
  by_name_.clear();
  const std::ptrdiff_t position = found - data_.modules.data();
  data_.modules.erase(data_.modules.begin() + position);
  rebuild_statement_module_indices_after_erase(static_cast<std::size_t>(position));
  return true;
}

// All go in one pass over modules and statements, however many there are.
bool BDFEditor::remove_module(std::string_view name) {
  // The name may live in a module that is about to go.
  const std::string wanted(name);
  const CanonicalMatch matches(&SchemaAccess::impl(schema_).module_aliases, wanted);
  std::vector<std::size_t> removed_up_to;
  removed_up_to.reserve(data_.modules.size());
  std::size_t removed = 0;
  for (const Module& module : data_.modules) {
    removed += matches(module.name) ? 1 : 0;
    removed_up_to.push_back(removed);
  }
  if (removed > 0) {
    by_name_.clear();
    std::erase_if(data_.modules, [&](const Module& module) { return matches(module.name); });
    forget_modules(data_.statements, removed_up_to);
  }
  return removed > 0;
}

// Modules are added until the index-th of that name is there. In a schema whose aliases chain (an
// alias that is itself the name of another module) an added module does not answer to the name that
// it was made under; it is then found by the name that it is stored under, so that the same call
// always reaches the same module and the search ends.
Module* BDFEditor::find_or_create_module(std::string_view name, std::size_t index) {
  const std::string wanted(name);
  const std::string canonical = schema_.canonical_module(wanted);
  const bool chained = schema_.canonical_module(canonical) != canonical;
  const auto find = [&]() -> Module* {
    Module* const found = find_module_to_edit(wanted, index);
    return found == nullptr && chained ? stored_under(data_.modules, canonical, index) : found;
  };
  Module* found = find();
  while (found == nullptr) {
    add_module(wanted);
    found = find();
  }
  return found;
}

ModuleEntry* BDFEditor::append_module_entry(std::string_view module, std::string name,
                                            std::vector<std::string> values,
                                            std::size_t module_index) {
  Module* const target = find_or_create_module(module, module_index);
  return append_entry(*target, name, std::move(values), spec_of(*target, schema_));
}

ModuleEntry* BDFEditor::set_module_entry(std::string_view module, std::size_t module_index,
                                         std::string name, std::vector<std::string> values) {
  Module* const target = find_or_create_module(module, module_index);
  const ModuleSpec* const spec = spec_of(*target, schema_);
  const std::string canonical = canonical_entry_name(spec, name);
  ModuleEntry* const entry = target->find_entry(canonical);
  if (entry == nullptr) {
    return append_entry(*target, canonical, std::move(values), spec);
  }
  ModuleEntry made;
  describe_entry(made, name, spec);
  made.values = std::move(values);
  made.raw_line = std::move(entry->raw_line);
  made.location = entry->location;
  *entry = std::move(made);
  return entry;
}

ModuleEntry* BDFEditor::set_module_entry(std::string_view module, std::string name,
                                         std::vector<std::string> values) {
  return set_module_entry(module, 0, std::move(name), std::move(values));
}

bool BDFEditor::remove_module_entry(std::string_view module, std::size_t module_index,
                                    std::string_view name, std::optional<std::size_t> occurrence) {
  Module* const target = find_module_to_edit(module, module_index);
  if (target == nullptr) {
    return false;
  }
  const ModuleSpec* const spec = spec_of(*target, schema_);
  // The name may live in an entry that is about to go.
  const std::string wanted(name);
  const CanonicalMatch is_wanted(entry_aliases(spec), wanted);
  const auto matches = [&](const ModuleEntry& entry) { return is_wanted(entry.name); };
  if (!occurrence) {
    return std::erase_if(target->entries, matches) > 0;
  }
  std::size_t skip = *occurrence;
  const auto found =
      std::find_if(target->entries.begin(), target->entries.end(),
                   [&](const ModuleEntry& entry) { return matches(entry) && skip-- == 0; });
  if (found == target->entries.end()) {
    return false;
  }
  target->entries.erase(found);
  return true;
}

bool BDFEditor::remove_module_entry(std::string_view module, std::string_view name) {
  return remove_module_entry(module, 0, name, std::nullopt);
}

// NOLINTEND(performance-unnecessary-value-param)

}  // namespace kelp::input::bdf
