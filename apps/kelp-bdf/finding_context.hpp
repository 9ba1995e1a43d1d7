#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "checked_input.hpp"
#include "easy_token_places.hpp"
#include "finding.hpp"
#include "kelp/input/bdf/names.hpp"
#include "line_index.hpp"
#include "namesakes.hpp"

namespace kelp::app {

/// What is asked about an input again and again while its findings are made.
class FindingContext {
 public:
  explicit FindingContext(const CheckedInput& checked)
      : input(checked), lines(checked.result.data), namesakes(checked), easy_tokens(checked) {}

  const CheckedInput& input;
  LineIndex lines;
  Namesakes namesakes;
  EasyTokenPlaces easy_tokens;

  /// Returns the names that there are, for comparison with misspelt ones.
  const input::bdf::NameLists& names() {
    if (!names_) {
      names_.emplace(input.schema);
    }
    return *names_;
  }

 private:
  std::optional<input::bdf::NameLists> names_;
};

/// A finding in the making.
class FindingDraft {
 public:
  FindingDraft(const input::bdf::ValidationIssue& about, FindingContext& known);

  const input::bdf::ValidationIssue& issue;
  FindingContext& context;
  const CheckedInput& input;
  std::size_t line;  ///< 0: the library names none
  Place place;       ///< what stands at that line
  Finding finding;

  /// Marks a part of a line as what is at fault.
  void mark(const LinePart& part, std::string label = {});
  /// Marks the first word of a line; nothing when the line is 0.
  void mark_word(std::size_t number, std::string label = {});
  void help(std::string text) { finding.help.push_back(std::move(text)); }
  /// Offers similar names of things: "entry" and "entries" for example.
  void suggest(std::vector<std::string> names, std::string_view thing, std::string_view things);
  /// Says which values a description asks for.
  void expect(const std::optional<input::bdf::EntrySchemaInfo>& description);
  /// Returns the schema's description of the entry at the line.
  std::optional<input::bdf::EntrySchemaInfo> description() const;
};

// Each completes the drafts of one code, or of the few that need the same.

void complete_header_value(FindingDraft& draft);
void complete_missing_method(FindingDraft& draft);
void complete_missing_geometry(FindingDraft& draft);
void complete_unterminated_geometry(FindingDraft& draft);

void complete_unknown_module(FindingDraft& draft);
void complete_unknown_entry(FindingDraft& draft);
void complete_unknown_nested_entry(FindingDraft& draft);

void complete_unterminated_module(FindingDraft& draft);
void complete_unterminated_block(FindingDraft& draft);
void complete_duplicate_module(FindingDraft& draft);
void complete_duplicate_entry(FindingDraft& draft);
void complete_conflict(FindingDraft& draft);

void complete_missing_value(FindingDraft& draft);
void complete_invalid_value(FindingDraft& draft);

}  // namespace kelp::app
