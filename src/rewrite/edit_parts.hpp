#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "kelp/input/bdf/rewrite.hpp"
#include "path/resolver.hpp"

namespace kelp::input::bdf {

/// What the parts of an edit work on.
struct EditContext {
  const ParsedInput& input;         ///< as it was read
  const Edit& edit;                 ///< all that is wanted
  BDFData& data;                    ///< the document as far as it was changed
  std::vector<std::string>& notes;  ///< what goes along with the change unasked
  /// The modules of the document; unset when it was not asked for since modules came or went.
  std::optional<ModuleFinder> finder = std::nullopt;

  const InputSchema& schema() const { return input.schema(); }
  const ModuleFinder& modules() {
    if (!finder) {
      finder.emplace(data, schema());
    }
    return *finder;
  }
  /// Returns the record that a path names in the document as far as it was changed.
  RecordId find(const ValuePath& path) { return find_record(data, schema(), modules(), path); }
};

/// Why a change is impossible, in words; empty when it was made.
using Problem = std::string;

/// Says that a path cannot be changed, and why.
Problem refusal(const ValuePath& path, std::string_view reason);

/// Refuses a path whose names the schema does not know, unless such names are allowed.
Problem check_known(const EditContext& context, const ValuePath& path);

// --- the header

/// Tells whether a path names a part of the method specification.
bool is_specification_part(const ValuePath& path);

/// Changes parts of the method specification, all at once.
Problem set_specification(EditContext& context, const std::vector<const Assignment*>& parts);

/// Makes the assignment of a keyword of the header.
Problem set_easy(EditContext& context, const Assignment& assignment);

/// Puts a keyword of the header, or its value wherever it is there.
void put_keyword(EditContext& context, const std::string& key,
                 const std::optional<std::string>& value);

// --- modules

/// Makes the assignment of an entry of a module.
Problem set_entry(EditContext& context, const Assignment& assignment);

/// Makes the assignment of an entry of a nested block.
Problem set_child(EditContext& context, const Assignment& assignment);

/// Replaces the values of an entry, unless they are there already in some spelling.
void put_values(ModuleEntry& entry, const std::vector<std::string>& values);

/// Adds an entry behind the last one of its name, or behind the last that is no comment.
ModuleEntry& add_entry(EditContext& context, Module& module, const std::string& name,
                       const std::vector<std::string>& values);

/// Returns the module that a path names, adding it when it is the next one of its name; null, and
/// the reason in `problem`, when it is not.
Module* module_for(EditContext& context, const ValuePath& path, Problem& problem);

/// Adds a module where the order of execution wants it: `$compass`, `$xuanyuan`, `$scf`, then the
/// others; within `Module Setting`, and not behind a `$bdfopt` that ends the input. Returns its
/// index.
std::size_t add_module(EditContext& context, Module module);

// --- entries that are there

/// Returns the entry or child that a record names in the document as far as it was changed, or
/// null.
ModuleEntry* record_at(EditContext& context, const RecordId& record);

/// Returns what the schema says of the entry or child that a path names.
std::optional<EntrySchemaInfo> description_of(const InputSchema& schema, const ValuePath& path);

/// Gives an entry or child new values, and all others of its name that the schema allows but once:
/// which of them BDF reads is not told. Refuses where its lines say more than its value.
Problem change_entry(EditContext& context, const RecordId& record, const Assignment& assignment);

/// Tells whether an entry has these values already; of one that the schema does not know, also
/// where they stand behind its name or on the line below.
bool is_said_already(const std::vector<ModuleEntry>& entries, const ModuleEntry& entry,
                     const std::vector<std::string>& values);

/// Refuses to add an entry that is there in a form that is not read: `maxiter=50`.
Problem find_misread_entry(const EditContext& context, const Module& module, const ValuePath& path);

// --- the molecule

/// Sets charge and multiplicity.
Problem set_charge_and_multiplicity(EditContext& context);

/// Puts the atoms of a geometry, in the unit of the input.
Problem set_geometry(EditContext& context);

// --- taking out

/// Takes out what has a path within the header or a module.
Problem unset_values(EditContext& context);

/// Takes out modules.
Problem unset_modules(EditContext& context);

}  // namespace kelp::input::bdf
