// What there is to say of each finding beside its message: the words at fault, what is wrong about
// them, what to do.

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "diagnose/certain_names.hpp"
#include "diagnose/draft.hpp"
#include "diagnose/offers.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "kelp/core/unicode.hpp"
#include "source/lines.hpp"
#include "validate/value_check.hpp"

namespace kelp::input::bdf {
namespace {

// -- the header and the geometry

void complete_header_value(Draft& draft) {
  const std::size_t index = draft.fault.record.index;
  const EasyToken& token = draft.input.data().easy_tokens[index];
  const TextRange value = draft.input.token_ranges(index).value;
  draft.mark(value);
  const auto info = draft.input.schema().easy_keyword_info(token.key);
  if (info) {
    draft.suggest(similar_names(token.value, info->allowed), "value", "values", value, false);
  }
  draft.expect(info);
}

void complete_missing_method(Draft& draft) {
  const std::size_t line = draft.input.first_line(RecordId::of(RecordKind::EasyToken, 0));
  if (line != 0) {
    draft.mark(draft.statement_on(line), "no method, functional or basis here");
  }
  draft.help("write for example 'B3LYP/def2-SVP' on the first line");
}

void complete_missing_geometry(Draft& draft) {
  draft.mark_word("no atom follows");
  draft.help("put the atoms between a line 'Geometry' and a line 'End Geometry'");
}

// Marks the last line of what has no end, behind which the end is missing.
void mark_missing_end(Draft& draft, std::size_t last, const std::string& end) {
  while (last > draft.line && draft.statement_on(last).empty()) {
    --last;
  }
  draft.mark(draft.statement_on(last), "'" + end + "' is missing behind this");
  if (last != draft.line) {
    draft.relate(draft.fault.record, "begins here");
  }
  draft.help("add a line '" + end + "' behind it");
  draft.fix_by_line(end, last);
}

// The atoms in a row are what is meant.
void complete_unterminated_geometry(Draft& draft) {
  std::size_t last = draft.input.first_line(RecordId::of(RecordKind::Atom, 0));
  while (last != 0 && draft.input.line(last + 1).role == LineRole::Atom) {
    ++last;
  }
  mark_missing_end(draft, last == 0 ? draft.input.last_line(draft.fault.record) : last,
                   "End Geometry");
}

// -- names that the schema does not know

void complete_unknown_module(Draft& draft) {
  const TextRange word = draft.input.keyword_range(draft.fault.record);
  const TextRange behind = draft.input.behind_keyword(draft.fault.record);
  const std::string name(draft.source.text_of(word));
  if (!behind.empty() && draft.input.schema().is_known_module(name)) {
    const std::string_view text = draft.source.text_of(behind);
    draft.mark(behind, "taken as part of the name");
    draft.help("only '" + name + "' and a comment may stand on this line");
    const bool is_comment = text.front() == '*';
    std::string line(draft.line_end());
    line.append(is_comment ? "" : "# ").append(text);
    draft.fix("put it on a line of its own, as a comment", {word.end, behind.end}, std::move(line),
              is_comment);
    return;
  }
  const TextRange header = draft.statement_on(draft.line);
  draft.mark(header, "not a module");
  auto names = similar_names(draft.module->name, draft.context.names().modules());
  const std::string& name_of_module = draft.module->name;
  const bool is_certain = names.size() == 1 && is_certain_slip(name_of_module, names.front()) &&
                          draft.context.names().modules_with_entry(name_of_module).empty();
  draft.suggest(std::move(names), "module", "modules",
                {std::min(header.begin + 1, header.end), header.end}, is_certain);
}

// "charge=1" in a module, as one would write it in the header.
bool explain_header_form(Draft& draft) {
  const InputSchema& schema = draft.input.schema();
  const std::string& module = draft.module->name;
  const std::string_view word = draft.entry->name;
  const std::size_t equals = word.find('=');
  if (equals == std::string_view::npos || !schema.is_known_entry(module, word.substr(0, equals))) {
    return false;
  }
  const std::string name = schema.canonical_entry(module, word.substr(0, equals));
  draft.help("write '" + name + "' and on the next line its value");
  const TextRange range = draft.input.keyword_range(draft.fault.record);
  const std::string_view written = draft.source.text_of(range);
  if (equals + 1 < written.size()) {
    draft.fix(
        "write the value on the next line", range,
        name + std::string(draft.line_end()) + "  " + std::string(written.substr(equals + 1)));
  }
  return true;
}

bool explain_number(Draft& draft) {
  if (!core::number::parse_float(draft.entry->name)) {
    return false;
  }
  draft.help("no keyword above takes this line as a value");
  return true;
}

bool name_other_modules(Draft& draft) {
  std::vector<std::string> others = draft.context.names().modules_with_entry(draft.entry->name);
  for (std::string& other : others) {
    other.insert(0, "$");
  }
  if (!others.empty()) {
    draft.help("it is an entry of " + quoted_choice(others));
  }
  return !others.empty();
}

// A value before its keyword, or without one.
bool explain_value(Draft& draft) {
  if (!draft.context.is_listed_value(draft.entry->name)) {
    return false;
  }
  draft.help("it is a value, which stands behind its keyword");
  return true;
}

// "istore2"
bool explain_glued_number(Draft& draft, const std::optional<EntrySchemaInfo>& info,
                          const GluedNumber& glued, const std::vector<ModuleEntry>& siblings,
                          const ModuleEntry& entry) {
  if (!info || info->kind == EntryValueKind::Flag || !lines_match({glued.number}, *info)) {
    return false;
  }
  const std::string keyword(glued.keyword);
  draft.help("write '" + keyword + "' and on the next line its value");
  draft.diagnostic.suggestions = {keyword};
  const auto behind = value_behind(siblings, entry);
  const bool has_value = !behind.empty() && core::number::parse_float(first_word(behind.front()));
  const bool is_alone = behind.empty() || draft.statement_on(draft.line) == *draft.diagnostic.range;
  draft.fix("write the value on the next line", draft.diagnostic.range.value_or(TextRange{}),
            keyword + std::string(draft.line_end()) + "  " + std::string(glued.number),
            is_alone && !has_value);
  return true;
}

// A line that is none of an entry's can be a title, or a row of a block whose first line is
// missing.
bool is_slip_of_entry(const Draft& draft) {
  const TextRange word = draft.diagnostic.range.value_or(TextRange{});
  const TextRange statement = draft.statement_on(draft.line);
  const std::string_view tail =
      core::text::trim_view(draft.source.text_of({word.end, std::max(word.end, statement.end)}));
  return can_be_slip(draft.source.text_of(word)) &&
         tail.find_first_not_of("0123456789+-.eEdD ") == std::string_view::npos;
}

void complete_unknown_entry(Draft& draft) {
  const std::string& module = draft.module->name;
  draft.mark_word("not an entry of $" + core::unicode::abridged(module));
  if (!draft.input.schema().is_known_module(module) || explain_header_form(draft) ||
      explain_number(draft)) {
    return;
  }
  const InputSchema& schema = draft.input.schema();
  const std::string_view word = draft.source.text_of(*draft.diagnostic.range);
  const auto glued = glued_number(word);
  if (glued && explain_glued_number(draft, schema.entry_info(module, std::string(glued->keyword)),
                                    *glued, draft.module->entries, *draft.entry)) {
    return;
  }
  if (name_other_modules(draft) || explain_value(draft)) {
    return;
  }
  auto names = similar_names(draft.entry->name, draft.context.names().entries(module));
  const bool is_certain = names.size() == 1 && is_certain_slip(word, names.front()) &&
                          is_slip_of_entry(draft) &&
                          takes_value(*schema.entry_info(module, names.front()),
                                      value_behind(draft.module->entries, *draft.entry));
  draft.suggest(std::move(names), "entry", "entries", *draft.diagnostic.range, is_certain);
}

void complete_unknown_nested_entry(Draft& draft) {
  const std::string& module = draft.module->name;
  const std::string& block = draft.entry->name;
  draft.mark_word("not an entry of the block '" + block + "'");
  const TextRange range = draft.diagnostic.range.value_or(TextRange{});
  auto names =
      similar_names(draft.child->name, draft.context.names().nested_entries(module, block));
  const bool is_certain =
      names.size() == 1 && is_certain_slip(draft.source.text_of(range), names.front()) &&
      is_slip_of_entry(draft) &&
      takes_value(*draft.input.schema().nested_entry_info(module, block, names.front()),
                  value_behind(draft.entry->children, *draft.child));
  draft.suggest(std::move(names), "entry", "entries", range, is_certain);
}

// -- how modules, entries and blocks stand together

void complete_unterminated_module(Draft& draft) {
  mark_missing_end(draft, draft.input.last_line(draft.fault.record), "$end");
}

void complete_unterminated_block(Draft& draft) {
  const ModuleEntry& record = draft.child == nullptr ? *draft.entry : *draft.child;
  if (record.terminator.empty()) {
    draft.mark_word("begins here");
  } else {
    mark_missing_end(draft, draft.input.last_line(draft.fault.record), record.terminator);
  }
}

void complete_repetition(Draft& draft) {
  const std::size_t first = draft.input.first_line(draft.fault.related);
  draft.mark_word("first given on line " + std::to_string(first));
  draft.relate(draft.fault.related, "first given here");
}

void complete_conflict(Draft& draft) {
  const std::size_t other = draft.input.first_line(draft.fault.related);
  draft.mark_word("not beside line " + std::to_string(other));
  draft.relate(draft.fault.related, "conflicts with this");
}

// -- values

void complete_missing_value(Draft& draft) {
  const TextRange word = draft.input.keyword_range(draft.fault.record);
  const TextRange behind = draft.input.behind_keyword(draft.fault.record);
  if (behind.empty()) {
    draft.mark(word, "no value follows");
    draft.expect(draft.description());
    return;
  }
  // Of an entry that is no block, this would have been read as the value.
  draft.mark(behind, "not read here");
  draft.help("write it on the next line; what stands behind the keyword of a block is not read");
  draft.fix("write it on the next line", {word.end, behind.begin},
            std::string(draft.line_end()) + "  ");
}

void complete_invalid_value(Draft& draft) {
  const ValueFault& fault = *draft.fault.value;
  const auto info = draft.description();
  if (!fault.line) {
    draft.mark_word();
  } else {
    const std::size_t begin = draft.input.value_range(draft.fault.record, *fault.line).begin;
    const TextRange range = {begin + fault.begin, begin + fault.end};
    draft.mark(range);
    if (info) {
      draft.suggest(similar_names(draft.source.text_of(range), info->allowed), "value", "values",
                    range, false);
    }
  }
  draft.expect(info);
}

}  // namespace

void complete(Draft& draft) {
  switch (draft.fault.id) {
    case IssueId::InvalidEasyValue:
      return complete_header_value(draft);
    case IssueId::MissingMethod:
      return complete_missing_method(draft);
    case IssueId::MissingGeometry:
      return complete_missing_geometry(draft);
    case IssueId::UnterminatedGeometry:
      return complete_unterminated_geometry(draft);
    case IssueId::UnknownModule:
    case IssueId::UnknownModuleKept:
      return complete_unknown_module(draft);
    case IssueId::UnterminatedModule:
      return complete_unterminated_module(draft);
    case IssueId::UnknownEntry:
    case IssueId::UnknownEntryKept:
      return complete_unknown_entry(draft);
    case IssueId::UnknownNestedEntry:
    case IssueId::UnknownNestedEntryKept:
      return complete_unknown_nested_entry(draft);
    case IssueId::MissingRequiredEntry:
    case IssueId::MissingRequiredValue:
    case IssueId::MissingRequiredNestedEntry:
    case IssueId::MissingRequiredNestedValue:
      return draft.mark_word();
    case IssueId::ConflictingEntries:
    case IssueId::ConflictingNestedEntries:
      return complete_conflict(draft);
    case IssueId::DuplicateEntry:
    case IssueId::DuplicateModule:
    case IssueId::DuplicateNestedEntry:
      return complete_repetition(draft);
    case IssueId::MissingEntryValue:
      return complete_missing_value(draft);
    case IssueId::UnterminatedEntryBlock:
      return complete_unterminated_block(draft);
    case IssueId::InvalidModuleValue:
      return complete_invalid_value(draft);
  }
}

}  // namespace kelp::input::bdf
