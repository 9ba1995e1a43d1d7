#pragma once

#include <cstddef>
#include <string_view>

#include "parser/lines.hpp"

namespace kelp::input::bdf {

/// A place in the lines of an input, moved forward while they are read.
class LineReader {
 public:
  LineReader(const Lines& lines, std::size_t index) : lines_(&lines), index_(index) {}

  bool at_end() const { return index_ >= lines_->size(); }
  std::size_t index() const { return index_; }
  /// Returns the current line; not to be called at the end.
  std::string_view line() const { return (*lines_)[index_]; }
  /// Returns the current line's place.
  SourceSpan location() const { return span_of_line(index_, line()); }
  /// Returns the current line and moves past it.
  std::string_view take() { return (*lines_)[index_++]; }
  /// Moves past the current line.
  void skip() { ++index_; }

 private:
  const Lines* lines_;
  std::size_t index_;
};

}  // namespace kelp::input::bdf
