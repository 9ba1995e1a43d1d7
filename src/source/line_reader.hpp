#pragma once

#include <cstddef>
#include <string_view>

#include "source/line_map.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {

/// Moves over the lines of an input while they are read. Whoever moves it knows what the line is
/// and says so; with a line map, the answers are kept.
class LineReader {
 public:
  explicit LineReader(const Lines& lines, LineMap* map = nullptr) : lines_(&lines), map_(map) {}

  bool at_end() const { return index_ >= lines_->size(); }
  std::size_t index() const { return index_; }
  /// Returns the current line; not to be called at the end.
  std::string_view line() const { return (*lines_)[index_]; }
  /// Returns the current line's location.
  SourceSpan location() const { return span_of_line(index_, line()); }
  /// Returns the current line and moves past it.
  std::string_view take(LineRole role) {
    if (map_ != nullptr) {
      map_->lines[index_ + 1] = {role, record_};
    }
    return (*lines_)[index_++];
  }
  /// Moves past the current line.
  void skip(LineRole role) { take(role); }

  /// Sets the record that the lines taken from now on belong to.
  void begin_record(const RecordId& record) { record_ = record; }
  const RecordId& record() const { return record_; }
  /// Returns where in the input a view of a line begins.
  std::size_t byte_of(std::string_view part) const {
    return static_cast<std::size_t>(part.data() - lines_->front().data());
  }
  /// Returns where to note more than roles; null when nobody asks.
  LineMap* map() const { return map_; }

 private:
  const Lines* lines_;
  LineMap* map_;
  std::size_t index_ = 0;
  RecordId record_;
};

}  // namespace kelp::input::bdf
