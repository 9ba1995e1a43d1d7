#include <algorithm>
#include <utility>

#include "kelp/input/bdf/names.hpp"
#include "schema/impl.hpp"
#include "schema/lookup.hpp"
#include "schema/normalize_key.hpp"

namespace kelp::input::bdf {
namespace {

using Names = std::vector<std::string>;

// An alias map holds the canonical names, too.
Names names_in(const AliasMap& aliases) {
  Names names;
  names.reserve(aliases.size());
  for (const auto& [name, canonical] : aliases) {
    names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

const Names& list_or_none(const Names* list) {
  static const Names none;
  return list == nullptr ? none : *list;
}

}  // namespace

struct NameLists::Lists {
  struct ModuleLists {
    Names entries;
    NameMap<Names> nested_entries;  ///< by block
  };

  InputSchema schema;
  Names modules;
  Names easy_keywords;
  Names methods;
  Names functionals;
  Names basis_sets;
  NameMap<ModuleLists> by_module;
  NameMap<Names> modules_with_entry;

  const ModuleSpec* module_spec(std::string_view name) const {
    return find_module_spec(SchemaAccess::impl(schema), name);
  }

  const ModuleLists* find(const ModuleSpec* spec) const {
    return spec == nullptr ? nullptr : find_in(by_module, spec->name);
  }
};

NameLists::NameLists(const InputSchema& schema) {
  const auto lists = std::make_shared<Lists>();
  lists->schema = schema;
  const InputSchema::Impl& impl = SchemaAccess::impl(schema);
  lists->modules = names_in(impl.module_aliases);
  lists->easy_keywords = names_in(impl.control_keyword_aliases);
  lists->methods = names_in(impl.methods);
  lists->functionals = names_in(impl.functionals);
  lists->basis_sets = names_in(impl.basis_sets);
  for (const std::string& name : schema.known_modules()) {
    const ModuleSpec& spec = impl.modules.find(name)->second;
    Lists::ModuleLists& of_module = lists->by_module[name];
    of_module.entries = names_in(spec.entry_aliases);
    for (const std::string& entry : of_module.entries) {
      lists->modules_with_entry[entry].push_back(name);
    }
    for (const auto& [entry, description] : spec.entries) {
      of_module.nested_entries[entry] = names_in(description.child_aliases);
    }
  }
  lists_ = lists;
}
NameLists::NameLists(const NameLists& other) = default;
// Lists are never taken away, so that whatever was moved from can still be asked.
// NOLINTNEXTLINE(cert-oop11-cpp,performance-move-constructor-init)
NameLists::NameLists(NameLists&& other) noexcept : lists_(other.lists_) {}
NameLists& NameLists::operator=(const NameLists& other) = default;
NameLists& NameLists::operator=(NameLists&& other) noexcept {
  lists_ = other.lists_;
  return *this;
}
NameLists::~NameLists() = default;

const Names& NameLists::modules() const {
  return lists_->modules;
}

const Names& NameLists::entries(std::string_view module) const {
  const Lists::ModuleLists* const lists = lists_->find(lists_->module_spec(module));
  return list_or_none(lists == nullptr ? nullptr : &lists->entries);
}

const Names& NameLists::nested_entries(std::string_view module, std::string_view entry) const {
  const ModuleSpec* const spec = lists_->module_spec(module);
  const Lists::ModuleLists* const lists = lists_->find(spec);
  return list_or_none(lists == nullptr
                          ? nullptr
                          : find_in(lists->nested_entries, canonical_entry_name(spec, entry)));
}

const Names& NameLists::modules_with_entry(std::string_view entry) const {
  return list_or_none(find_in(lists_->modules_with_entry, normalize_key(entry)));
}

const Names& NameLists::easy_keywords() const {
  return lists_->easy_keywords;
}

const Names& NameLists::methods() const {
  return lists_->methods;
}

const Names& NameLists::functionals() const {
  return lists_->functionals;
}

const Names& NameLists::basis_sets() const {
  return lists_->basis_sets;
}

}  // namespace kelp::input::bdf
