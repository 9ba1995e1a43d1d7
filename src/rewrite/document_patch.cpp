// Records are matched by the line that they were read from. What is matched and equal is not looked
// at any closer; what is matched and differs is patched on its own lines; what has no match is
// written behind the match before it, or taken out with its lines. A record that was moved is one
// that goes here and comes there.

#include "rewrite/document_patch.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "kelp/core/text.hpp"
#include "model/molecule_names.hpp"
#include "model/value_lines.hpp"
#include "rewrite/value_patch.hpp"

namespace kelp::input::bdf {
namespace {

using Lines = std::vector<std::string>;

constexpr std::size_t none = static_cast<std::size_t>(-1);

std::size_t line_of(const std::optional<SourceSpan>& location) {
  return location ? static_cast<std::size_t>(location->line) : 0;
}

/// Appends the lines of new records.
class NewLines {
 public:
  explicit NewLines(Indentation indentation) : indentation_(std::move(indentation)) {}

  void add(const Module& module, const std::string& indentation) {
    lines_.push_back(module.known || module.header_line.empty() ? indentation + "$" + module.name
                                                                : module.header_line);
    for (const ModuleEntry& entry : module.entries) {
      add(entry, indentation_);
    }
    lines_.insert(lines_.end(), module.trailing_lines.begin(), module.trailing_lines.end());
    lines_.push_back(module.known || module.end_line.empty() ? indentation + "$end"
                                                             : module.end_line);
  }

  void add(const ModuleEntry& entry) { add(entry, indentation_); }
  Lines take() { return std::move(lines_); }

 private:
  void add(const ModuleEntry& entry, const Indentation& indentation) {
    if (!entry.known || entry.kind == EntryValueKind::Raw) {
      if (!entry.raw_line.empty()) {
        lines_.push_back(entry.raw_line);
      }
      lines_.insert(lines_.end(), entry.values.begin(), entry.values.end());
      return;
    }
    lines_.push_back(indentation.keyword + entry.name);
    for (const std::string& value : entry.values) {
      const std::string_view text = core::text::trim_view(value);
      lines_.push_back(text.empty() ? std::string() : indentation.value + std::string(text));
    }
    for (const ModuleEntry& child : entry.children) {
      add(child, {indentation.keyword + "  ", indentation.keyword + "    "});
    }
    if (!entry.terminator.empty()) {
      lines_.push_back(indentation.keyword + entry.terminator);
    }
  }

  Indentation indentation_;
  Lines lines_;
};

/// Returns for each of the new records the index of the old one that it is, `none` for one that is
/// new or was moved upwards.
template <typename Records, typename IndexOfLine>
std::vector<std::size_t> match(const Records& edited, IndexOfLine index_of_line) {
  std::vector<std::size_t> matches;
  matches.reserve(edited.size());
  std::size_t next = 0;
  for (const auto& record : edited) {
    const std::size_t index = index_of_line(line_of(record.location));
    const bool in_order = index != none && index >= next;
    matches.push_back(in_order ? index : none);
    next = in_order ? index + 1 : next;
  }
  return matches;
}

class DocumentPatch {
 public:
  DocumentPatch(const ParsedInput& input, const BDFData& edited, const PatchOptions& options,
                TextPatch& patch)
      : input_(input), old_(input.data()), new_(edited), options_(options), patch_(patch) {}

  void run() {
    patch_header(input_, new_, patch_);
    if (!options_.leaves_out_geometries) {
      patch_geometry(input_, new_, patch_);
    }
    patch_statements();
  }

 private:
  // --- statements and modules

  std::size_t first_line(const Statement& statement) const { return line_of(statement.location); }

  std::size_t last_line(std::size_t statement) const {
    const Statement& old = old_.statements[statement];
    return input_.last_line(old.kind == StatementKind::Module
                                ? RecordId::of_module(old.module_index)
                                : RecordId::of(RecordKind::Statement, statement));
  }

  // Statements stand in the order of their lines.
  std::size_t statement_at(std::size_t line) const {
    const auto found = std::lower_bound(old_.statements.begin(), old_.statements.end(), line,
                                        [&](const Statement& statement, std::size_t wanted) {
                                          return first_line(statement) < wanted;
                                        });
    return found == old_.statements.end() || first_line(*found) != line
               ? none
               : static_cast<std::size_t>(found - old_.statements.begin());
  }

  // A module may have been given another statement, but it keeps its own location.
  std::size_t statement_of(const Statement& statement) const {
    if (statement.kind != StatementKind::Module) {
      return statement_at(first_line(statement));
    }
    return statement.module_index < new_.modules.size()
               ? statement_at(line_of(new_.modules[statement.module_index].location))
               : none;
  }

