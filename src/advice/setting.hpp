#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/parsed_input.hpp"

namespace kelp::input::bdf {

/// A word of the input's text, as a view into it: `range_of` tells where it stands.
using Word = std::string_view;

/// Returns where a word stands; it must be a view into the text of the input.
TextRange range_of(const ParsedInput& input, Word word);

/// Returns where the words of one line stand, from the first to the last; there is at least one.
TextRange range_of(const ParsedInput& input, const std::vector<Word>& row);

/// A keyword with its value, an entry of a module or a keyword of the header; or none. Whatever is
/// asked of one that is not there is empty. It lives as long as the input.
class Setting {
 public:
  /// Makes one that is not there.
  Setting() = default;
  /// Makes that of an entry or a child.
  Setting(const ParsedInput& input, const RecordId& record) : input_(&input), record_(record) {}
  /// Makes that of a header word; the value is made of these ranges.
  Setting(const ParsedInput& input, const RecordId& record, std::vector<TextRange> value)
      : input_(&input), record_(record), value_(std::move(value)) {}

  /// Tells whether it is there.
  explicit operator bool() const { return input_ != nullptr; }
  /// Returns its record; none when it is not there.
  const RecordId& record() const { return record_; }
  /// Returns the range of the keyword.
  TextRange keyword() const;
  /// Returns the range of the value, from its first to its last word; the keyword's without one.
  TextRange range() const;
  /// Returns the keyword as it is written.
  Word name() const;

  /// Returns the words of each line that has any; blanks and commas separate words.
  std::vector<std::vector<Word>> rows() const;
  /// Returns all words of the value.
  std::vector<Word> words() const;
  /// Returns the first line as a whole in lower case, without comment: "ultra coarse".
  std::string text() const;
  /// Tells whether the first line is a text, given in lower case.
  bool is(std::string_view wanted) const { return *this && text() == wanted; }
  /// Returns the value when it is one integer.
  std::optional<std::int64_t> integer() const;
  /// Returns the value when it is one number.
  std::optional<double> number() const;
  /// Returns the words as integers, unless one of them is none.
  std::optional<std::vector<std::int64_t>> integers() const;

 private:
  std::vector<TextRange> lines() const;
  /// Calls `use` with what each line says, until it returns false.
  template <typename Use>
  void for_each_line(Use use) const;
  /// Calls `use` with each word, until it returns false.
  template <typename Use>
  void for_each_word(Use use) const;
  /// Returns the word of a value that is one; empty for any other.
  std::string_view only_word() const;

  const ParsedInput* input_ = nullptr;
  RecordId record_;
  std::vector<TextRange> value_;
};

}  // namespace kelp::input::bdf
