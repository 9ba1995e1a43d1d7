#include "schema/lookup.hpp"

#include <memory>

#include "kelp/core/text.hpp"
#include "schema/normalize_key.hpp"

namespace kelp::input::bdf {
namespace {

template <typename Record>
const Record* resolve(const AliasMap& aliases, const NameMap<Record>& records,
                      std::string_view name) {
  const std::string* const canonical = find_in(aliases, bare_key(require_text(name)));
  return canonical == nullptr ? nullptr : find_in(records, *canonical);
}

}  // namespace

std::string canonical_name(const AliasMap& aliases, std::string_view name) {
  const std::string_view key = bare_key(require_text(name));
  const std::string* const canonical = find_in(aliases, key);
  return canonical == nullptr ? core::text::to_lower(key) : *canonical;
}

std::string_view canonical_view(const AliasMap& aliases, std::string_view name) noexcept {
  const std::string_view key = bare_key(name);
  const std::string* const canonical = find_in(aliases, key);
  return canonical == nullptr ? key : std::string_view(*canonical);
}

CanonicalMatch::CanonicalMatch(const AliasMap* aliases, std::string_view name) noexcept
    : aliases_(aliases), wanted_(view_of(name)) {}

bool CanonicalMatch::operator()(std::string_view name) const noexcept {
  return core::text::equals_ignoring_case(view_of(name), wanted_);
}

std::string_view CanonicalMatch::view_of(std::string_view name) const noexcept {
  return aliases_ == nullptr ? bare_key(name) : canonical_view(*aliases_, name);
}

const ModuleSpec* find_module_spec(const InputSchema::Impl& impl, std::string_view name) {
  return resolve(impl.module_aliases, impl.modules, name);
}

const EntrySpec* find_entry_spec(const ModuleSpec* module, std::string_view name) {
  return module == nullptr ? nullptr : resolve(module->entry_aliases, module->entries, name);
}

std::string canonical_entry_name(const ModuleSpec* module, std::string_view name) {
  return module == nullptr ? normalize_key(name) : canonical_name(module->entry_aliases, name);
}

const EntrySpec* find_child_spec(const EntrySpec* parent, std::string_view name) {
  if (parent == nullptr) {
    return nullptr;
  }
  const auto* const child = resolve(parent->child_aliases, parent->children, name);
  return child == nullptr ? nullptr : child->get();
}

std::string canonical_child_name(const EntrySpec* parent, std::string_view name) {
  return parent == nullptr ? normalize_key(name) : canonical_name(parent->child_aliases, name);
}

FunctionalUse functional_use(const InputSchema::Impl& impl, std::string_view method) {
  const std::string name = canonical_name(impl.methods, method);
  if (impl.methods_without_functional.empty() || find_in(impl.methods, name) == nullptr) {
    return FunctionalUse::Untold;
  }
  return find_in(impl.methods_without_functional, name) == nullptr ? FunctionalUse::Needed
                                                                   : FunctionalUse::None;
}

const ValueSpec* find_keyword_spec(const InputSchema::Impl& impl, std::string_view name) {
  return resolve(impl.control_keyword_aliases, impl.control_keywords, name);
}

}  // namespace kelp::input::bdf