  void patch_statements() {
    std::vector<bool> kept(old_.statements.size(), false);
    std::size_t next = 0;
    std::size_t behind = first_insertion_line();
    for (const Statement& statement : new_.statements) {
      const std::size_t match = statement_of(statement);
      if (match == none || match < next || old_.statements[match].kind != statement.kind) {
        insert_statement(statement, behind);
        continue;
      }
      kept[match] = true;
      next = match + 1;
      behind = last_line(match);
      if (statement.kind == StatementKind::Module) {
        patch_module(old_.statements[match].module_index, new_.modules[statement.module_index]);
      } else if (statement.lines != old_.statements[match].lines) {
        patch_.remove_lines(first_line(old_.statements[match]), behind);
        patch_.insert_lines(behind, statement.lines);
      }
    }
    for (std::size_t i = 0; i < kept.size(); ++i) {
      if (kept[i]) {
        continue;
      }
      if (old_.statements[i].kind == StatementKind::Module) {
        remove_module(first_line(old_.statements[i]), last_line(i));
      } else {
        remove_lines(first_line(old_.statements[i]), last_line(i));
      }
    }
  }

  std::size_t first_insertion_line() const {
    const std::size_t easy = last_line_of_easy_section(input_);
    if (easy > 0 || old_.statements.empty()) {
      return easy > 0 ? easy : input_.source().line_count();
    }
    return first_line(old_.statements.front()) - 1;
  }

  void insert_statement(const Statement& statement, std::size_t behind) {
    if (statement.kind != StatementKind::Module) {
      patch_.insert_lines(behind, statement.lines);
      return;
    }
    if (statement.module_index >= new_.modules.size()) {
      return;
    }
    const std::size_t before = module_before(behind);
    NewLines lines(indentation_near(input_, before, none));
    lines.add(new_.modules[statement.module_index], indentation_of_module(before));
    Lines text = lines.take();
    const bool follows_new = inserted_behind_ == behind;
    const bool follows_text = behind > 0 && !input_.source().content(behind).empty();
    if (follows_new ? !is_set_apart_ : follows_text) {
      text.insert(text.begin(), std::string());
    }
    inserted_behind_ = behind;
    is_set_apart_ = before == old_.modules.size() && is_followed_by_module(behind);
    if (is_set_apart_) {
      text.emplace_back();
    }
    patch_.insert_lines(behind, text);
  }

  // In front of the first module there is no telling how the others are set apart.
  bool is_followed_by_module(std::size_t line) const {
    const LineRole role = input_.line(line + 1).role;
    return role == LineRole::ModuleHeader || role == LineRole::Comment;
  }

  // Modules within a wrapper are often indented.
  std::string indentation_of_module(std::size_t module) const {
    const std::size_t line = input_.first_line(RecordId::of_module(module));
    return line == 0 ? std::string() : indentation_of_line(line);
  }

  // The last module that begins before the end of a line, or the number of modules.
  std::size_t module_before(std::size_t line) const {
    std::size_t count = 0;
    while (count < old_.modules.size() && line_of(old_.modules[count].location) <= line) {
      ++count;
    }
    return count == 0 ? old_.modules.size() : count - 1;
  }

  // Of the empty lines around a module that goes, one is left, and none at the edge of the text.
  void remove_module(std::size_t first, std::size_t last) {
    while (options_.takes_comments && first > 1 && is_comment(first - 1)) {
      --first;
    }
    const std::size_t count = input_.source().line_count();
    const bool is_blank_below = last == count || is_blank(last + 1);
    if (first > 1 && is_blank(first - 1) && is_blank_below) {
      --first;
    } else if (first == 1 && last < count && is_blank_below) {
      ++last;
    }
    patch_.remove_lines(first, last);
  }

  bool is_blank(std::size_t line) const { return input_.source().content(line).empty(); }

  void remove_lines(std::size_t first, std::size_t last) {
    while (options_.takes_comments && first > 1 && is_comment(first - 1)) {
      --first;
    }
    patch_.remove_lines(first, last);
  }

  // A comment of its own in a module, between modules, or swallowed by the values above.
  bool is_comment(std::size_t line) const {
    const LineInfo info = input_.line(line);
    const bool may_be_one = info.role == LineRole::Comment || info.role == LineRole::Value;
    const TextRange content = input_.source().content(line);
    return may_be_one && info.record.kind != RecordKind::LeadingLine && !content.empty() &&
           input_.source().text()[content.begin] == '#' && !is_in_block(info);
  }

  bool is_in_block(const LineInfo& info) const {
    const ModuleEntry* const entry = entry_or_child(old_, info.record);
    return info.role == LineRole::Value && entry != nullptr &&
           entry->kind == EntryValueKind::TerminatedBlock;
  }

  // --- entries and children

  void patch_module(std::size_t index, const Module& module) {
    const Module& old = old_.modules[index];
    if (module.name != old.name) {
      patch_.replace(input_.keyword_range(RecordId::of_module(index)), "$" + module.name);
    }
    patch_entries(old.entries, module.entries, input_.first_line(RecordId::of_module(index)),
                  [index](std::size_t entry) { return RecordId::of_entry(index, entry); });
  }

