// The table of all findings, and what is read from it.

#include <array>
#include <cstddef>

#include "validate/fault.hpp"

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

const IssueText& text_of(IssueId id) {
  return issue_texts[static_cast<std::size_t>(id)];
}

}  // namespace

std::string_view code_of(IssueId id) {
  return text_of(id).code;
}

ValidationSeverity severity_of(IssueId id) {
  return text_of(id).severity;
}

std::string message_of(IssueId id, std::span<const std::string_view> arguments) {
  const std::string_view message = text_of(id).message;
  std::string filled;
  for (std::size_t at = 0; at < message.size(); ++at) {
    if (message[at] == '{') {
      filled += arguments[static_cast<std::size_t>(message[at + 1] - '0')];
      at += 2;
    } else {
      filled += message[at];
    }
  }
  return filled;
}

void report(const FaultSink& sink, IssueId id, std::initializer_list<std::string_view> arguments,
            const FaultSite& site, const ValueFault* value) {
  sink({id,
        {arguments.begin(), arguments.size()},
        site.record,
        site.related,
        &site.location,
        value});
}

}  // namespace kelp::input::bdf
