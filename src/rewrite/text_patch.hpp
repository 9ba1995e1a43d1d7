#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/source.hpp"

namespace kelp::input::bdf {

/// Gathers the edits of a text, in any order, line by line or byte by byte.
class TextPatch {
 public:
  explicit TextPatch(const SourceText& source) : source_(source) {}

  /// Replaces the bytes of a range.
  void replace(const TextRange& range, std::string text);
  /// Inserts whole lines behind a line; behind line 0 is before the first. A text whose last line
  /// has no end gets none.
  void insert_lines(std::size_t behind, const std::vector<std::string>& lines);
  /// Takes lines out, the last one included; nothing when `last` is less than `first`.
  void remove_lines(std::size_t first, std::size_t last);

  /// Notes words of the text that go with what is changed though nobody asked for it; nothing when
  /// the range is empty.
  void lose(const TextRange& words);

  /// Returns the words lost, in the order of the text.
  std::vector<TextRange> lost() const;
  /// Returns all edits in the order of the text; those that touch become one.
  std::vector<TextEdit> finish();

 private:
  std::string_view line_end_at(std::size_t line) const;
  void keep_missing_line_end();

  const SourceText& source_;
  std::vector<TextEdit> edits_;
  std::vector<TextRange> lost_;
};

}  // namespace kelp::input::bdf
