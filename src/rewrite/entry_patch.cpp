// Entries and their children are matched like statements; those that stay are patched by their
// values.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "kelp/core/text.hpp"
#include "model/molecule_names.hpp"
#include "model/value_lines.hpp"
#include "rewrite/document_patch.hpp"
#include "rewrite/new_records.hpp"
#include "rewrite/value_patch.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);

std::size_t line_of(const std::optional<SourceSpan>& location) {
  return location ? static_cast<std::size_t>(location->line) : 0;
}

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

class EntryPatch {
 public:
  EntryPatch(const ParsedInput& input, const PatchOptions& options, TextPatch& patch)
      : input_(input), options_(options), patch_(patch) {}

  void run(std::size_t index, const std::vector<ModuleEntry>& entries) {
    patch_entries(input_.data().modules[index].entries, entries,
                  input_.first_line(RecordId::of_module(index)),
                  [index](std::size_t entry) { return RecordId::of_entry(index, entry); });
  }

 private:
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
        const std::size_t first = line_of(old_entries[i].location);
        patch_.remove_lines(
            options_.takes_comments ? first_line_with_comments(input_, first) : first,
            last_telling_line(id_of(i)));
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
    while (last > first && says_no_value(last)) {
      --last;
    }
    return last;
  }

  bool says_no_value(std::size_t line) const {
    const LineRole role = input_.line(line).role;
    return role == LineRole::Comment ||
           (role == LineRole::Value && clean_value_line(input_.source().line(line)).empty());
  }

  void insert_entry(const ModuleEntry& entry, std::size_t behind, const RecordId& near) {
    Indentation indentation = indentation_near(input_, near.index, near.entry + 1);
    if (near.kind == RecordKind::Child) {
      indentation = indentation_of_children(near);
    }
    patch_.insert_lines(behind, lines_of(entry, indentation));
  }

  Indentation indentation_of_children(const RecordId& child) const {
    const std::size_t line = input_.first_line(child);
    if (line == 0) {
      const Indentation around = indentation_near(input_, child.index, child.entry + 1);
      return {around.keyword + "  ", around.keyword + "    "};
    }
    const std::string keyword = indentation_of_line(input_, line);
    const ModuleEntry* const record = entry_or_child(input_.data(), child);
    const bool shows_value =
        record != nullptr && !record->values.empty() && input_.value_line(child, 0) != line;
    return {keyword, shows_value ? indentation_of_line(input_, input_.value_line(child, 0))
                                 : keyword + "  "};
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
  const PatchOptions& options_;
  TextPatch& patch_;
};

bool is_in_block(const ParsedInput& input, const LineInfo& info) {
  const ModuleEntry* const entry = entry_or_child(input.data(), info.record);
  return info.role == LineRole::Value && entry != nullptr &&
         entry->kind == EntryValueKind::TerminatedBlock;
}

// A comment of its own in a module, between modules, or swallowed by the values above.
bool is_comment(const ParsedInput& input, std::size_t line) {
  const LineInfo info = input.line(line);
  const TextRange content = input.source().content(line);
  if (content.empty() || info.record.kind == RecordKind::LeadingLine || is_in_block(input, info)) {
    return false;
  }
  const bool has_hash = input.source().text()[content.begin] == '#';
  return info.role == LineRole::Comment || (info.role == LineRole::Value && has_hash);
}

}  // namespace

void patch_entries(const ParsedInput& input, std::size_t module,
                   const std::vector<ModuleEntry>& entries, const PatchOptions& options,
                   TextPatch& patch) {
  EntryPatch(input, options, patch).run(module, entries);
}

std::size_t first_line_with_comments(const ParsedInput& input, std::size_t line) {
  while (line > 1 && is_comment(input, line - 1)) {
    --line;
  }
  return line;
}

}  // namespace kelp::input::bdf
