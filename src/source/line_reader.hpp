#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "source/line_map.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {

/// How strictly the lines of an input are read.
enum class Reading : std::int32_t {
  Literal,      ///< a line is what it says from its first byte to its last
  AsByProgram,  ///< as BDF itself reads: comments end a line, values may stand behind their keyword
};

/// Moves over the lines of an input while they are read. Whoever moves it knows what the line is
/// and says so; with a line map, the answers are kept.
class LineReader {
 public:
  explicit LineReader(const Lines& lines) : lines_(&lines) {}
  /// `text` is what the lines are views of.
  LineReader(const Lines& lines, std::string_view text, Reading reading, LineMap& map)
      : lines_(&lines), text_(text), reading_(reading), map_(&map) {}

  bool at_end() const { return index_ >= lines_->size(); }
  std::size_t index() const { return index_; }
  /// Returns what the current line says; not to be called at the end.
  std::string_view line() const { return line_ahead(0); }
  /// Returns what a line further on says; empty beyond the end.
  std::string_view line_ahead(std::size_t distance) const {
    if (index_ + distance >= lines_->size()) {
      return {};
    }
    const std::string_view whole = (*lines_)[index_ + distance];
    if (reading_ == Reading::Literal) {
      return whole;
    }
    const std::string* const amended = map_->amended_text(index_ + distance + 1);
    return amended == nullptr ? without_comment(whole) : *amended;
  }
  /// Returns the distance of the next line, from a distance on, that is neither blank nor a
  /// comment; how many lines are left when there is none.
  std::size_t next_telling(std::size_t distance) const {
    while (distance < lines_left() &&
           (is_blank(line_ahead(distance)) || is_remark(line_ahead(distance)))) {
      ++distance;
    }
    return distance;
  }
  std::size_t lines_left() const { return lines_->size() - index_; }
  /// Returns the current line's location.
  SourceSpan location() const { return span_of_line(index_, (*lines_)[index_]); }
  /// Returns the current line, all of it, and moves past it.
  std::string_view take(LineRole role) {
    if (map_ != nullptr) {
      map_->lines[index_ + 1] = {role, record_};
    }
    return (*lines_)[index_++];
  }
  /// Moves past the current line.
  void skip(LineRole role) { take(role); }

  /// Reads a line further on as another one, which no line behind it has been yet.
  void amend(std::size_t distance, BorderFault fault, std::string_view text) {
    map_->amended.push_back({index_ + distance + 1, fault, std::string(text)});
  }
  /// Has a block that has no end be left before a line further on.
  void break_before(std::size_t distance) { map_->breaks.push_back(index_ + distance + 1); }
  /// Tells whether a block is left before the current line, or one further on.
  bool at_break(std::size_t distance = 0) const {
    return map_ != nullptr &&
           std::binary_search(map_->breaks.begin(), map_->breaks.end(), index_ + distance + 1);
  }

  bool reads_as_program() const { return reading_ == Reading::AsByProgram; }
  /// Sets the record that the lines taken from now on belong to.
  void begin_record(const RecordId& record) { record_ = record; }
  const RecordId& record() const { return record_; }
  /// Returns where in the input a view of a line begins.
  std::size_t byte_of(std::string_view part) const {
    return static_cast<std::size_t>(part.data() - text_.data());
  }
  /// Returns where to note more than roles; null when nobody asks.
  LineMap* map() const { return map_; }

 private:
  const Lines* lines_;
  std::string_view text_;
  Reading reading_ = Reading::Literal;
  LineMap* map_ = nullptr;
  std::size_t index_ = 0;
  RecordId record_;
};

}  // namespace kelp::input::bdf
