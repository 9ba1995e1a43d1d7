#pragma once

#include <string>
#include <string_view>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/validation.hpp"
#include "schema/impl.hpp"
#include "validate/fault.hpp"
#include "validate/siblings.hpp"
#include "validate/value_check.hpp"

namespace kelp::input::bdf {

/// What all checks share: what is asked for, where the findings go, and what is kept from one value
/// to the next.
struct CheckContext {
  const ValidationOptions& options;
  const FaultSink& sink;
  ValueCheck& values;
};

/// A name as messages give it, `scf.charge`. It is put together only for a finding.
struct PathName {
  const PathName* parent;  ///< null for a module
  std::string_view name;

  std::string text() const {
    return parent == nullptr ? std::string(name) : (parent->text() + '.').append(name);
  }
};

/// Checks the values and children of one known entry.
void check_entry(const ModuleEntry& entry, const RecordId& record, const EntrySpec& spec,
                 const PathName& path, const CheckContext& context);

/// The findings about entries that stand beside each other; their wording tells the two levels
/// apart.
struct RelationIssues {
  IssueId missing_entry;
  IssueId missing_value;
  IssueId conflict;
};

/// Checks that what an entry requires stands beside it and what it conflicts with does not.
/// `parent` is the path of the module or block.
void check_relations(const ModuleEntry& entry, const EntrySpec& spec, const PathName& parent,
                     Siblings& siblings, const RelationIssues& ids, const CheckContext& context);

/// What is done about a name that the schema does not know.
struct UnknownName {
  bool as_error;
  bool as_warning;  ///< unless it is an error
  IssueId error_id;
  IssueId warning_id;
};

/// Reports such a name: an error, a warning that it was kept, or nothing.
void report_unknown(const FaultSink& sink, const UnknownName& what,
                    std::initializer_list<std::string_view> names, const FaultSite& site);

}  // namespace kelp::input::bdf
