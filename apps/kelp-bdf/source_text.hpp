#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "finding.hpp"

namespace kelp::app {

/// Part of a line, in bytes from the line's beginning.
struct LinePart {
  std::size_t line = 1;  ///< counted from 1
  std::size_t begin = 0;
  std::size_t end = 0;
};

/// A text and its lines, which are the ones that the library counts.
class SourceText {
 public:
  explicit SourceText(std::string text);
  SourceText(const SourceText&) = delete;
  SourceText(SourceText&&) = delete;
  SourceText& operator=(const SourceText&) = delete;
  SourceText& operator=(SourceText&&) = delete;
  ~SourceText() = default;

  const std::string& text() const { return text_; }
  std::size_t line_count() const { return lines_.size(); }
  /// Returns a line by its number, without its line end; empty when there is none.
  std::string_view line(std::size_t number) const;
  /// Returns the words of a line's part, from its first to its last byte that is no white space.
  LinePart trimmed(LinePart part) const;
  /// Returns a whole line but for the white space around it.
  LinePart content(std::size_t number) const;
  /// Returns the first word of a line.
  LinePart first_word(std::size_t number) const;
  /// Turns bytes of a line into places in the file.
  Range range(const LinePart& part) const;

 private:
  Position position(std::size_t line, std::size_t byte) const;

  std::string text_;
  std::vector<std::string_view> lines_;
};

}  // namespace kelp::app
