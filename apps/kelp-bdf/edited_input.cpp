#include "edited_input.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "canonical_form.hpp"
#include "departures.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/editor.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "line_change.hpp"
#include "line_of.hpp"
#include "line_roles.hpp"

namespace kelp::app {
namespace {

using input::bdf::BDFData;
using input::bdf::BDFEditor;
using input::bdf::InputSchema;
using input::bdf::ValuePath;
using Kind = input::bdf::PathKind;
using LineNumbers = std::set<std::size_t>;

/// Tells which lines of an input a change takes away, so that nothing on them can get lost.
class TakenLines {
 public:
  TakenLines(const CheckedInput& before, const BDFData& after, bool new_geometry)
      : old_(record_lines(before.result.data)), kept_(record_lines(after)) {
    if (new_geometry && before.result.data.geometry_location) {
      first_of_geometry_ = line_of(before.result.data.geometry_location) + 1;
      behind_geometry_ =
          last_geometry_line(before) + (before.result.data.geometry_terminated ? 0 : 1);
    }
  }

  bool holds(std::size_t line) const {
    if (line >= first_of_geometry_ && line < behind_geometry_) {
      return true;
    }
    // A line without a record of its own belongs to the record before it.
    const auto next = old_.upper_bound(line);
    return next != old_.begin() && kept_.count(*std::prev(next)) == 0;
  }

 private:
  LineNumbers old_;
  LineNumbers kept_;
  std::size_t first_of_geometry_ = 0;
  std::size_t behind_geometry_ = 0;
};

std::vector<Finding> departures_that_stay(const CheckedInput& before, const BDFData& edited,
                                          const std::optional<LineChange>& change,
                                          bool new_geometry) {
  const CheckedInput canonical(before.name, canonical_text(before), before.schema);
  std::vector<Finding> findings = find_departures(before, canonical);
  const TakenLines taken(before, edited, new_geometry);
  std::erase_if(findings, [&](const Finding& finding) {
    // Without a path, what would be added is the geometry that was missing.
    const input::bdf::Diagnostic& diagnostic = finding.diagnostic;
    const std::size_t line = finding.source.line_at(diagnostic.range->begin);
    const bool is_given =
        new_geometry && diagnostic.code == "bdf.format_addition" && diagnostic.path.empty();
    return is_given || taken.holds(line) || (change && !change->replaced.contains(line));
  });
  return findings;
}

Finding reason(const CheckedInput& input, std::string code, std::string message, std::string help) {
  Finding finding;
  finding.file = input.name;
  finding.source = input.source.source();
  finding.diagnostic.code = std::move(code);
  finding.diagnostic.severity = input::bdf::Severity::Error;
  finding.diagnostic.message = std::move(message);
  finding.diagnostic.help.push_back(std::move(help));
  return finding;
}

bool is_bohr(const std::optional<std::vector<std::string>>& unit) {
  return unit && !unit->empty() &&
         core::text::to_lower(core::text::trim(unit->front())).starts_with("bohr");
}

void check_unit(const CheckedInput& after, std::vector<Finding>& reasons) {
  for (const char* const path : {"easy.unit", "compass.unit"}) {
    if (is_bohr(find_value(after.result.data, after.schema, read_path(path)))) {
      reasons.push_back(
          reason(after, "bdf.edit_unit",
                 fmt::format("The new atoms are in angstrom, but '{}' says bohr.", path),
                 fmt::format("set the unit as well: {}=angstrom", path)));
    }
  }
}

// Modules that go move those behind them of the same name down.
ValuePath path_afterwards(const Edit& edit, const InputSchema& schema, ValuePath path) {
  const std::string name = schema.canonical_module(path.module);
  const auto gone =
      std::count_if(edit.unset.begin(), edit.unset.end(), [&](const ValuePath& unset) {
        return unset.kind == Kind::Module && schema.canonical_module(unset.module) == name &&
               unset.module_index < path.module_index;
      });
  path.module_index -= static_cast<std::size_t>(gone);
  return path;
}

bool is_last_word(const Edit& edit, const InputSchema& schema, const Assignment& assignment) {
  const auto same_place = [&](const ValuePath& other) {
    const ValuePath& path = assignment.path;
    const bool same_module =
        schema.canonical_module(other.module) == schema.canonical_module(path.module) &&
        other.module_index == path.module_index;
    if (other.kind == Kind::Module) {
      return path.kind == Kind::Entry && same_module;
    }
    if (other.kind != path.kind) {
      return false;
    }
    if (path.kind == Kind::EasyKeyword) {
      return schema.canonical_easy_key(other.name) == schema.canonical_easy_key(path.name);
    }
    return same_module && schema.canonical_entry(path.module, other.name) ==
                              schema.canonical_entry(path.module, path.name);
  };
  return std::none_of(edit.unset.begin(), edit.unset.end(), same_place) &&
         std::none_of(&assignment + 1, edit.assignments.data() + edit.assignments.size(),
                      [&](const Assignment& other) { return same_place(other.path); });
}

void check_values(const Edit& edit, const CheckedInput& after, std::vector<Finding>& reasons) {
  for (const Assignment& assignment : edit.assignments) {
    if (!is_last_word(edit, after.schema, assignment)) {
      continue;
    }
    std::vector<std::string> wanted;
    wanted.reserve(assignment.values.size());
    for (const std::string& value : assignment.values) {
      wanted.push_back(core::text::trim(value));
    }
    const auto found = find_value(after.result.data, after.schema,
                                  path_afterwards(edit, after.schema, assignment.path));
    if (found != wanted) {
      Finding finding = reason(
          after, "bdf.edit_value",
          fmt::format("The value given for '{}' would not be read back.", assignment.path.text),
          found ? fmt::format("read back would be: '{}'", fmt::join(*found, "\\n"))
                : "nothing would be read back");
      finding.diagnostic.path = assignment.path.text;
      reasons.push_back(std::move(finding));
    }
  }
}

}  // namespace

Rewrite edit_input(const CheckedInput& before, const Edit& edit) {
  BDFEditor editor(canonical_document(before), before.schema);
  const std::string unchanged = editor.render();
  apply_edit(edit, editor, before.schema);
  const std::string edited = editor.render();
  if (edited == unchanged) {
    return {std::string(before.source.text()), {}};
  }
  const std::optional<LineChange> change = change_lines(before, unchanged, edited);
  Rewrite rewrite;
  rewrite.text = change ? change->text : edited;
  const CheckedInput after(before.name + " (as edited)", rewrite.text, before.schema);
  rewrite.reasons = departures_that_stay(before, editor.data(), change, edit.geometry.has_value());
  for (Finding& error : find_added_errors(before, after)) {
    rewrite.reasons.push_back(std::move(error));
  }
  check_values(edit, after, rewrite.reasons);
  if (edit.geometry) {
    check_unit(after, rewrite.reasons);
  }
  return rewrite;
}

}  // namespace kelp::app
