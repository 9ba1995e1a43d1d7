// An edit is made in the document: what is there already in another spelling is left alone, so that
// no byte of it changes afterwards. New records get no location; that is how they are told from
// those that were read. At the end all that was wanted must be there: what one part of an edit
// undoes of another was not meant.

#include "rewrite/edit_document.hpp"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/names.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "model/molecule_names.hpp"
#include "model/same_value.hpp"
#include "model/script_name.hpp"
#include "rewrite/edit_parts.hpp"

namespace kelp::input::bdf {
namespace {

using Texts = std::vector<std::string>;

bool touches_geometry(const Edit& edit) {
  return edit.geometry ||
         std::any_of(
             edit.assignments.begin(), edit.assignments.end(), [](const Assignment& assignment) {
               return core::text::to_lower(assignment.path.name).starts_with(geometry_entry);
             });
}

ModuleEntry entry_without_atoms(const ModuleEntry& entry) {
  if (!is_geometry_entry(entry)) {
    return entry;
  }
  ModuleEntry copy;
  copy.name = entry.name;
  copy.kind = entry.kind;
  copy.terminator = entry.terminator;
  copy.known = entry.known;
  copy.terminated = entry.terminated;
  copy.raw_line = entry.raw_line;
  copy.location = entry.location;
  return copy;
}

Module module_without_atoms(const Module& module) {
  Module copy;
  copy.name = module.name;
  copy.known = module.known;
  copy.terminated = module.terminated;
  copy.header_line = module.header_line;
  copy.end_line = module.end_line;
  copy.trailing_lines = module.trailing_lines;
  copy.location = module.location;
  copy.entries.reserve(module.entries.size());
  for (const ModuleEntry& entry : module.entries) {
    copy.entries.push_back(entry_without_atoms(entry));
  }
  return copy;
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
  copy.statements = data.statements;
  copy.free_lines = data.free_lines;
  copy.modules.reserve(data.modules.size());
  for (const Module& module : data.modules) {
    copy.modules.push_back(module_without_atoms(module));
  }
  return copy;
}

std::string joined(const Texts& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += (text.empty() ? "" : "\\n") + line;
  }
  return text;
}

class Editing {
 public:
  Editing(const ParsedInput& input, const Edit& edit)
      : edit_(edit), context_{input, edit, result_.data, result_.notes} {
    result_.leaves_out_geometries = !touches_geometry(edit);
    result_.data =
        result_.leaves_out_geometries ? document_without_atoms(input.data()) : input.data();
  }

  EditedDocument run() {
    for (const auto step : {&Editing::set_script_name, &Editing::set_numbers,
                            &Editing::make_assignments, &Editing::set_atoms, &Editing::take_out}) {
      result_.error = (this->*step)();
      if (!result_.error.empty()) {
        break;
      }
    }
    return std::move(result_);
  }

 private:
  Problem set_script_name() {
    if (!edit_.script_name) {
      return {};
    }
    if (result_.data.mode == InputMode::Module) {
      return "an input of modules alone has no line '#!' for a script name";
    }
    result_.data.script_name = normalize_script_name(*edit_.script_name);
    return {};
  }

  Problem set_numbers() { return set_charge_and_multiplicity(context_); }
  Problem set_atoms() { return edit_.geometry ? set_geometry(context_) : Problem(); }

  // The parts of the method specification depend on each other.
  Problem make_assignments() {
    std::vector<const Assignment*> parts;
    for (const Assignment& assignment : edit_.assignments) {
      if (is_specification_part(assignment.path)) {
        parts.push_back(&assignment);
        continue;
      }
      Problem problem = assign(assignment);
      if (!problem.empty()) {
        return problem;
      }
    }
    return parts.empty() ? Problem() : set_specification(context_, parts);
  }

  Problem assign(const Assignment& assignment) {
    const ValuePath& path = assignment.path;
    switch (path.kind) {
      case PathKind::Geometry:
        return refusal(path, "atoms come from a file: --geometry FILE.xyz");
      case PathKind::Module:
        return refuse_module(path);
      case PathKind::EasyKeyword:
        return set_easy(context_, assignment);
      case PathKind::Entry:
        return set_entry(context_, assignment);
      case PathKind::Child:
        return set_child(context_, assignment);
    }
    return {};
  }

  // A bare name may be that of a keyword.
  Problem refuse_module(const ValuePath& path) const {
    const InputSchema& schema = context_.schema();
    if (schema.is_known_module(path.module) || find_record(result_.data, schema, path)) {
      return refusal(path, "it names a module; a value belongs to one of its entries");
    }
    Texts meant = paths_of_name(result_.data, schema, path.module);
    if (meant.empty()) {
      meant = path_hint(schema, path);
    }
    return refusal(path, "there is no module '" + path.module + "'" +
                             (meant.empty() ? "" : "; did you mean " + quoted_choice(meant) + "?"));
  }

