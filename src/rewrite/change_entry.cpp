// Entries that are there already, and what the lines of an input say beside
// what is read of them. An entry whose line holds more than its value, or whose value goes on below
// it, would lose the rest or be contradicted by it; one that is there in a form that is not read
// would get a second one beside it.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "model/from_schema.hpp"
#include "model/same_value.hpp"
#include "model/value_lines.hpp"
#include "rewrite/edit_parts.hpp"
#include "source/lines.hpp"
#include "validate/value_check.hpp"

namespace kelp::input::bdf {
namespace {

using Texts = std::vector<std::string>;

std::string line_number(const std::optional<SourceSpan>& location) {
  return "line " + std::to_string(location ? location->line : 0);
}

std::string_view behind_first_word(const ModuleEntry& entry) {
  std::string_view rest = without_comment(entry.raw_line);
  core::text::take_word(rest);
  return core::text::trim_view(rest);
}

bool tells_nothing(const ModuleEntry& entry) {
  return !entry.known && (is_blank(entry.raw_line) || is_remark(entry.raw_line));
}

// The entry of nobody that follows an entry.
const ModuleEntry* find_unknown_behind(const std::vector<ModuleEntry>& entries,
                                       const ModuleEntry& entry) {
  const auto first = entries.begin() + (&entry - entries.data()) + 1;
  const auto next = std::find_if_not(first, entries.end(), tells_nothing);
  return next == entries.end() || next->known || !next->location ? nullptr : &*next;
}

bool takes_words_one_by_one(const EntrySchemaInfo& info) {
  const bool is_number =
      info.value_type == "integer" || info.value_type == "float" || info.value_type == "number";
  return (info.kind == EntryValueKind::Scalar || info.kind == EntryValueKind::Tuple) &&
         (is_number || !info.allowed.empty());
}

bool says_more(const ModuleEntry& entry, const EntrySchemaInfo& info) {
  const auto lines = cleaned_lines(entry);
  if (lines.empty() || info.kind == EntryValueKind::TerminatedBlock) {
    return false;
  }
  std::vector<std::string_view> fields;
  split_value_tokens(lines.front(), fields);
  if (is_shell_line(lines.front()) || (!fields.empty() && is_module_end(fields.back()))) {
    return true;
  }
  // What stands behind the keyword is no value where one follows.
  const std::string_view rest = behind_first_word(entry);
  if (takes_words_one_by_one(info) && !rest.empty() && rest != lines.front()) {
    return true;
  }
  // A value of several words is one: `ultra fine`.
  if (lines_match(lines, info)) {
    return false;
  }
  const auto most = info.kind == EntryValueKind::Scalar ? std::optional<std::uint64_t>(1)
                    : info.arity                        ? info.arity
                                                        : info.max_arity;
  return takes_words_one_by_one(info) && most && fields.size() > *most;
}

Problem find_surplus_of_known(const std::vector<ModuleEntry>& entries, const ModuleEntry& entry,
                              const ValuePath& path, const std::optional<EntrySchemaInfo>& info) {
  if (!info) {
    return {};
  }
  if (says_more(entry, *info)) {
    return refusal(path, "'" + std::string(cleaned_lines(entry).front()) + "', behind " +
                             line_number(entry.location) +
                             ", is more than its value; mend that first (--force replaces it)");
  }
  const ModuleEntry* const next = find_unknown_behind(entries, entry);
  if (next == nullptr || entry.values.empty() || !takes_words_one_by_one(*info) ||
      !core::number::parse_float(first_word(next->raw_line))) {
    return {};
  }
  return refusal(path, "'" + core::text::trim(next->raw_line) + "' on " +
                           line_number(next->location) +
                           " seems to be of its value, too; mend that first (--force leaves it)");
}

Problem find_surplus_of_unknown(const std::vector<ModuleEntry>& entries, const ModuleEntry& entry,
                                const ValuePath& path) {
  const std::string unknown = "the vocabulary does not know it, and its value '";
  if (const std::string_view rest = behind_first_word(entry); !rest.empty()) {
    return refusal(path, unknown + std::string(rest) + "' stands on its own line, " +
                             line_number(entry.location) + "; change it there");
  }
  const ModuleEntry* const next = find_unknown_behind(entries, entry);
  if (next == nullptr || !cleaned_lines(entry).empty()) {
    return {};
  }
  return refusal(path, unknown + core::text::trim(next->raw_line) + "', if it is one, on " +
                           line_number(next->location) + " is not read with it; change it there");
}

// The name that a line begins with, whatever is glued to it: `maxiter=50`, `maxiter:`.
std::string_view glued_name(std::string_view line) {
  const auto is_of_name = [](char byte) {
    const char lower = core::text::to_lower(byte);
    return (lower >= 'a' && lower <= 'z') || (byte >= '0' && byte <= '9') || byte == '_' ||
           byte == '-' || byte == '+';
  };
  const auto is_ascii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80U; };
  std::string_view text = core::text::trim_view(line);
  while (!text.empty() && !is_ascii(text.front())) {
    text.remove_prefix(1);
  }
  const auto end = std::find_if_not(text.begin(), text.end(), is_of_name);
  return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

Problem find_surplus(const std::vector<ModuleEntry>& entries, const ModuleEntry& entry,
                     const ValuePath& path, const std::optional<EntrySchemaInfo>& info) {
  return entry.known ? find_surplus_of_known(entries, entry, path, info)
                     : find_surplus_of_unknown(entries, entry, path);
}

const std::vector<ModuleEntry>& siblings_of(const EditContext& context, const RecordId& record) {
  const Module& module = context.data.modules[record.index];
  return record.kind == RecordKind::Child ? module.entries[record.entry].children : module.entries;
}

// Which of several BDF reads is not told, so all of them say the same afterwards.
void put_in_all(EditContext& context, const RecordId& first, const ValuePath& path,
                const Texts& values) {
  const auto info = description_of(context.schema(), path);
  Module& module = context.data.modules[first.index];
  std::vector<ModuleEntry>& entries =
      first.kind == RecordKind::Child ? module.entries[first.entry].children : module.entries;
  const ModuleEntry& found = *record_at(context, first);
  std::size_t count = 0;
  for (ModuleEntry& entry : entries) {
    if (&entry == &found ||
        (entry.known && entry.name == found.name && info && !info->repeatable)) {
      put_values(entry, values);
      ++count;
    }
  }
  if (count > 1) {
    context.notes.push_back("'" + to_string(path) + "' is there " + std::to_string(count) +
                            " times; all of them are changed");
  }
}

}  // namespace

ModuleEntry* record_at(EditContext& context, const RecordId& record) {
  if (record.kind != RecordKind::Entry && record.kind != RecordKind::Child) {
    return nullptr;
  }
  ModuleEntry& entry = context.data.modules[record.index].entries[record.entry];
  return record.kind == RecordKind::Child ? &entry.children[record.child] : &entry;
}

std::optional<EntrySchemaInfo> description_of(const InputSchema& schema, const ValuePath& path) {
  return path.kind == PathKind::Child ? schema.nested_entry_info(path.module, path.name, path.child)
                                      : schema.entry_info(path.module, path.name);
}

bool is_said_already(const std::vector<ModuleEntry>& entries, const ModuleEntry& entry,
                     const Texts& values) {
  if (same_values(entry.values, values)) {
    return true;
  }
  if (entry.known || values.size() != 1 || !cleaned_lines(entry).empty()) {
    return false;
  }
  const std::string_view rest = behind_first_word(entry);
  const ModuleEntry* const next = find_unknown_behind(entries, entry);
  const std::string_view line =
      !rest.empty() || next == nullptr ? rest : without_comment(next->raw_line);
  return same_value_line(line, values.front());
}

Problem find_misread_entry(const EditContext& context, const Module& module,
                           const ValuePath& path) {
  const InputSchema& schema = context.schema();
  const std::string wanted = schema.canonical_entry(path.module, path.name);
  for (const ModuleEntry& entry : module.entries) {
    const std::string_view name = glued_name(entry.raw_line);
    if (!entry.known && entry.location && !name.empty() && name != entry.raw_line &&
        schema.canonical_entry(path.module, name) == wanted) {
      return refusal(path, "there is none, but '" + core::text::trim(entry.raw_line) + "' on " +
                               line_number(entry.location) +
                               " is likely to be meant; mend that first (--force adds one)");
    }
  }
  return {};
}

Problem change_entry(EditContext& context, const RecordId& record, const Assignment& assignment) {
  const ValuePath& path = assignment.path;
  const ModuleEntry& entry = *record_at(context, record);
  const std::vector<ModuleEntry>& siblings = siblings_of(context, record);
  const bool is_forced = context.edit.allow_unknown_names;
  if (!entry.known && is_said_already(siblings, entry, assignment.values)) {
    return {};
  }
  if (!is_forced && !is_said_already(siblings, entry, assignment.values)) {
    Problem problem = find_surplus(siblings, entry, path, description_of(context.schema(), path));
    if (!problem.empty()) {
      return problem;
    }
  }
  put_in_all(context, record, path, assignment.values);
  return {};
}

}  // namespace kelp::input::bdf
