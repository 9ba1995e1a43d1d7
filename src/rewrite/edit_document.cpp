// An edit is made in the document: what is there already in another spelling is left alone, so that
// no byte of it changes afterwards. New records get no location; that is how they are told from
// those that were read.

#include "rewrite/edit_document.hpp"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/names.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "model/from_schema.hpp"
#include "model/molecule_names.hpp"
#include "model/script_name.hpp"
#include "model/value_lines.hpp"
#include "schema/lookup.hpp"
#include "source/atom_line.hpp"

namespace kelp::input::bdf {
namespace {

using Texts = std::vector<std::string>;

bool is_comment(const ModuleEntry& entry) {
  const std::string_view line = core::text::trim_view(entry.raw_line);
  return !entry.known && !line.empty() && (line.front() == '#' || line.front() == '*');
}

bool is_blank(const ModuleEntry& entry) {
  return !entry.known && entry.name.empty() && core::text::trim_view(entry.raw_line).empty();
}

bool same_field(std::string_view left, std::string_view right) {
  if (left == right) {
    return true;
  }
  const auto left_number = core::number::parse_float(left);
  const auto right_number = core::number::parse_float(right);
  if (left_number && right_number) {
    return *left_number == *right_number;
  }
  // A name of a file keeps its case.
  const bool is_path = left.find_first_of("/\\$=") != std::string_view::npos ||
                       left.find('.') != std::string_view::npos;
  return !is_path && core::text::equals_ignoring_case(left, right);
}

bool same_values(const Texts& left, const Texts& right) {
  const auto telling = [](const Texts& lines) {
    std::vector<std::string_view> cleaned;
    for (const std::string& line : lines) {
      if (!clean_value_line(line).empty()) {
        cleaned.push_back(clean_value_line(line));
      }
    }
    return cleaned;
  };
  const auto left_lines = telling(left);
  const auto right_lines = telling(right);
  return std::equal(left_lines.begin(), left_lines.end(), right_lines.begin(), right_lines.end(),
                    same_value_line);
}

// The document of an input, but for the atoms, of which there may be very many.
BDFData document_without_atoms(const BDFData& data) {
  BDFData copy;
  copy.mode = data.mode;
  copy.script_name = data.script_name;
  copy.leading_lines = data.leading_lines;
  copy.easy_tokens = data.easy_tokens;
  copy.has_geometry = data.has_geometry;
  copy.geometry_terminated = data.geometry_terminated;
  copy.geometry_location = data.geometry_location;
  copy.modules = data.modules;
  copy.statements = data.statements;
  copy.free_lines = data.free_lines;
  return copy;
}

class Editing {
 public:
  Editing(const ParsedInput& input, const Edit& edit) : schema_(input.schema()), edit_(edit) {
    result_.data = edit.geometry ? input.data() : document_without_atoms(input.data());
  }

  EditedDocument run() {
    if (set_script_name() && set_number(charge_name, edit_.charge) &&
        set_number(multiplicity_name, edit_.multiplicity) && make_assignments() &&
        set_new_geometry() && unset_values()) {
      unset_modules();
    }
    return std::move(result_);
  }

 private:
  BDFData& data() { return result_.data; }

  bool fail(std::string error) {
    result_.error = std::move(error);
    return false;
  }

  bool refuse(const ValuePath& path, std::string_view reason) {
    return fail("cannot change '" + to_string(path) + "': " + std::string(reason));
  }

  bool is_module_input() { return data().mode == InputMode::Module; }

  bool set_script_name() {
    if (!edit_.script_name) {
      return true;
    }
    if (is_module_input()) {
      return fail("an input of modules alone has no line '#!' for a script name");
    }
    data().script_name = normalize_script_name(*edit_.script_name);
    return true;
  }

  // --- charge and multiplicity

  bool set_number(const char* name, const std::optional<int>& number) {
    if (!number) {
      return true;
    }
    const std::string text = std::to_string(*number);
    const bool in_header = homes_of_numbers(data(), schema_).header;
    if (in_header && !set_header_keyword(name, text)) {
      return false;
    }
    return set_number_in_scf(name, text, !in_header);
  }

