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

void check_values(const ModuleEntry& entry, const RecordId& record, const EntrySpec& spec,
                  const PathName& path, const CheckContext& context) {
  if (!context.values.matches(entry, spec)) {
    const ValueFault fault = find_value_fault(entry.values, spec);
    report(context.sink, IssueId::InvalidModuleValue,
           {path.text(), core::text::join(cleaned_lines(entry), " | ")}, {record, entry.location},
           &fault);
  }
}

/// Checks the children of one nested block.
class ChildrenCheck {
 public:
  ChildrenCheck(const ModuleEntry& parent, const RecordId& record, const EntrySpec& spec,
                const PathName& path, const CheckContext& context)
      : parent_(parent),
        record_(record),
        spec_(spec),
        path_(path),
        context_(context),
        siblings_(parent.children, spec.child_aliases, record),
        repetitions_(parent.children.size()) {}

  void run() {
    for (std::size_t i = 0; i < parent_.children.size(); ++i) {
      check_child(i);
    }
    repetitions_.for_each([&](const EntrySpec& child, std::size_t first, std::size_t again) {
      if (!child.repeatable) {
        report(context_.sink, IssueId::DuplicateNestedEntry, {path_.text(), child.name},
               {member_of(record_, again), parent_.location, member_of(record_, first)});
      }
    });
  }

 private:
  void check_child(std::size_t index) {
    const ModuleEntry& child = parent_.children[index];
    const RecordId record = member_of(record_, index);
    const EntrySpec* const spec = find_child_spec(&spec_, child.name);
    if (spec == nullptr) {
      check_unknown_child(child, record);
      return;
    }
    repetitions_.add(spec, index);
    check_entry(child, record, *spec, {&path_, spec->name}, context_);
    check_relations(child, *spec, path_, siblings_, nested_relations, context_);
  }

  // A blank line in a block is no entry at all.
  void check_unknown_child(const ModuleEntry& child, const RecordId& record) {
    if (!core::text::trim_view(child.raw_line).empty()) {
      const ValidationOptions& options = context_.options;
      report_unknown(context_.sink,
                     {options.unknown_entries_as_errors, options.report_unknown_entries,
                      IssueId::UnknownNestedEntry, IssueId::UnknownNestedEntryKept},
                     {path_.text(), child.name}, {record, child.location});
    }
  }

  const ModuleEntry& parent_;
  RecordId record_;
  const EntrySpec& spec_;
  const PathName& path_;
  const CheckContext& context_;
  Siblings siblings_;
  Repetitions<EntrySpec> repetitions_;
};

}  // namespace

void check_relations(const ModuleEntry& entry, const EntrySpec& spec, const PathName& parent,
                     Siblings& siblings, const RelationIssues& ids, const CheckContext& context) {
  if (spec.required.empty() && spec.conflicts.empty()) {
    return;
  }
  const RecordId record = siblings.record_of(entry);
  for (const ValueRequirement& requirement : spec.required) {
    if (!holds(requirement, siblings)) {
      const IssueId id = requirement.equals ? ids.missing_value : ids.missing_entry;
      report(
          context.sink, id,
          {parent.text(), spec.name, requirement.entry, requirement.equals.value_or(std::string())},
          {record, entry.location});
    }
  }
  for (const std::string& other : spec.conflicts) {
    if (const ModuleEntry* const found = siblings.find(other); found != nullptr) {
      report(context.sink, ids.conflict, {parent.text(), spec.name, other},
             {record, entry.location, siblings.record_of(*found)});
    }
  }
}

void report_unknown(const FaultSink& sink, const UnknownName& what,
                    std::initializer_list<std::string_view> names, const FaultSite& site) {
  if (what.as_error || what.as_warning) {
    report(sink, what.as_error ? what.error_id : what.warning_id, names, site);
  }
}

void check_entry(const ModuleEntry& entry, const RecordId& record, const EntrySpec& spec,
                 const PathName& path, const CheckContext& context) {
  const EntryValueKind kind = spec.kind;
  if (kind == EntryValueKind::Flag || kind == EntryValueKind::Raw) {
    return;
  }
  const FaultSite site = {record, entry.location};
  if (entry.values.empty() && entry.children.empty()) {
    report(context.sink, IssueId::MissingEntryValue, {path.text()}, site);
    return;
  }
  const bool is_block =
      kind == EntryValueKind::NestedBlock || kind == EntryValueKind::TerminatedBlock;
  if (is_block && !entry.terminated) {
    report(context.sink, IssueId::UnterminatedEntryBlock, {path.text(), spec.terminator}, site);
  }
  if (kind == EntryValueKind::NestedBlock) {
    ChildrenCheck(entry, record, spec, path, context).run();
  } else if (!is_block) {
    check_values(entry, record, spec, path, context);
  }
}

}  // namespace kelp::input::bdf
