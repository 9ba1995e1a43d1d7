#pragma once

#include <string>
#include <string_view>

#include "schema/impl.hpp"

namespace kelp::input::bdf {

// Resolving a name means: normalise it, go through the alias map, go to the record. There is no
// fall-back from the one to the other. A resolved module or parent entry can be kept and asked
// again and again; that gives the same answers as the public queries, which resolve it each time.

/// Returns what an alias map makes of a name: the canonical name, or else the normalised name.
std::string canonical_name(const AliasMap& aliases, std::string_view name);

/// Returns the same without allocating: a view of the map, or of the name, then in its own case.
std::string_view canonical_view(const AliasMap& aliases, std::string_view name) noexcept;

/// Tells which names have the canonical form of one name. Allocates nothing. Looks at the text of
/// that name, or at that of the map, for as long as it is used.
class CanonicalMatch {
 public:
  /// Null aliases are none.
  CanonicalMatch(const AliasMap* aliases, std::string_view name) noexcept;

  bool operator()(std::string_view name) const noexcept;
  /// Returns the canonical name itself; its case may be that of the name given.
  std::string_view wanted() const noexcept { return wanted_; }

 private:
  std::string_view view_of(std::string_view name) const noexcept;

  const AliasMap* aliases_;
  std::string_view wanted_;
};

/// Returns what the name of a module leads to, in one look-up.
KnownName<ModuleSpec> find_known_module(const InputSchema::Impl& impl, std::string_view name);

/// Returns the module of that name or alias, or null.
const ModuleSpec* find_module_spec(const InputSchema::Impl& impl, std::string_view name);

/// Returns what a name leads to in a module that may be null, in one look-up: its canonical name,
/// `find_entry_spec` of it, and `find_entry_spec` of the canonical name.
KnownName<EntrySpec> find_known_entry(const ModuleSpec* module, std::string_view name);

/// The same of a nested entry in a parent that may be null.
KnownName<EntrySpec> find_known_child(const EntrySpec* parent, std::string_view name);

/// Returns the entry of that name or alias, or null; a null module has no entries.
const EntrySpec* find_entry_spec(const ModuleSpec* module, std::string_view name);

/// Returns the entry's canonical name in a module that may be null.
std::string canonical_entry_name(const ModuleSpec* module, std::string_view name);

/// Returns the nested entry of that name or alias, or null; a null parent has none.
const EntrySpec* find_child_spec(const EntrySpec* parent, std::string_view name);

/// Returns the nested entry's canonical name in a parent that may be null.
std::string canonical_child_name(const EntrySpec* parent, std::string_view name);

/// Whether a method of the header goes with a functional.
enum class FunctionalUse { Untold, None, Needed };

/// Tells it of a method by name or alias: `Untold` of one that the schema does not know, and of all
/// when it does not tell.
FunctionalUse functional_use(const InputSchema::Impl& impl, std::string_view method);

/// Returns the easy keyword of that name or alias, or null.
const ValueSpec* find_keyword_spec(const InputSchema::Impl& impl, std::string_view name);

}  // namespace kelp::input::bdf
