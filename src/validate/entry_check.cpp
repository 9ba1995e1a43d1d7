#include "validate/entry_check.hpp"

#include <string>
#include <vector>

#include "kelp/core/text.hpp"
#include "model/value_lines.hpp"
#include "schema/normalize_key.hpp"
#include "validate/value_check.hpp"

namespace kelp::input::bdf {
namespace {

constexpr RelationIssues nested_relations = {IssueId::MissingRequiredNestedEntry,
                                             IssueId::MissingRequiredNestedValue,
                                             IssueId::ConflictingNestedEntries};

bool holds(const ValueRequirement& requirement, Siblings& siblings) {
  const ModuleEntry* const found = siblings.find(requirement.entry);
  return found != nullptr &&
         (!requirement.equals || normalize_key(*requirement.equals) == first_value(*found));
}

void check_values(const ModuleEntry& entry, const EntrySpec& spec, std::string_view path,
                  Issues& issues) {
  const std::vector<std::string_view> lines = cleaned_lines(entry);
  if (!lines_match(lines, spec)) {
    report(issues, IssueId::InvalidModuleValue, {path, core::text::join(lines, " | ")},
           entry.location);
  }
}

/// Checks the children of one nested block.
class ChildrenCheck {
 public:
  ChildrenCheck(const ModuleEntry& parent, const EntrySpec& spec, std::string_view path,
                const ValidationOptions& options, Issues& issues)
      : parent_(parent),
        spec_(spec),
        path_(path),
        options_(options),
        issues_(issues),
        siblings_(parent.children, spec.child_aliases) {}

  void run() {
    for (const ModuleEntry& child : parent_.children) {
      check_child(child);
    }
    counts_.for_each_repeated([&](std::string_view name) {
      const auto* const child = find_in(spec_.children, name);
      if (child != nullptr && !(*child)->repeatable) {
        report(issues_, IssueId::DuplicateNestedEntry, {path_, name}, parent_.location);
      }
    });
  }

 private:
  void check_child(const ModuleEntry& child) {
    const EntrySpec* const spec = find_child_spec(&spec_, child.name);
    if (spec == nullptr) {
      check_unknown_child(child);
      return;
    }
    counts_.add(spec->name);
    check_entry(child, *spec, std::string(path_) + '.' + spec->name, options_, issues_);
    check_relations(child, *spec, path_, siblings_, nested_relations, issues_);
  }

  // A blank line in a block is no entry at all.
  void check_unknown_child(const ModuleEntry& child) {
    if (!core::text::trim_view(child.raw_line).empty()) {
      report_unknown(issues_, options_.unknown_entries_as_errors, options_.report_unknown_entries,
                     IssueId::UnknownNestedEntry, IssueId::UnknownNestedEntryKept,
                     {path_, child.name}, child.location);
    }
  }

  const ModuleEntry& parent_;
  const EntrySpec& spec_;
  std::string_view path_;
  const ValidationOptions& options_;
  Issues& issues_;
  Siblings siblings_;
  NameCounts counts_;
};

}  // namespace

void check_relations(const ModuleEntry& entry, const EntrySpec& spec, std::string_view parent,
                     Siblings& siblings, const RelationIssues& ids, Issues& issues) {
  for (const ValueRequirement& requirement : spec.required) {
    if (!holds(requirement, siblings)) {
      const IssueId id = requirement.equals ? ids.missing_value : ids.missing_entry;
      report(issues, id,
             {parent, spec.name, requirement.entry, requirement.equals.value_or(std::string())},
             entry.location);
    }
  }
  for (const std::string& other : spec.conflicts) {
    if (siblings.find(other) != nullptr) {
      report(issues, ids.conflict, {parent, spec.name, other}, entry.location);
    }
  }
}

void check_entry(const ModuleEntry& entry, const EntrySpec& spec, std::string_view path,
                 const ValidationOptions& options, Issues& issues) {
  const EntryValueKind kind = spec.kind;
  if (kind == EntryValueKind::Flag || kind == EntryValueKind::Raw) {
    return;
  }
  if (entry.values.empty() && entry.children.empty()) {
    report(issues, IssueId::MissingEntryValue, {path}, entry.location);
    return;
  }
  const bool is_block =
      kind == EntryValueKind::NestedBlock || kind == EntryValueKind::TerminatedBlock;
  if (is_block && !entry.terminated) {
    report(issues, IssueId::UnterminatedEntryBlock, {path, spec.terminator}, entry.location);
  }
  if (kind == EntryValueKind::NestedBlock) {
    ChildrenCheck(entry, spec, path, options, issues).run();
  } else if (!is_block) {
    check_values(entry, spec, path, issues);
  }
}

}  // namespace kelp::input::bdf
