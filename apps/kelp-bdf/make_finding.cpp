// The library tells of each finding what is wrong and on which line it begins. What a user would
// like to know beside, the words at fault first of all, is found here and in the files of the
// subjects.

#include "make_finding.hpp"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "finding_context.hpp"
#include "kelp/core/text.hpp"
#include "line_of.hpp"

namespace kelp::app {
namespace {

using input::bdf::ValidationIssue;

struct Step {
  std::string_view code;
  void (*complete)(FindingDraft&);
};

constexpr auto steps = std::to_array<Step>({
    {"bdf.invalid_easy_value", complete_header_value},
    {"bdf.missing_method", complete_missing_method},
    {"bdf.missing_geometry", complete_missing_geometry},
    {"bdf.unterminated_geometry", complete_unterminated_geometry},
    {"bdf.unknown_module", complete_unknown_module},
    {"bdf.unterminated_module", complete_unterminated_module},
    {"bdf.unknown_entry", complete_unknown_entry},
    {"bdf.unknown_nested_entry", complete_unknown_nested_entry},
    {"bdf.conflicting_entries", complete_conflict},
    {"bdf.duplicate_entry", complete_duplicate_entry},
    {"bdf.duplicate_module", complete_duplicate_module},
    {"bdf.missing_entry_value", complete_missing_value},
    {"bdf.unterminated_entry_block", complete_unterminated_block},
    {"bdf.invalid_module_value", complete_invalid_value},
});

void complete(FindingDraft& draft) {
  const auto step = std::find_if(steps.begin(), steps.end(), [&](const Step& candidate) {
    return candidate.code == draft.issue.code;
  });
  if (step != steps.end()) {
    step->complete(draft);
  } else {
    draft.mark_word(draft.line);
  }
}

}  // namespace

FindingMaker::FindingMaker(const CheckedInput& input)
    : context_(std::make_unique<FindingContext>(input)) {}

FindingMaker::~FindingMaker() = default;

Finding FindingMaker::make(const ValidationIssue& issue) {
  FindingDraft draft(issue, *context_);
  complete(draft);
  return std::move(draft.finding);
}

Finding make_finding(const ValidationIssue& issue, const CheckedInput& input) {
  return FindingMaker(input).make(issue);
}

Finding make_empty_input_finding(const CheckedInput& input) {
  Finding finding;
  finding.file = input.name;
  finding.code = "bdf.empty_input";
  finding.severity = input::bdf::ValidationSeverity::Error;
  finding.message = input.result.error;
  return finding;
}

bool is_about_remark(const ValidationIssue& issue, const CheckedInput& input) {
  if (!issue.location ||
      (issue.code != "bdf.unknown_entry" && issue.code != "bdf.unknown_nested_entry")) {
    return false;
  }
  const std::string_view line = core::text::trim_view(input.source.line(line_of(issue)));
  return line.empty() || line.front() == '#' || line.front() == '*';
}

}  // namespace kelp::app
