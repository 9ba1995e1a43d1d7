#pragma once

// What a table holds of each record of a schema. A field that is new does not compile until it is
// named here, where names for all fields stand in brackets.

#include <type_traits>

#include "schema/impl.hpp"
#include "schema/table.hpp"

namespace kelp::input::bdf {

/// The vocabulary that the library was built with.
BuiltInDocument built_in_schema() noexcept;

/// Makes the index of a record that was read; nothing of one that is written.
template <typename Spec>
void index_what_was_read(Spec& spec) {
  if constexpr (!std::is_const_v<Spec>) {
    spec.index_names();
  }
}

template <typename Archive>
void transfer(Archive& archive, typename Archive::template Ref<TextSlice> slice) {
  auto& [begin, length] = slice;
  archive(begin, length);
}

template <typename Archive>
void transfer(Archive& archive, typename Archive::template Ref<Meaning> meaning) {
  auto& [summary, values] = meaning;
  archive(summary, values);
}

template <typename Archive>
void transfer(Archive& archive, typename Archive::template Ref<BasisFamilySpec> family) {
  auto& [name, meaning, prefixes] = family;
  archive(name, meaning, prefixes);
}

template <typename Archive>
void transfer(Archive& archive, typename Archive::template Ref<ValueRequirement> requirement) {
  auto& [entry, equals] = requirement;
  archive(entry, equals);
}

template <typename Archive>
void transfer(Archive& archive, typename Archive::template Ref<EntrySchemaInfo> info) {
  auto& [name, kind, terminator, value_type, default_value, allowed, min, max, min_exclusive,
         max_exclusive, arity, min_arity, max_arity, allowed_arities, row_arity, row_min_arity,
         row_max_arity, row_allowed_arities, row_types, count_line, repeatable, required,
         conflicts] = info;
  archive(name, kind, terminator, value_type, default_value, allowed, min, max, min_exclusive,
          max_exclusive, arity, min_arity, max_arity, allowed_arities, row_arity, row_min_arity,
          row_max_arity, row_allowed_arities, row_types, count_line, repeatable, required,
          conflicts);
}

template <typename Archive>
void transfer(Archive& archive, typename Archive::template Ref<EntrySpec> spec) {
  transfer(archive, static_cast<typename Archive::template Ref<EntrySchemaInfo>>(spec));
  archive(spec.children, spec.child_aliases, spec.meaning);
  index_what_was_read(spec);
}

template <typename Archive>
void transfer(Archive& archive, typename Archive::template Ref<ValueSpec> spec) {
  transfer(archive, static_cast<typename Archive::template Ref<EntrySchemaInfo>>(spec));
  archive(spec.category, spec.meaning);
}

template <typename Archive>
void transfer(Archive& archive, typename Archive::template Ref<ModuleSpec> module) {
  auto& [name, repeatable, entries, entry_aliases, meaning, index] = module;
  archive(name, repeatable, entries, entry_aliases, meaning);
  index_what_was_read(module);
}

template <typename Archive>
void transfer(Archive& archive, typename Archive::template Ref<SchemaMetadata> metadata) {
  auto& [schema_version, program, schema_kind, bdf_version, manual_source, manual_revision,
         generated_at] = metadata;
  archive(schema_version, program, schema_kind, bdf_version, manual_source, manual_revision,
          generated_at);
}

template <typename Archive>
void transfer(Archive& archive, typename Archive::template Ref<InputSchema::Impl> impl) {
  auto& [metadata, methods, methods_without_functional, functionals, basis_sets, basis_extensible,
         control_keywords, control_keyword_aliases, modules, module_aliases, method_meanings,
         functional_meanings, basis_meanings, basis_families, texts, index] = impl;
  archive(metadata, methods, methods_without_functional, functionals, basis_sets, basis_extensible,
          control_keywords, control_keyword_aliases, modules, module_aliases, method_meanings,
          functional_meanings, basis_meanings, basis_families, texts);
  index_what_was_read(impl);
}

}  // namespace kelp::input::bdf
