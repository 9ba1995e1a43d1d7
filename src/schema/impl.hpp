#pragma once

#include <memory>
#include <string>
#include <vector>

#include "kelp/input/bdf/schema.hpp"
#include "schema/keyword_index.hpp"
#include "schema/meaning_record.hpp"
#include "schema/name_map.hpp"

namespace kelp::input::bdf {

/// The vocabulary itself. Every name in it is a normalised key.
struct InputSchema::Impl {
  /// One entry of a module, or one nested entry.
  struct EntrySpec : EntrySchemaInfo {
    NameMap<std::shared_ptr<const EntrySpec>> children;
    AliasMap child_aliases;
    Meaning meaning;
    KeywordIndex<EntrySpec> index;  ///< of the children

    /// Makes the index. To be called when all children are there.
    void index_names() {
      index.build(child_aliases, [this](std::string_view canonical) {
        const auto* const child = find_in(children, canonical);
        return child == nullptr ? nullptr : child->get();
      });
    }
  };

  /// One easy keyword.
  struct ValueSpec : EntrySchemaInfo {
    std::string category = "control";
    Meaning meaning;
  };

  /// One module.
  struct ModuleSpec {
    std::string name;
    bool repeatable = false;
    NameMap<EntrySpec> entries;
    AliasMap entry_aliases;
    Meaning meaning;
    KeywordIndex<EntrySpec> index;  ///< of the entries

    /// Makes the index. To be called when all entries are there.
    void index_names() {
      index.build(entry_aliases,
                  [this](std::string_view canonical) { return find_in(entries, canonical); });
    }
  };

  SchemaMetadata metadata;
  AliasMap methods;
  AliasMap methods_without_functional;  ///< empty when the schema does not tell
  AliasMap functionals;
  AliasMap basis_sets;
  bool basis_extensible = true;
  NameMap<ValueSpec> control_keywords;
  AliasMap control_keyword_aliases;
  NameMap<ModuleSpec> modules;
  AliasMap module_aliases;

  // What the names of mere lists mean, by canonical name; of those that nothing is said about,
  // nothing is here. The sentences of all names stand in the pool.
  NameMap<Meaning> method_meanings;
  NameMap<Meaning> functional_meanings;
  NameMap<Meaning> basis_meanings;
  std::vector<BasisFamilySpec> basis_families;
  TextPool texts;

  KeywordIndex<ModuleSpec> index;  ///< of the modules

  /// Makes the index. To be called when all modules are there.
  void index_names() {
    index.build(module_aliases,
                [this](std::string_view canonical) { return find_in(modules, canonical); });
  }
};

using EntrySpec = InputSchema::Impl::EntrySpec;
using ValueSpec = InputSchema::Impl::ValueSpec;
using ModuleSpec = InputSchema::Impl::ModuleSpec;

/// The way from the other rooms to the vocabulary.
struct SchemaAccess {
  static const InputSchema::Impl& impl(const InputSchema& schema) noexcept { return *schema.impl_; }
};

}  // namespace kelp::input::bdf
