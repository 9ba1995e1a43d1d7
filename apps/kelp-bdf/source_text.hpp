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
  /// Returns the text of a line's part.
  std::string_view text_of(const LinePart& part) const;
  /// Returns the words of a line's part, from its first to its last byte that is no white space.
  LinePart trimmed(LinePart part) const;
  /// Returns a whole line but for the white space around it.
  LinePart content(std::size_t number) const;
  /// Returns the first word of a line.
  LinePart first_word(std::size_t number) const;
  /// Turns bytes of a line into places in the file.
  Range range(const LinePart& part) const;

 private:
  /// The column of one place in a long line.
  struct Milestone {
    std::size_t byte;    ///< from the beginning of the text
    std::size_t column;  ///< counted from 0
  };

  void measure(std::string_view line);
  std::size_t byte_of(std::string_view line) const;
  std::size_t column(std::string_view line, std::size_t byte) const;
  Position position(std::size_t number, std::size_t byte) const;

  std::string text_;
  std::vector<std::string_view> lines_;
  std::vector<Milestone> milestones_;  ///< in the order of the text
};

/// Gives a finding its range and the line that it stands on.
void place_finding(Finding& finding, const SourceText& source, const LinePart& part);

}  // namespace kelp::app
