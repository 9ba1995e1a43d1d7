#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "kelp/input/bdf/source.hpp"

namespace kelp::app {

/// Part of a line, in bytes from the line's beginning.
struct LinePart {
  std::size_t line = 1;  ///< counted from 1
  std::size_t begin = 0;
  std::size_t end = 0;
};

/// A text whose parts are told by line.
class SourceText {
 public:
  explicit SourceText(std::string text) : source_(std::move(text)) {}

  const input::bdf::SourceText& source() const { return source_; }
  std::string_view text() const { return source_.text(); }
  std::size_t line_count() const { return source_.line_count(); }
  /// Returns a line by its number, without its line end; empty when there is none.
  std::string_view line(std::size_t number) const { return source_.line(number); }
  /// Returns the text of a line's part.
  std::string_view text_of(const LinePart& part) const;
  /// Returns the words of a line's part, from its first to its last byte that is no white space.
  LinePart trimmed(const LinePart& part) const;
  /// Returns a whole line but for the white space around it.
  LinePart content(std::size_t number) const;
  /// Returns the first word of a line.
  LinePart first_word(std::size_t number) const;
  /// Returns the range of a line's part in the text.
  input::bdf::TextRange range(const LinePart& part) const;

 private:
  LinePart part(std::size_t number, const input::bdf::TextRange& range) const;

  input::bdf::SourceText source_;
};

}  // namespace kelp::app
