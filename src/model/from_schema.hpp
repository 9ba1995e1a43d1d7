#pragma once

#include <string>
#include <string_view>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "schema/impl.hpp"

namespace kelp::input::bdf {

// What the schema says about a record, filled in the same way for records read and records made.

/// Sets name and known flag of a module; `name` may be an alias.
void describe_module(Module& module, std::string_view name, const InputSchema& schema);

/// Sets name, known flag, kind and terminator of an entry or child whose name is known.
void describe_known(ModuleEntry& entry, const KnownName<EntrySpec>& known);

/// Sets name, known flag, kind and terminator of an entry; `name` may be an alias, `module` null.
void describe_entry(ModuleEntry& entry, std::string_view name, const ModuleSpec* module);

/// The same for a child of a nested block.
void describe_child(ModuleEntry& child, std::string_view name, const EntrySpec* parent);

/// What becomes of blanks around the parts of a method specification, where a name that lost its
/// `$` can leave one: a header that is read has none, a token that is made keeps them.
enum class PartBlanks { Trimmed, Kept };

/// Makes a token of an easy header, without a location.
EasyToken easy_token_from_text(std::string text, const InputSchema& schema,
                               PartBlanks blanks = PartBlanks::Trimmed);

}  // namespace kelp::input::bdf
