#pragma once

/// @file
/// A text, its lines, and where in it things stand. Everything is counted in bytes; positions for
/// people and for editors are made from bytes when they are shown.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/export.hpp"

namespace kelp::input::bdf {

/// A range of bytes of a text, half open: `begin` is its first byte, `end` the one behind its last.
struct TextRange {
  std::size_t begin = 0;  ///< first byte, counted from 0
  std::size_t end = 0;    ///< byte behind the last one

  /// Tells whether no byte is in the range.
  bool empty() const { return begin >= end; }
  /// Returns the number of bytes.
  std::size_t size() const { return empty() ? 0 : end - begin; }
  /// Tells whether a byte is in the range.
  bool contains(std::size_t byte) const { return byte >= begin && byte < end; }
  /// Two ranges are equal when both of their ends are.
  friend bool operator==(const TextRange&, const TextRange&) = default;
};

/// A change of a text: the bytes of a range make way for other ones. An empty range inserts.
struct TextEdit {
  TextRange range;   ///< what goes, in the old text
  std::string text;  ///< what comes in its place

  /// Two edits are equal when range and text are.
  friend bool operator==(const TextEdit&, const TextEdit&) = default;
};

/// What a column counts.
enum class ColumnUnit : std::int32_t {
  Byte = 0,       ///< bytes
  CodePoint = 1,  ///< Unicode code points; a byte that is no UTF-8 counts as one
  Utf16 = 2,      ///< UTF-16 code units, as the language server protocol counts
};

/// A position in a text, for people.
struct TextPosition {
  std::size_t line = 1;    ///< line number, counted from 1
  std::size_t column = 1;  ///< counted from 1, in the unit that was asked for

  /// Two positions are equal when line and column are.
  friend bool operator==(const TextPosition&, const TextPosition&) = default;
};

/// A text cut into the lines that the parser counts: at each line feed; a carriage return before it
/// belongs to the line's end. A byte order mark before the first line belongs to no line.
/// Immutable; copies share the text, and any number of threads may ask one.
class KELP_BDF_INP_EXPORT SourceText {
 public:
  /// Makes an empty text.
  SourceText();
  /// Takes a text over.
  explicit SourceText(std::string text);
  SourceText(const SourceText& other);
  SourceText(SourceText&& other) noexcept;
  SourceText& operator=(const SourceText& other);
  SourceText& operator=(SourceText&& other) noexcept;
  ~SourceText();

  /// Returns the whole text. This and all views below live as long as this object or a copy.
  std::string_view text() const;
  /// Returns the bytes of a range; what lies beyond the text is left out.
  std::string_view text_of(const TextRange& range) const;

  /// Returns the number of lines. A line feed at the end of the text begins no further line.
  std::size_t line_count() const;
  /// Returns a line by its number, without its line end; empty when there is none of that number.
  std::string_view line(std::size_t number) const;
  /// Returns a line's end: `\n`, `\r\n`, or what the text's last line ends with, which is a `\r` or
  /// nothing.
  std::string_view line_end(std::size_t number) const;
  /// Returns the range of a line without its end; an empty one at the end of the text when there is
  /// no line of that number.
  TextRange line_range(std::size_t number) const;
  /// Returns the range of a line with its end.
  TextRange full_line_range(std::size_t number) const;
  /// Returns the number of the line that a byte belongs to. A line's end belongs to the line; what
  /// lies beyond the text belongs to its last line; an empty text has line 1.
  std::size_t line_at(std::size_t byte) const;

  /// Returns the position of a byte. A byte within a line's end, or beyond the text, has the
  /// position behind the line's last character.
  TextPosition position(std::size_t byte, ColumnUnit unit = ColumnUnit::CodePoint) const;
  /// Returns the byte at a position; a column beyond the line's end is the line's end, a line
  /// beyond the text the text's end.
  std::size_t byte_at(const TextPosition& position, ColumnUnit unit = ColumnUnit::CodePoint) const;

  /// Returns a range without the white space at both of its ends.
  TextRange trimmed(TextRange range) const;
  /// Returns the range of a line's words: the line without the white space around it.
  TextRange content(std::size_t number) const;
  /// Returns the first word in a range, empty when the range has none.
  TextRange first_word(const TextRange& range) const;
  /// Returns the first word of a line, empty when it has none.
  TextRange first_word(std::size_t number) const;

 private:
  struct Impl;

  std::shared_ptr<const Impl> impl_;
};

/// Returns a text after some edits, which are given in the order of the text and do not overlap. An
/// edit that breaks this rule, or lies beyond the text, is left out.
KELP_BDF_INP_EXPORT std::string apply_edits(std::string_view text,
                                            const std::vector<TextEdit>& edits);

}  // namespace kelp::input::bdf