  // Beside a header only what is there already is changed: the two must not contradict each other.
  bool set_number_in_scf(const char* name, const std::string& text, bool must_be_there) {
    std::vector<ModuleEntry*> entries;
    const std::string scf = schema_.canonical_module(scf_module);
    for (Module& module : data().modules) {
      if (schema_.canonical_module(module.name) == scf) {
        const std::string wanted = schema_.canonical_entry(module.name, name);
        for (ModuleEntry& entry : module.entries) {
          if (schema_.canonical_entry(module.name, entry.name) == wanted) {
            entries.push_back(&entry);
            break;
          }
        }
      }
    }
    if (entries.empty()) {
      return !must_be_there || set_entry({path_in_scf(name), {text}});
    }
    const bool alike = std::all_of(entries.begin(), entries.end(), [&](const ModuleEntry* entry) {
      return same_values(entry->values, entries.front()->values);
    });
    if (!alike) {
      return fail(std::string("the $") + scf_module + " modules state more than one '" + name +
                  "'; name the one to change: " + scf_module + '.' + name + ", " + scf_module +
                  "#2." + name + " ...");
    }
    for (ModuleEntry* const entry : entries) {
      put(*entry, {text});
    }
    return true;
  }

  static ValuePath path_in_scf(const char* name) {
    ValuePath path;
    path.module = scf_module;
    path.name = name;
    return path;
  }

  // --- assignments

  bool make_assignments() {
    return std::all_of(edit_.assignments.begin(), edit_.assignments.end(),
                       [this](const Assignment& assignment) { return assign(assignment); });
  }

  bool assign(const Assignment& assignment) {
    switch (assignment.path.kind) {
      case PathKind::Geometry:
        return refuse(assignment.path, "atoms come from a file: --geometry FILE.xyz");
      case PathKind::Module:
        return refuse(assignment.path, "it names a module; a value belongs to one of its entries");
      case PathKind::EasyKeyword:
        return set_easy(assignment);
      case PathKind::Entry:
        return set_entry(assignment);
      case PathKind::Child:
        return set_child(assignment);
    }
    return true;
  }

  bool set_easy(const Assignment& assignment) {
    const ValuePath& path = assignment.path;
    if (is_module_input()) {
      return refuse(path, "an input of modules alone has no header");
    }
    const bool is_word = assignment.values.size() == 1 &&
                         assignment.values.front().find('#') == std::string::npos &&
                         std::none_of(assignment.values.front().begin(),
                                      assignment.values.front().end(), core::text::is_space);
    if (!assignment.values.empty() && !is_word) {
      return refuse(path, "a value of the header is a single word without '#'");
    }
    if (is_specification_part(path)) {
      const std::string problem = set_specification_part(
          data(), schema_, path.name, assignment.values.empty() ? "" : assignment.values.front(),
          edit_.allow_unknown_names);
      return problem.empty() || refuse(path, problem);
    }
    if (path.name.find('/') != std::string::npos) {
      return refuse(path,
                    "method, functional and basis are easy.method, easy.functional and "
                    "easy.basis");
    }
    if (!find_record(data(), schema_, path) && !check_known(path)) {
      return false;
    }
    return set_header_keyword(path.name, assignment.values.empty()
                                             ? std::nullopt
                                             : std::optional(assignment.values.front()));
  }

  bool set_header_keyword(const std::string& key, const std::optional<std::string>& value) {
    const std::string wanted = schema_.canonical_easy_key(key);
    for (EasyToken& token : data().easy_tokens) {
      if (token.category == "method_spec" || schema_.canonical_easy_key(token.key) != wanted) {
        continue;
      }
      if (value ? same_value_line(token.value, *value) : token.value.empty()) {
        return true;
      }
      const std::string written = token.text.substr(0, token.text.find('='));
      const auto location = token.location;
      token = easy_token_from_text(written + (value ? '=' + *value : ""), schema_);
      token.location = location;
      return true;
    }
    data().easy_tokens.push_back(
        easy_token_from_text(wanted + (value ? '=' + *value : ""), schema_));
    return true;
  }

