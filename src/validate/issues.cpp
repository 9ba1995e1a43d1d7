#include "validate/issues.hpp"

#include <array>
#include <cstddef>
#include <string>

namespace kelp::input::bdf {
namespace {

struct IssueText {
  IssueId id;
  ValidationSeverity severity;
  std::string_view code;
  std::string_view message;  ///< {0}, {1} ... stand for the texts of the case
};

constexpr auto warning = ValidationSeverity::Warning;
constexpr auto error = ValidationSeverity::Error;

constexpr std::array<IssueText, 23> issue_texts = {{
    {IssueId::InvalidEasyValue, error, "bdf.invalid_easy_value",
     "BDF easy keyword '{0}' has an invalid value '{1}'."},
    {IssueId::MissingMethod, error, "bdf.missing_method",
     "BDF easy/mixed input requires a method/functional/basis specification."},
    {IssueId::MissingGeometry, error, "bdf.missing_geometry",
     "BDF easy/mixed input requires a Geometry ... End Geometry block."},
    {IssueId::UnterminatedGeometry, error, "bdf.unterminated_geometry",
     "BDF Geometry block is not terminated by End Geometry."},
    {IssueId::UnknownModule, error, "bdf.unknown_module", "Unknown BDF module '${0}'."},
    {IssueId::UnknownModuleKept, warning, "bdf.unknown_module",
     "Unknown BDF module '${0}' was preserved raw."},
    {IssueId::UnterminatedModule, error, "bdf.unterminated_module",
     "BDF module '${0}' is not terminated by $end."},
    {IssueId::UnknownEntry, error, "bdf.unknown_entry", "Unknown BDF module entry '{0}.{1}'."},
    {IssueId::UnknownEntryKept, warning, "bdf.unknown_entry",
     "Unknown BDF module entry '{0}.{1}' was preserved raw."},
    {IssueId::MissingRequiredEntry, error, "bdf.missing_required_entry",
     "BDF module entry '{0}.{1}' requires '{0}.{2}'."},
    {IssueId::MissingRequiredValue, error, "bdf.missing_required_entry",
     "BDF module entry '{0}.{1}' requires '{0}.{2}'={3}."},
    {IssueId::ConflictingEntries, error, "bdf.conflicting_entries",
     "BDF module entries '{0}.{1}' and '{0}.{2}' conflict."},
    {IssueId::DuplicateEntry, warning, "bdf.duplicate_entry",
     "BDF module entry '{0}.{1}' is repeated although the manual defines it as singular."},
    {IssueId::DuplicateModule, warning, "bdf.duplicate_module",
     "BDF module '${0}' is repeated although the schema marks it singular."},
    {IssueId::MissingEntryValue, warning, "bdf.missing_entry_value",
     "BDF module entry '{0}' normally requires a value."},
    {IssueId::UnterminatedEntryBlock, error, "bdf.unterminated_entry_block",
     "BDF module entry block '{0}' is not terminated by '{1}'."},
    {IssueId::InvalidModuleValue, error, "bdf.invalid_module_value",
     "BDF module entry '{0}' has an invalid value '{1}'."},
    {IssueId::UnknownNestedEntry, error, "bdf.unknown_nested_entry",
     "Unknown BDF nested entry '{0}.{1}'."},
    {IssueId::UnknownNestedEntryKept, warning, "bdf.unknown_nested_entry",
     "Unknown BDF nested entry '{0}.{1}' was preserved raw."},
    {IssueId::MissingRequiredNestedEntry, error, "bdf.missing_required_entry",
     "BDF nested entry '{0}.{1}' requires '{0}.{2}'."},
    {IssueId::MissingRequiredNestedValue, error, "bdf.missing_required_entry",
     "BDF nested entry '{0}.{1}' requires '{0}.{2}'={3}."},
    {IssueId::ConflictingNestedEntries, error, "bdf.conflicting_entries",
     "BDF nested entries '{0}.{1}' and '{0}.{2}' conflict."},
    {IssueId::DuplicateNestedEntry, warning, "bdf.duplicate_entry",
     "BDF nested entry '{0}.{1}' is repeated although the manual defines it as singular."},
}};

constexpr bool table_is_in_order() {
  for (std::size_t i = 0; i < issue_texts.size(); ++i) {
    if (issue_texts[i].id != static_cast<IssueId>(i)) {
      return false;
    }
  }
  return true;
}
static_assert(table_is_in_order());

std::string fill(std::string_view message, std::initializer_list<std::string_view> texts) {
  std::string filled;
  for (std::size_t at = 0; at < message.size(); ++at) {
    if (message[at] == '{') {
      filled += *(texts.begin() + (message[at + 1] - '0'));
      at += 2;
    } else {
      filled += message[at];
    }
  }
  return filled;
}

}  // namespace

void report(Issues& issues, IssueId id, std::initializer_list<std::string_view> texts,
            const std::optional<SourceSpan>& location) {
  const IssueText& text = issue_texts[static_cast<std::size_t>(id)];
  issues.push_back({text.severity, std::string(text.code), fill(text.message, texts), location});
}

void report_unknown(Issues& issues, bool as_error, bool as_warning, IssueId error_id,
                    IssueId warning_id, std::initializer_list<std::string_view> texts,
                    const std::optional<SourceSpan>& location) {
  if (as_error) {
    report(issues, error_id, texts, location);
  } else if (as_warning) {
    report(issues, warning_id, texts, location);
  }
}

}  // namespace kelp::input::bdf
