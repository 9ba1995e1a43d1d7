// Entries of modules and of nested blocks, and the modules that they need.

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/names.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "model/from_schema.hpp"
#include "model/molecule_names.hpp"
#include "model/same_value.hpp"
#include "model/value_lines.hpp"
#include "rewrite/edit_parts.hpp"
#include "schema/lookup.hpp"
#include "source/atom_line.hpp"

namespace kelp::input::bdf {
namespace {

using Texts = std::vector<std::string>;

bool is_comment_or_blank(const ModuleEntry& entry) {
  const std::string_view line = core::text::trim_view(entry.raw_line);
  return !entry.known &&
         (line.empty() ? entry.name.empty() : line.front() == '#' || line.front() == '*');
}

std::string unknown_name(const InputSchema& schema, const ValuePath& path) {
  if (path.kind == PathKind::EasyKeyword) {
    return "the header has no keyword '" + path.name + "'";
  }
  if (!schema.is_known_module(path.module)) {
    return "there is no module '" + path.module + "'";
  }
  if (!schema.is_known_entry(path.module, path.name)) {
    return "$" + path.module + " has no entry '" + path.name + "'";
  }
  return "the block '" + path.name + "' has no entry '" + path.child + "'";
}

bool is_known(const InputSchema& schema, const ValuePath& path) {
  switch (path.kind) {
    case PathKind::EasyKeyword:
      return schema.easy_keyword_info(path.name).has_value();
    case PathKind::Child:
      return schema.is_known_nested_entry(path.module, path.name, path.child);
    default:
      return schema.is_known_entry(path.module, path.name);
  }
}

bool has_atom(const Texts& values) {
  return std::any_of(values.begin(), values.end(),
                     [](const std::string& line) { return read_atom_line(line).is_atom(); });
}

// A geometry is lines with atoms; the name of a file, say, is none.
bool is_no_geometry(const EditContext& context, const Assignment& assignment,
                    const ModuleEntry* found) {
  const ValuePath& path = assignment.path;
  return is_geometry_entry(context.schema(), path.module, path.name) &&
         !has_atom(assignment.values) &&
         (found == nullptr || !same_values(found->values, assignment.values));
}

// A multiplicity counts the directions of a spin, 2S+1. The schema gives it no bound, as inputs are
// known that write 0 for the default.
bool is_no_multiplicity(const EditContext& context, const Assignment& assignment,
                        const ModuleEntry* found) {
  const ValuePath& path = assignment.path;
  if (path.kind != PathKind::Entry ||
      context.schema().canonical_module(path.module) != scf_module ||
      context.schema().canonical_entry(path.module, path.name) != multiplicity_name ||
      (found != nullptr && same_values(found->values, assignment.values))) {
    return false;
  }
  const auto lines = numbered_lines(assignment.values);
  const auto number = lines.empty() ? std::nullopt : core::number::parse_integer(lines[0].text);
  return number && *number < 1;
}

Problem check_number_of_lines(const EditContext& context, const Assignment& assignment,
                              const std::optional<EntrySchemaInfo>& info) {
  if (!info) {
    return {};
  }
  const ValuePath& path = assignment.path;
  const Texts& values = assignment.values;
  if (info->kind == EntryValueKind::NestedBlock) {
    return refusal(path, "it is a block of entries, not a value");
  }
  if (info->kind == EntryValueKind::Flag && !values.empty()) {
    return refusal(path, "it takes no value; write " + to_string(path) + "=");
  }
  const bool needs_value = info->kind != EntryValueKind::Flag && info->kind != EntryValueKind::Raw;
  if (needs_value && numbered_lines(values).empty() && !context.edit.allow_unknown_names) {
    return refusal(path, "it needs a value; --unset takes it out");
  }
  const bool one_line = info->kind == EntryValueKind::Scalar || info->kind == EntryValueKind::Tuple;
  if (one_line && values.size() > 1) {
    return refusal(path, "it takes one line, not " + std::to_string(values.size()));
  }
  return {};
}

Problem check_values(const EditContext& context, const Assignment& assignment,
                     const ModuleEntry* found) {
  const ValuePath& path = assignment.path;
  Problem problem = found == nullptr ? check_known(context, path) : Problem();
  if (!problem.empty()) {
    return problem;
  }
  if (path.kind == PathKind::Entry && is_no_geometry(context, assignment, found)) {
    return refusal(path, "atoms come from a file: --geometry " + to_string(path) + "=FILE.xyz");
  }
  if (is_no_multiplicity(context, assignment, found) && !context.edit.allow_unknown_names) {
    return refusal(path, "a spin multiplicity is 2S+1, at least 1 (--force writes it)");
  }
  const InputSchema& schema = context.schema();
  return check_number_of_lines(context, assignment, description_of(schema, path));
}

ModuleEntry& insert_in_order(std::vector<ModuleEntry>& entries, ModuleEntry entry) {
  auto position = std::find_if(entries.rbegin(), entries.rend(),
                               [&](const ModuleEntry& other) { return other.name == entry.name; });
  if (position == entries.rend()) {
    position = std::find_if_not(entries.rbegin(), entries.rend(), is_comment_or_blank);
  }
  return *entries.insert(position.base(), std::move(entry));
}

ModuleEntry* block_for(EditContext& context, ValuePath path, Problem& problem) {
  path.kind = PathKind::Entry;
  ModuleEntry* block = record_at(context, context.find(path));
  if (block == nullptr) {
    Module* const module = module_for(context, path, problem);
    if (module == nullptr) {
      return nullptr;
    }
    block = &add_entry(context, *module, path.name, {});
  }
  if (block->kind != EntryValueKind::NestedBlock) {
    problem = refusal(path, "it is no block of entries");
    return nullptr;
  }
  return block;
}

// A module that is there under a misspelt name must not get a second one beside it.
Problem find_misread(const EditContext& context, const ValuePath& path) {
  const InputSchema& schema = context.schema();
  for (const Module& module : context.data.modules) {
    const std::string_view word = module.name;
    const bool begins_with_name =
        schema.canonical_module(word.substr(0, word.find_first_of(" \t,;:"))) ==
        schema.canonical_module(path.module);
    if (!module.known && (begins_with_name || !similar_names(module.name, {path.module}).empty())) {
      return refusal(path, "there is no $" + path.module + ", but a '$" + module.name +
                               "' on line " +
                               std::to_string(module.location ? module.location->line : 0) +
                               ", which is likely to be meant");
    }
  }
  return {};
}

}  // namespace

Problem check_known(const EditContext& context, const ValuePath& path) {
  if (context.edit.allow_unknown_names || is_known(context.schema(), path)) {
    return {};
  }
  const Texts near = path_hint(context.schema(), path);
  return refusal(path, unknown_name(context.schema(), path) +
                           (near.empty() ? "" : "; did you mean " + quoted_choice(near) + "?") +
                           " (--force writes it)");
}

Problem set_entry(EditContext& context, const Assignment& assignment) {
  const ValuePath& path = assignment.path;
  const RecordId record = context.find(path);
  Problem problem = check_values(context, assignment, record_at(context, record));
  if (!problem.empty() || record) {
    return problem.empty() ? change_entry(context, record, assignment) : problem;
  }
  Module* const module = module_for(context, path, problem);
  if (module != nullptr && !context.edit.allow_unknown_names) {
    problem = find_misread_entry(context, *module, path);
  }
  if (problem.empty()) {
    add_entry(context, *module, path.name, assignment.values);
  }
  return problem;
}

Problem set_child(EditContext& context, const Assignment& assignment) {
  const ValuePath& path = assignment.path;
  const RecordId record = context.find(path);
  Problem problem = check_values(context, assignment, record_at(context, record));
  if (!problem.empty() || record) {
    return problem.empty() ? change_entry(context, record, assignment) : problem;
  }
  ModuleEntry* const block = block_for(context, path, problem);
  if (block == nullptr) {
    return problem;
  }
  ModuleEntry child;
  const InputSchema::Impl& impl = SchemaAccess::impl(context.schema());
  describe_child(child, path.child,
                 find_entry_spec(find_module_spec(impl, path.module), path.name));
  if (!child.known) {
    child.raw_line = path.child;
  }
  put_values(child, assignment.values);
  insert_in_order(block->children, std::move(child));
  return {};
}

// Only a keyword at the beginning of its line with its values indented is read back as such where
// the schema does not know it.
void put_values(ModuleEntry& entry, const Texts& values) {
  if (same_values(entry.values, values)) {
    return;
  }
  entry.values = values;
  if (!entry.known) {
    for (std::string& value : entry.values) {
      value.insert(0, "    ");
    }
  }
}

ModuleEntry& add_entry(EditContext& context, Module& module, const std::string& name,
                       const Texts& values) {
  ModuleEntry entry;
  describe_entry(entry, name, find_module_spec(SchemaAccess::impl(context.schema()), module.name));
  if (!entry.known) {
    entry.raw_line = name;
  }
  put_values(entry, values);
  return insert_in_order(module.entries, std::move(entry));
}

Module* module_for(EditContext& context, const ValuePath& path, Problem& problem) {
  ValuePath of_module = path;
  of_module.kind = PathKind::Module;
  const RecordId found = context.find(of_module);
  if (found) {
    return &context.data.modules[found.index];
  }
  const std::size_t count = context.modules().count(context.schema(), path.module);
  if (path.module_index > count) {
    problem = refusal(path, std::string("there ") + (count == 1 ? "is " : "are ") +
                                std::to_string(count) + " $" + path.module +
                                ", so that the next one is " + path.module + "#" +
                                std::to_string(count + 1));
  } else if (count == 0) {
    problem = find_misread(context, path);
  }
  if (!problem.empty()) {
    return nullptr;
  }
  Module made;
  describe_module(made, path.module, context.schema());
  return &context.data.modules[add_module(context, std::move(made))];
}

}  // namespace kelp::input::bdf