  bool set_entry(const Assignment& assignment) {
    const ValuePath& path = assignment.path;
    const RecordId found = find_record(data(), schema_, path);
    if (!found && !check_known(path)) {
      return false;
    }
    if (is_no_geometry(path, found, assignment.values)) {
      return refuse(path, "atoms come from a file: --geometry " + to_string(path) + "=FILE.xyz");
    }
    if (!check_number_of_lines(path, schema_.entry_info(path.module, path.name),
                               assignment.values)) {
      return false;
    }
    if (found) {
      put(data().modules[found.index].entries[found.entry], assignment.values);
      return true;
    }
    Module* const module = module_for(path);
    if (module == nullptr) {
      return false;
    }
    add_entry(*module, path.name, assignment.values);
    return true;
  }

  // A geometry is lines with atoms; the name of a file, say, is none.
  bool is_no_geometry(const ValuePath& path, const RecordId& found, const Texts& values) {
    if (schema_.canonical_module(path.module) != compass_module ||
        schema_.canonical_entry(path.module, path.name) != geometry_entry) {
      return false;
    }
    const ModuleEntry* const entry = entry_of(data(), found);
    const bool has_atom = std::any_of(values.begin(), values.end(), [](const std::string& line) {
      return read_atom_line(line).is_atom();
    });
    return !has_atom && (entry == nullptr || !same_values(entry->values, values));
  }

  bool check_number_of_lines(const ValuePath& path, const std::optional<EntrySchemaInfo>& info,
                             const Texts& values) {
    if (!info) {
      return true;
    }
    if (info->kind == EntryValueKind::NestedBlock) {
      return refuse(path, "it is a block of entries, not a value");
    }
    if (info->kind == EntryValueKind::Flag && !values.empty()) {
      return refuse(path, "it takes no value; write " + to_string(path) + "=");
    }
    const bool says_something =
        std::any_of(values.begin(), values.end(),
                    [](const std::string& value) { return !clean_value_line(value).empty(); });
    if (info->kind != EntryValueKind::Flag && info->kind != EntryValueKind::Raw &&
        !says_something && !edit_.allow_unknown_names) {
      return refuse(path, "it needs a value; --unset takes it out");
    }
    const bool one_line =
        info->kind == EntryValueKind::Scalar || info->kind == EntryValueKind::Tuple;
    if (one_line && values.size() > 1) {
      return refuse(path, "it takes one line, not " + std::to_string(values.size()));
    }
    return true;
  }

