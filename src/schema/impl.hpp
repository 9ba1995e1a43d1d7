#pragma once

#include <memory>
#include <string>

#include "kelp/input/bdf/schema.hpp"
#include "schema/name_map.hpp"

namespace kelp::input::bdf {

/// The vocabulary itself. Every name in it is a normalised key.
struct InputSchema::Impl {
  /// One entry of a module, or one nested entry.
  struct EntrySpec : EntrySchemaInfo {
    NameMap<std::shared_ptr<const EntrySpec>> children;
    AliasMap child_aliases;
  };

  /// One easy keyword.
  struct ValueSpec : EntrySchemaInfo {
    std::string category = "control";
  };

  /// One module.
  struct ModuleSpec {
    std::string name;
    bool repeatable = false;
    NameMap<EntrySpec> entries;
    AliasMap entry_aliases;
  };

  SchemaMetadata metadata;
  AliasMap methods;
  AliasMap functionals;
  AliasMap basis_sets;
  bool basis_extensible = true;
  NameMap<ValueSpec> control_keywords;
  AliasMap control_keyword_aliases;
  NameMap<ModuleSpec> modules;
  AliasMap module_aliases;
};

using EntrySpec = InputSchema::Impl::EntrySpec;
using ValueSpec = InputSchema::Impl::ValueSpec;
using ModuleSpec = InputSchema::Impl::ModuleSpec;

/// The way from the other rooms to the vocabulary.
struct SchemaAccess {
  static const InputSchema::Impl& impl(const InputSchema& schema) noexcept { return *schema.impl_; }
};

}  // namespace kelp::input::bdf