  template <typename IdOf>
  void patch_entries(const std::vector<ModuleEntry>& old_entries,
                     const std::vector<ModuleEntry>& new_entries, std::size_t behind, IdOf id_of) {
    const std::vector<std::size_t> matches =
        match(new_entries, [&](std::size_t line) { return index_at(old_entries, line); });
    std::vector<bool> kept(old_entries.size(), false);
    std::size_t near = 0;
    for (std::size_t i = 0; i < new_entries.size(); ++i) {
      const std::size_t match = matches[i];
      if (match == none) {
        insert_entry(new_entries[i], behind, id_of(near));
        continue;
      }
      kept[match] = true;
      near = match;
      behind = last_telling_line(id_of(match));
      patch_entry(old_entries[match], new_entries[i], id_of(match));
    }
    for (std::size_t i = 0; i < kept.size(); ++i) {
      if (!kept[i]) {
        remove_lines(line_of(old_entries[i].location), last_telling_line(id_of(i)));
      }
    }
  }

  static std::size_t index_at(const std::vector<ModuleEntry>& entries, std::size_t line) {
    const auto found = std::lower_bound(entries.begin(), entries.end(), line,
                                        [](const ModuleEntry& entry, std::size_t wanted) {
                                          return line_of(entry.location) < wanted;
                                        });
    return line == 0 || found == entries.end() || line_of(found->location) != line
               ? none
               : static_cast<std::size_t>(found - entries.begin());
  }

  // Blank lines and comments behind the last value belong to what follows, though they were read
  // with the values.
  std::size_t last_telling_line(const RecordId& record) const {
    const std::size_t first = input_.first_line(record);
    std::size_t last = input_.last_line(record);
    while (last > first && input_.line(last).role == LineRole::Value &&
           clean_value_line(input_.source().line(last)).empty()) {
      --last;
    }
    return last;
  }

  void insert_entry(const ModuleEntry& entry, std::size_t behind, const RecordId& near) {
    Indentation indentation = indentation_near(input_, near.index, near.entry + 1);
    if (near.kind == RecordKind::Child) {
      indentation = indentation_of_children(near);
    }
    NewLines lines(std::move(indentation));
    lines.add(entry);
    patch_.insert_lines(behind, lines.take());
  }

  Indentation indentation_of_children(const RecordId& child) const {
    const std::size_t line = input_.first_line(child);
    if (line == 0) {
      const Indentation around = indentation_near(input_, child.index, child.entry + 1);
      return {around.keyword + "  ", around.keyword + "    "};
    }
    const std::string keyword = indentation_of_line(line);
    const ModuleEntry* const record = entry_or_child(old_, child);
    const bool shows_value =
        record != nullptr && !record->values.empty() && input_.value_line(child, 0) != line;
    return {keyword,
            shows_value ? indentation_of_line(input_.value_line(child, 0)) : keyword + "  "};
  }

  std::string indentation_of_line(std::size_t line) const {
    const SourceText& source = input_.source();
    return std::string(source.text_of({source.line_range(line).begin, source.content(line).begin}));
  }

  void patch_entry(const ModuleEntry& old, const ModuleEntry& edited, const RecordId& record) {
    if (old.kind == EntryValueKind::NestedBlock && old.known) {
      const std::size_t line = input_.first_line(record);
      patch_entries(old.children, edited.children, line, [&](std::size_t child) {
        return RecordId::of_child(record.index, record.entry, child);
      });
    }
    const bool is_left_out = options_.leaves_out_geometries && is_geometry_entry(old);
    if (!is_left_out && old.values != edited.values) {
      const Indentation indentation = record.kind == RecordKind::Child
                                          ? indentation_of_children(record)
                                          : indentation_near(input_, record.index, record.entry);
      patch_values(input_, record, edited.values, indentation.value, patch_);
    }
  }

  const ParsedInput& input_;
  const BDFData& old_;
  const BDFData& new_;
  const PatchOptions& options_;
  TextPatch& patch_;
  std::size_t inserted_behind_ = none;
  bool is_set_apart_ = false;  // an empty line follows what was inserted there
};

}  // namespace

void patch_document(const ParsedInput& input, const BDFData& edited, const PatchOptions& options,
                    TextPatch& patch) {
  DocumentPatch(input, edited, options, patch).run();
}

std::size_t last_line_of_easy_section(const ParsedInput& input) {
  const BDFData& data = input.data();
  std::size_t last = 0;
  if (data.geometry_location) {
    last = input.last_line(RecordId::of(RecordKind::Geometry, 0));
  } else if (!data.easy_tokens.empty()) {
    last = line_of(data.easy_tokens.back().location);
  }
  return last;
}

}  // namespace kelp::input::bdf