  Problem take_out() {
    Problem problem = unset_values(context_);
    if (problem.empty()) {
      problem = find_contradiction();
    }
    return problem.empty() ? unset_modules(context_) : problem;
  }

  // --- what undoes something else

  Problem find_contradiction() {
    const std::vector<RecordId> records = records_of_assignments();
    const std::vector<bool> again = are_made_again(records);
    for (std::size_t i = 0; i < records.size(); ++i) {
      const Assignment& assignment = edit_.assignments[i];
      if (again[i] && records[i]) {
        result_.notes.push_back("'" + to_string(assignment.path) +
                                "' is set more than once; the last one counts");
      } else if (!again[i] && !is_specification_part(assignment.path)) {
        Problem problem = check_is_there(assignment.path, records[i], assignment.values);
        if (!problem.empty()) {
          return problem;
        }
      }
    }
    const Problem problem = check_number(charge_name, edit_.charge);
    return problem.empty() ? check_number(multiplicity_name, edit_.multiplicity) : problem;
  }

  std::vector<RecordId> records_of_assignments() {
    std::vector<RecordId> records;
    records.reserve(edit_.assignments.size());
    for (const Assignment& assignment : edit_.assignments) {
      records.push_back(context_.find(assignment.path));
    }
    return records;
  }

  // Of several assignments of one record the last one counts.
  static std::vector<bool> are_made_again(const std::vector<RecordId>& records) {
    std::set<std::tuple<RecordKind, std::size_t, std::size_t, std::size_t>> later;
    std::vector<bool> again(records.size());
    for (std::size_t i = records.size(); i-- > 0;) {
      const RecordId& record = records[i];
      again[i] = !later.insert({record.kind, record.index, record.entry, record.child}).second;
    }
    return again;
  }

  static const std::vector<ModuleEntry>& siblings_of(const BDFData& data, const RecordId& record) {
    const Module& module = data.modules[record.index];
    return record.kind == RecordKind::Child ? module.entries[record.entry].children
                                            : module.entries;
  }

  Problem check_is_there(const ValuePath& path, const RecordId& record, const Texts& values) const {
    if (!record || is_in_module_that_goes(path)) {
      return "the change contradicts itself: '" + to_string(path) + "' is to be set and taken out";
    }
    const ModuleEntry* const entry = entry_or_child(result_.data, record);
    const Texts found =
        entry != nullptr ? entry->values : value_lines(result_.data, context_.schema(), record);
    const bool is_said = entry != nullptr
                             ? is_said_already(siblings_of(result_.data, record), *entry, values)
                             : same_values(found, values);
    return is_said ? Problem()
                   : "the change contradicts itself: '" + to_string(path) + "' is to be '" +
                         joined(values) + "' and '" + core::text::trim(joined(found)) + "'";
  }

  bool is_in_module_that_goes(const ValuePath& path) const {
    const InputSchema& schema = context_.schema();
    return std::any_of(edit_.unset.begin(), edit_.unset.end(), [&](const ValuePath& gone) {
      return gone.kind == PathKind::Module && path.kind != PathKind::EasyKeyword &&
             gone.module_index == path.module_index &&
             schema.canonical_module(gone.module) == schema.canonical_module(path.module);
    });
  }

  // In the header, and in every `$scf` that states it.
  Problem check_number(const char* name, const std::optional<int>& number) {
    if (!number) {
      return {};
    }
    const InputSchema& schema = context_.schema();
    std::vector<ValuePath> paths;
    if (homes_of_numbers(result_.data, schema).header) {
      paths.push_back({PathKind::EasyKeyword, {}, 0, name, {}});
    }
    for (std::size_t i = 0; i < context_.modules().count(schema, scf_module); ++i) {
      paths.push_back({PathKind::Entry, scf_module, i, name, {}});
    }
    for (const ValuePath& path : paths) {
      const bool must_be_there = path == paths.front();
      const RecordId record = context_.find(path);
      Problem problem = must_be_there || record
                            ? check_is_there(path, record, {std::to_string(*number)})
                            : Problem();
      if (!problem.empty()) {
        return problem;
      }
    }
    return {};
  }

  const Edit& edit_;
  EditedDocument result_;
  EditContext context_;
};

}  // namespace

EditedDocument edit_document(const ParsedInput& input, const Edit& edit) {
  return Editing(input, edit).run();
}

Problem refusal(const ValuePath& path, std::string_view reason) {
  return "cannot change '" + to_string(path) + "': " + std::string(reason);
}

}  // namespace kelp::input::bdf
