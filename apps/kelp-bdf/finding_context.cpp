#include "finding_context.hpp"

#include <fmt/format.h>

#include <utility>

#include "kelp/input/bdf/explain.hpp"
#include "line_of.hpp"

namespace kelp::app {

FindingDraft::FindingDraft(const input::bdf::ValidationIssue& about, FindingContext& known)
    : issue(about),
      context(known),
      input(known.input),
      line(line_of(about)),
      place(known.lines.place(line)) {
  finding.file = input.name;
  finding.code = issue.code;
  finding.severity = issue.severity;
  finding.message = issue.message;
  finding.path = context.lines.path(place);
}

void FindingDraft::mark(const LinePart& part, std::string label) {
  place_finding(finding, input.source, part);
  finding.label = std::move(label);
}

void FindingDraft::mark_word(std::size_t number, std::string label) {
  if (number != 0) {
    mark(input.source.first_word(number), std::move(label));
  }
}

void FindingDraft::suggest(std::vector<std::string> names, std::string_view thing,
                           std::string_view things) {
  if (names.empty()) {
    return;
  }
  const std::string choice = input::bdf::quoted_choice(names);
  help(names.size() == 1 ? fmt::format("a similar {} exists: {}", thing, choice)
                         : fmt::format("similar {} exist: {}", things, choice));
  finding.suggestions = std::move(names);
}

void FindingDraft::expect(const std::optional<input::bdf::EntrySchemaInfo>& description) {
  const std::string expected =
      description ? input::bdf::expected_value(*description) : std::string();
  if (!expected.empty()) {
    help("expected: " + expected);
  }
}

std::optional<input::bdf::EntrySchemaInfo> FindingDraft::description() const {
  if (place.record() == nullptr) {
    return std::nullopt;
  }
  if (place.child != nullptr) {
    return input.schema.nested_entry_info(place.module->name, place.entry->name, place.child->name);
  }
  return input.schema.entry_info(place.module->name, place.entry->name);
}

}  // namespace kelp::app
