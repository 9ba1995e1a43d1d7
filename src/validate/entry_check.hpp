#pragma once

#include <string_view>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/validation.hpp"
#include "schema/impl.hpp"
#include "validate/issues.hpp"
#include "validate/siblings.hpp"

namespace kelp::input::bdf {

/// Checks the values and children of one known entry; `path` is its name as messages give it.
void check_entry(const ModuleEntry& entry, const EntrySpec& spec, std::string_view path,
                 const ValidationOptions& options, Issues& issues);

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
                     Siblings& siblings, const RelationIssues& ids, Issues& issues);

}  // namespace kelp::input::bdf
