#pragma once

#include <string_view>

#include "kelp/input/bdf/document.hpp"
#include "schema/lookup.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {

/// Tells whether an entry, which may be null, is the keyword `title`, whose value is one text.
bool takes_title(const EntrySpec* entry);

/// The keywords that start an entry at some place: those of a module, or those of a nested block.
/// Null stands for a module or block that the schema does not know.
class Keywords {
 public:
  explicit Keywords(const ModuleSpec* module) : module_(module) {}
  explicit Keywords(const EntrySpec* block) : block_(block) {}

  /// Returns what the first word of a line leads to; no entry where it is no such keyword.
  KnownName<EntrySpec> find_word(std::string_view word) const {
    if (word.empty()) {
      return {};
    }
    return module_ != nullptr ? find_known_entry(module_, word) : find_known_child(block_, word);
  }
  /// Tells whether the first word of a line is such a keyword.
  bool have(std::string_view word) const { return find_word(word).entry != nullptr; }
  /// Tells whether a line's first word is such a keyword.
  bool start(std::string_view line) const { return have(first_word(line)); }
  /// Tells whether an entry has all the fields that the schema gives it a number of.
  bool are_fields_complete(const ModuleEntry& entry) const;
  /// Tells whether a line is one word that is nearly such a keyword, and none of the values that
  /// the schema names for an entry.
  bool may_be_misspelt(std::string_view line, const ModuleEntry& entry) const;
  /// Tells whether what stands behind an entry's keyword is its value although the line `next`
  /// could be one: numbers behind the keyword of an entry that takes numbers, and a word on the
  /// next line.
  bool has_numbers_behind(const ModuleEntry& entry, std::string_view rest,
                          std::string_view next) const;
  /// Tells whether an entry is the keyword `title`.
  bool has_titles(std::string_view entry) const { return takes_title(find(entry)); }
  /// Tells whether a line behind the keyword `title` is the title although its first word is a
  /// keyword: what stands behind the word cannot belong to it. `next` is the line that follows.
  bool is_title(std::string_view entry, std::string_view line, std::string_view next) const;
  /// Tells whether a line closes the nested block that the keywords are those of.
  bool end(std::string_view line) const {
    return block_ != nullptr && !is_blank(line) && is_same_line(line, block_->terminator);
  }

 private:
  /// Returns what the schema says of an entry with one of the keywords, or null.
  const EntrySpec* find(std::string_view name) const {
    return module_ != nullptr ? find_entry_spec(module_, name) : find_child_spec(block_, name);
  }

  const ModuleSpec* module_ = nullptr;
  const EntrySpec* block_ = nullptr;
};

}  // namespace kelp::input::bdf
