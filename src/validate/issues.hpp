#pragma once

#include <initializer_list>
#include <optional>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/validation.hpp"

namespace kelp::input::bdf {

/// Every finding there is; the table of texts in the source file is in this order.
enum class IssueId {
  InvalidEasyValue,
  MissingMethod,
  MissingGeometry,
  UnterminatedGeometry,
  UnknownModule,
  UnknownModuleKept,
  UnterminatedModule,
  UnknownEntry,
  UnknownEntryKept,
  MissingRequiredEntry,
  MissingRequiredValue,
  ConflictingEntries,
  DuplicateEntry,
  DuplicateModule,
  MissingEntryValue,
  UnterminatedEntryBlock,
  InvalidModuleValue,
  UnknownNestedEntry,
  UnknownNestedEntryKept,
  MissingRequiredNestedEntry,
  MissingRequiredNestedValue,
  ConflictingNestedEntries,
  DuplicateNestedEntry,
};

using Issues = std::vector<ValidationIssue>;

/// Appends a finding; `texts` fill the placeholders of its message.
void report(Issues& issues, IssueId id, std::initializer_list<std::string_view> texts,
            const std::optional<SourceSpan>& location);

/// Reports a name that the schema does not know, as the two switches have it: an error, a warning
/// that it was kept, or nothing.
void report_unknown(Issues& issues, bool as_error, bool as_warning, IssueId error_id,
                    IssueId warning_id, std::initializer_list<std::string_view> texts,
                    const std::optional<SourceSpan>& location);

}  // namespace kelp::input::bdf
