#pragma once

#include <string_view>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/validation.hpp"
#include "schema/impl.hpp"
#include "validate/fault.hpp"
#include "validate/siblings.hpp"

namespace kelp::input::bdf {

/// What all checks share: what is asked for, and where the findings go.
struct CheckContext {
  const ValidationOptions& options;
  const FaultSink& sink;
};

/// Checks the values and children of one known entry; `path` is its name as messages give it.
void check_entry(const ModuleEntry& entry, const RecordId& record, const EntrySpec& spec,
                 std::string_view path, const CheckContext& context);

/// The findings about entries that stand beside each other; their wording tells the two levels
/// apart.
struct RelationIssues {
  IssueId missing_entry;
  IssueId missing_value;
  IssueId conflict;
};

/// Checks that what an entry requires stands beside it and what it conflicts with does not.
/// `parent` is the path of the module or block.
void check_relations(const ModuleEntry& entry, const EntrySpec& spec, std::string_view parent,
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
