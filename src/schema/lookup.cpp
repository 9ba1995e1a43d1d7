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

// The plain way, without an index. `look_up` tells the record of a canonical name, or null.
template <typename Spec, typename LookUp>
KnownName<Spec> find_known(const AliasMap& aliases, std::string_view bare, LookUp look_up) {
  KnownName<Spec> known;
  known.canonical = find_in(aliases, bare);
  if (known.canonical != nullptr) {
    known.entry = look_up(*known.canonical);
    const std::string* const again = find_in(aliases, bare_key(*known.canonical));
    known.described = again == nullptr ? nullptr : look_up(*again);
  }
  return known;
}

std::string canonical_or_own(const KnownName<EntrySpec>& known, std::string_view name) {
  return known.canonical == nullptr ? normalize_key(name) : *known.canonical;
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

KnownName<ModuleSpec> find_known_module(const InputSchema::Impl& impl, std::string_view name) {
  const std::string_view bare = bare_key(require_text(name));
  return impl.index.is_built() ? impl.index.find(bare)
                               : find_known<ModuleSpec>(impl.module_aliases, bare,
                                                        [&impl](std::string_view canonical) {
                                                          return find_in(impl.modules, canonical);
                                                        });
}

const ModuleSpec* find_module_spec(const InputSchema::Impl& impl, std::string_view name) {
  return find_known_module(impl, name).entry;
}

KnownName<EntrySpec> find_known_entry(const ModuleSpec* module, std::string_view name) {
  if (module == nullptr) {
    return {};
  }
  const std::string_view bare = bare_key(require_text(name));
  return module->index.is_built()
             ? module->index.find(bare)
             : find_known<EntrySpec>(module->entry_aliases, bare,
                                     [module](std::string_view canonical) {
                                       return find_in(module->entries, canonical);
                                     });
}

KnownName<EntrySpec> find_known_child(const EntrySpec* parent, std::string_view name) {
  if (parent == nullptr) {
    return {};
  }
  const std::string_view bare = bare_key(require_text(name));
  return parent->index.is_built()
             ? parent->index.find(bare)
             : find_known<EntrySpec>(
                   parent->child_aliases, bare, [parent](std::string_view canonical) {
                     const auto* const child = find_in(parent->children, canonical);
                     return child == nullptr ? nullptr : child->get();
                   });
}

const EntrySpec* find_entry_spec(const ModuleSpec* module, std::string_view name) {
  return find_known_entry(module, name).entry;
}

std::string canonical_entry_name(const ModuleSpec* module, std::string_view name) {
  return canonical_or_own(find_known_entry(module, name), name);
}

const EntrySpec* find_child_spec(const EntrySpec* parent, std::string_view name) {
  return find_known_child(parent, name).entry;
}

std::string canonical_child_name(const EntrySpec* parent, std::string_view name) {
  return canonical_or_own(find_known_child(parent, name), name);
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