  // Only a keyword at the beginning of its line with its values indented is read back as such where
  // the schema does not know it.
  static void put(ModuleEntry& entry, const Texts& values) {
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

  // Behind the last entry of that name, or else behind the last one that is no comment.
  void add_entry(Module& module, const std::string& name, const Texts& values) {
    ModuleEntry entry;
    describe_entry(entry, name, find_module_spec(SchemaAccess::impl(schema_), module.name));
    if (!entry.known) {
      entry.raw_line = name;
    }
    put(entry, values);
    insert_in_order(module.entries, std::move(entry));
  }

  static void insert_in_order(std::vector<ModuleEntry>& entries, ModuleEntry entry) {
    auto position = std::find_if(entries.rbegin(), entries.rend(), [&](const ModuleEntry& other) {
      return other.name == entry.name;
    });
    if (position == entries.rend()) {
      position = std::find_if(entries.rbegin(), entries.rend(), [](const ModuleEntry& other) {
        return !is_comment(other) && !is_blank(other);
      });
    }
    entries.insert(position.base(), std::move(entry));
  }

  bool set_child(const Assignment& assignment) {
    const ValuePath& path = assignment.path;
    const RecordId found = find_record(data(), schema_, path);
    if (!found && !check_known(path)) {
      return false;
    }
    if (!check_number_of_lines(path, schema_.nested_entry_info(path.module, path.name, path.child),
                               assignment.values)) {
      return false;
    }
    if (found) {
      put(data().modules[found.index].entries[found.entry].children[found.child],
          assignment.values);
      return true;
    }
    ModuleEntry* const block = block_for(path);
    if (block == nullptr) {
      return false;
    }
    ModuleEntry child;
    describe_child(
        child, path.child,
        find_entry_spec(find_module_spec(SchemaAccess::impl(schema_), path.module), path.name));
    if (!child.known) {
      child.raw_line = path.child;
    }
    put(child, assignment.values);
    insert_in_order(block->children, std::move(child));
    return true;
  }

  ModuleEntry* block_for(ValuePath path) {
    path.kind = PathKind::Entry;
    RecordId found = find_record(data(), schema_, path);
    if (!found) {
      Module* const module = module_for(path);
      if (module == nullptr) {
        return nullptr;
      }
      add_entry(*module, path.name, {});
      found = find_record(data(), schema_, path);
    }
    ModuleEntry& block = data().modules[found.index].entries[found.entry];
    if (block.kind != EntryValueKind::NestedBlock) {
      refuse(path, "it is no block of entries");
      return nullptr;
    }
    return &block;
  }

  // Returns the module that a path names, adding it when it is the next one of its name.
  Module* module_for(const ValuePath& path) {
    ValuePath of_module = path;
    of_module.kind = PathKind::Module;
    RecordId found = find_record(data(), schema_, of_module);
    if (!found) {
      const std::size_t count = count_modules(data(), schema_, path.module);
      if (path.module_index > count) {
        refuse(path, std::string("there ") + (count == 1 ? "is " : "are ") + std::to_string(count) +
                         " $" + path.module + ", so that the next one is " + path.module + "#" +
                         std::to_string(count + 1));
        return nullptr;
      }
      if (count == 0 && is_misread(path)) {
        return nullptr;
      }
      Module made;
      describe_module(made, path.module, schema_);
      found = RecordId::of_module(add_module(data(), std::move(made)));
    }
    return &data().modules[found.index];
  }

  // A module that is there under a misspelt name must not get a second one beside it.
  bool is_misread(const ValuePath& path) {
    for (const Module& module : data().modules) {
      const std::string_view word = module.name;
      const bool begins_with_name =
          schema_.canonical_module(word.substr(0, word.find_first_of(" \t,;:"))) ==
          schema_.canonical_module(path.module);
      if (!module.known &&
          (begins_with_name || !similar_names(module.name, {path.module}).empty())) {
        refuse(path, "there is no $" + path.module + ", but a '$" + module.name + "' on line " +
                         std::to_string(module.location ? module.location->line : 0) +
                         ", which is likely to be meant");
        return true;
      }
    }
    return false;
  }

  bool check_known(const ValuePath& path) {
    if (edit_.allow_unknown_names) {
      return true;
    }
    const bool known =
        path.kind == PathKind::EasyKeyword
            ? schema_.easy_keyword_info(path.name).has_value()
            : (path.kind == PathKind::Child
                   ? schema_.is_known_nested_entry(path.module, path.name, path.child)
                   : schema_.is_known_entry(path.module, path.name));
    if (known) {
      return true;
    }
    return refuse(path, unknown_name(path) + hint(path));
  }

  std::string unknown_name(const ValuePath& path) const {
    if (path.kind == PathKind::EasyKeyword) {
      return "the header has no keyword '" + path.name + "'";
    }
    if (!schema_.is_known_module(path.module)) {
      return "there is no module '" + path.module + "'";
    }
    if (!schema_.is_known_entry(path.module, path.name)) {
      return "$" + path.module + " has no entry '" + path.name + "'";
    }
    return "the block '" + path.name + "' has no entry '" + path.child + "'";
  }

  std::string hint(const ValuePath& path) const {
    const Texts near = path_hint(schema_, path);
    return (near.empty() ? "" : "; did you mean " + quoted_choice(near) + "?") +
           std::string(" (--force writes it)");
  }

  bool set_new_geometry() {
    if (!edit_.geometry) {
      return true;
    }
    return fail_unless_empty(
        set_geometry(data(), schema_, *edit_.geometry, result_.keeps_geometry));
  }

  bool fail_unless_empty(std::string problem) {
    return problem.empty() || fail(std::move(problem));
  }

  // --- taking out

  bool unset_values() {
    return std::all_of(edit_.unset.begin(), edit_.unset.end(), [this](const ValuePath& path) {
      switch (path.kind) {
        case PathKind::Geometry:
          return refuse(path, "the geometry cannot be taken out");
        case PathKind::EasyKeyword:
          return unset_easy(path);
        case PathKind::Entry:
        case PathKind::Child:
          return unset_entries(path);
        case PathKind::Module:
          break;
      }
      return true;
    });
  }

  bool miss(const ValuePath& path) {
    const Texts near = path_hint(schema_, path);
    return fail("nothing at '" + to_string(path) + "' to take out" +
                (near.empty() ? "" : "; did you mean " + quoted_choice(near) + "?"));
  }

  bool unset_easy(const ValuePath& path) {
    if (is_specification_part(path)) {
      return refuse(path, "it can be changed, but not taken out");
    }
    const std::string wanted = schema_.canonical_easy_key(path.name);
    const auto count = std::erase_if(data().easy_tokens, [&](const EasyToken& token) {
      return token.category != "method_spec" && schema_.canonical_easy_key(token.key) == wanted;
    });
    return count > 0 || miss(path);
  }

  bool unset_entries(const ValuePath& path) {
    bool found = false;
    for (RecordId record = find_record(data(), schema_, path); record;
         record = find_record(data(), schema_, path)) {
      Module& module = data().modules[record.index];
      std::vector<ModuleEntry>& owners =
          record.kind == RecordKind::Child ? module.entries[record.entry].children : module.entries;
      erase_with_comments(owners, record.kind == RecordKind::Child ? record.child : record.entry);
      found = true;
    }
    return found || miss(path);
  }

  static std::size_t line_of(const std::optional<SourceSpan>& location) {
    return location ? static_cast<std::size_t>(location->line) : 0;
  }

  static void erase_with_comments(std::vector<ModuleEntry>& entries, std::size_t index) {
    std::size_t first = index;
    while (first > 0 && is_comment(entries[first - 1]) &&
           line_of(entries[first - 1].location) + 1 == line_of(entries[first].location)) {
      --first;
    }
    const auto begin = entries.begin();
    entries.erase(begin + static_cast<std::ptrdiff_t>(first),
                  begin + static_cast<std::ptrdiff_t>(index) + 1);
  }

  // From the last to the first, so that the numbers of those still to go stay right.
  void unset_modules() {
    std::vector<ValuePath> paths;
    for (const ValuePath& path : edit_.unset) {
      if (path.kind == PathKind::Module) {
        paths.push_back(path);
      }
    }
    std::stable_sort(paths.begin(), paths.end(), [](const auto& left, const auto& right) {
      return left.module_index > right.module_index;
    });
    for (const ValuePath& path : paths) {
      const RecordId record = find_record(data(), schema_, path);
      if (!record) {
        miss(path);
        return;
      }
      remove_module(record.index);
    }
  }

  void remove_module(std::size_t index) {
    std::vector<Statement>& statements = data().statements;
    data().modules.erase(data().modules.begin() + static_cast<std::ptrdiff_t>(index));
    for (std::size_t i = 0; i < statements.size(); ++i) {
      const Statement& statement = statements[i];
      if (statement.kind != StatementKind::Module) {
        continue;
      }
      if (statement.module_index == index) {
        erase_statement_with_comments(i);
        break;
      }
    }
    for (Statement& statement : statements) {
      if (statement.kind == StatementKind::Module && statement.module_index > index) {
        --statement.module_index;
      }
    }
  }

  void erase_statement_with_comments(std::size_t index) {
    std::vector<Statement>& statements = data().statements;
    std::size_t first = index;
    while (first > 0 && statements[first - 1].kind == StatementKind::Comment &&
           line_of(statements[first - 1].location) + 1 == line_of(statements[first].location)) {
      --first;
    }
    const auto begin = statements.begin();
    statements.erase(begin + static_cast<std::ptrdiff_t>(first),
                     begin + static_cast<std::ptrdiff_t>(index) + 1);
  }

  const InputSchema& schema_;
  const Edit& edit_;
  EditedDocument result_;
};

}  // namespace

EditedDocument edit_document(const ParsedInput& input, const Edit& edit) {
  return Editing(input, edit).run();
}

bool same_value_line(std::string_view left, std::string_view right) {
  std::vector<std::string_view> left_fields;
  std::vector<std::string_view> right_fields;
  split_value_tokens(clean_value_line(left), left_fields);
  split_value_tokens(clean_value_line(right), right_fields);
  return std::equal(left_fields.begin(), left_fields.end(), right_fields.begin(),
                    right_fields.end(), same_field);
}

}  // namespace kelp::input::bdf
