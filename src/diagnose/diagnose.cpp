// The validator tells of each finding which records it is about, and of a value which part of it is
// at fault; the input knows where these stand. A diagnostic is put together from the two. What only
// follows from a finding before is left out, and the rest is handed over in the order of the text.

#include <algorithm>
#include <utility>

#include "advice/advice.hpp"
#include "diagnose/causes.hpp"
#include "diagnose/consequences.hpp"
#include "diagnose/draft.hpp"
#include "diagnose/finders.hpp"
#include "diagnose/frame_faults.hpp"
#include "diagnose/in_order.hpp"
#include "diagnose/loose_borders.hpp"
#include "diagnose/missing_lines.hpp"
#include "diagnose/offers.hpp"
#include "diagnose/outside_lines.hpp"
#include "kelp/core/text.hpp"
#include "kelp/core/unicode.hpp"
#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/explain.hpp"
#include "parser/frame.hpp"

namespace kelp::input::bdf {
namespace {

ValidationOptions validation_options(const DiagnoseOptions& options) {
  ValidationOptions validation;
  validation.report_unknown_modules = options.unknown == UnknownNames::Warn;
  validation.report_unknown_entries = options.unknown == UnknownNames::Warn;
  validation.unknown_modules_as_errors = options.unknown == UnknownNames::Error;
  validation.unknown_entries_as_errors = options.unknown == UnknownNames::Error;
  return validation;
}

Severity severity_from(ValidationSeverity severity) {
  return severity == ValidationSeverity::Error ? Severity::Error : Severity::Warning;
}

// A module keeps its comments and blank lines as entries, like any other line that is no keyword.
bool is_about_comment(const Fault& fault, const ParsedInput& input) {
  switch (fault.id) {
    case IssueId::UnknownEntry:
    case IssueId::UnknownEntryKept:
    case IssueId::UnknownNestedEntry:
    case IssueId::UnknownNestedEntryKept: {
      const LineRole role = input.line(input.first_line(fault.record)).role;
      return role == LineRole::Comment || role == LineRole::Blank;
    }
    default:
      return false;
  }
}

bool is_about_missing_header(const Fault& fault) {
  return fault.id == IssueId::MissingMethod || fault.id == IssueId::MissingGeometry;
}

// Of a calculation nothing is certain whose modules or blocks are not those that were meant.
bool hides_parts(std::string_view code) {
  return code == "frame.stray_end" || code == "bdf.unterminated_entry_block";
}

// A name that is told of as a slip is not told of as one that is not listed.
bool is_about_unlisted_name(std::string_view code) {
  return code == "basis.basis_unknown" || code == "functional.functional_unlisted";
}

bool is_within(const std::vector<TextRange>& told, const std::optional<TextRange>& range) {
  return range && std::any_of(told.begin(), told.end(), [&](const TextRange& other) {
           return other.begin < range->end && range->begin < other.end;
         });
}

Diagnostic empty_input() {
  Diagnostic diagnostic;
  diagnostic.code = "bdf.empty_input";
  diagnostic.severity = Severity::Error;
  diagnostic.message = empty_input_message;
  return diagnostic;
}

}  // namespace

Draft::Draft(const Fault& about, DiagnoseContext& known)
    : fault(about),
      context(known),
      input(known.input),
      source(known.input.source()),
      line(input.first_line(about.record)),
      module(module_of(input.data(), about.record)),
      entry(entry_of(input.data(), about.record)),
      child(about.record.kind == RecordKind::Child ? entry_or_child(input.data(), about.record)
                                                   : nullptr) {
  diagnostic.code = code_of(fault.id);
  diagnostic.severity = severity_from(severity_of(fault.id));
  diagnostic.message = message_of(fault.id, fault.arguments);
  diagnostic.arguments.assign(fault.arguments.begin(), fault.arguments.end());
  diagnostic.record = fault.record;
  diagnostic.path = context.paths.path_of(fault.record);
}

bool DiagnoseContext::is_listed_value(std::string_view word) {
  if (!values_) {
    values_.emplace();
    const auto add = [this](const std::optional<EntrySchemaInfo>& info) {
      for (const std::string& value : info ? info->allowed : std::vector<std::string>()) {
        values_->insert(core::text::to_lower(value));
      }
    };
    for (const std::string& module : names().modules()) {
      for (const std::string& entry : names().entries(module)) {
        add(input.schema().entry_info(module, entry));
      }
    }
    for (const std::string& keyword : names().easy_keywords()) {
      add(input.schema().easy_keyword_info(keyword));
    }
  }
  return values_->count(core::text::to_lower(word)) > 0;
}

TextRange Draft::statement_on(std::size_t number) const {
  return source.trimmed({source.content(number).begin, input.comment_range(number).begin});
}

std::optional<EntrySchemaInfo> Draft::description() const {
  if (child != nullptr) {
    return input.schema().nested_entry_info(module->name, entry->name, child->name);
  }
  return entry == nullptr ? std::nullopt : input.schema().entry_info(module->name, entry->name);
}

void Draft::mark(const TextRange& range, std::string label) {
  diagnostic.range = range;
  diagnostic.label = std::move(label);
}

void Draft::mark_word(std::string label) {
  if (line != 0) {
    mark(input.keyword_range(fault.record), std::move(label));
  }
}

void Draft::relate(const RecordId& other, std::string message) {
  diagnostic.related.push_back({input.keyword_range(other), std::move(message)});
}

void Draft::expect(const std::optional<EntrySchemaInfo>& description) {
  const std::string expected = description ? expected_value(*description) : std::string();
  if (!expected.empty()) {
    help("expected: " + expected);
  }
}

void Draft::suggest(std::vector<std::string> names, std::string_view thing, std::string_view things,
                    const TextRange& range, bool are_names) {
  offer_names(diagnostic, std::move(names), {thing, things}, range, are_names);
}

void Draft::fix(std::string title, const TextRange& range, std::string text, bool is_safe) {
  offer_fix(diagnostic, std::move(title), range, std::move(text), is_safe);
}

void Draft::fix_by_line(const std::string& text, std::size_t behind) {
  const std::size_t at = source.full_line_range(behind).end;
  const bool is_ended = !source.line_end(behind).empty();
  std::string added = is_ended ? text : std::string(line_end()) + text;
  if (is_ended) {
    added += line_end();
  }
  fix("add the line '" + text + "'", {at, at}, std::move(added));
}

std::string_view Draft::line_end() const {
  const std::string_view end = source.line_end(1);
  return end == "\r\n" ? end : std::string_view("\n");
}

void find_diagnostics(const ParsedInput& input, const DiagnoseOptions& options,
                      const std::function<void(const Diagnostic&)>& use) {
  // A text that cannot be read as lines has nothing else to be told of.
  if (const auto unreadable = find_text_fault(input.source())) {
    use(*unreadable);
    return;
  }
  if (input.is_empty()) {
    use(empty_input());
    return;
  }
  if (const auto prefixed = find_prefixed_lines(input.source(), input.schema())) {
    use(*prefixed);
    return;
  }
  DiagnoseContext context(input);
  const MissingLines missing(context);
  const auto start = missing.empty() ? find_strange_start(input) : std::nullopt;
  if (start && start->is_all) {
    use(start->diagnostic);
    return;
  }
  InOrder in_order(use);
  if (start) {
    in_order.add(start->diagnostic);
  }
  missing.tell([&](const Diagnostic& found) { in_order.add(found); });
  bool is_certain = missing.empty();
  Causes causes(input);
  const auto add = [&](const Diagnostic& found) {
    if (!missing.cover(found)) {
      is_certain = is_certain && !hides_parts(found.code);
      causes.note(found);
      in_order.add(found);
    }
  };
  tell_misspelt_borders(context, add);
  tell_loose_borders(context, add);
  tell_stray_lines(input, add);
  tell_settings(input, add);
  Consequences consequences(context);
  find_faults(input.data(), input.schema(), validation_options(options), [&](const Fault& fault) {
    const bool is_told = (start && is_about_missing_header(fault)) ||
                         is_cut_specification(fault, input) || consequences.cover(fault);
    if (!is_told && !is_about_comment(fault, input)) {
      Draft draft(fault, context);
      complete(draft);
      add(draft.diagnostic);
    }
  });
  std::vector<TextRange> told;
  const auto add_name = [&](const Diagnostic& found) {
    told.push_back(found.range.value_or(TextRange{}));
    add(found);
  };
  if (!start) {
    find_header_words(context, options, add_name);
  }
  find_module_names(context, options, add_name);
  find_surplus_words(context, add);
  find_atom_lines(context, add);
  if (options.advice && is_certain) {
    std::vector<Diagnostic> advice;
    advise(input, options.folder ? &*options.folder : nullptr, [&](const Diagnostic& found) {
      causes.note_list(found);
      advice.push_back(found);
    });
    for (const Diagnostic& found : advice) {
      const bool is_left_out =
          is_about_unlisted_name(found.code) &&
          (options.unknown == UnknownNames::Ignore || is_within(told, found.range));
      if (!is_left_out && !causes.explain(found)) {
        add(causes.settled(found));
      }
    }
  }
  in_order.finish();
}

std::string concise_text(const Diagnostic& diagnostic, const SourceText& source,
                         std::string_view file) {
  using core::unicode::displayable;
  const TextPosition start =
      diagnostic.range ? source.position(diagnostic.range->begin) : TextPosition{};
  std::string text = displayable(file);
  text += ':' + std::to_string(start.line) + ':' + std::to_string(start.column) + ": ";
  text += to_string(diagnostic.severity);
  text += ": " + displayable(core::unicode::abridged(diagnostic.message));
  return text + " [" + diagnostic.code + ']';
}

}  // namespace kelp::input::bdf
