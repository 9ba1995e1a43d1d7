#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "source/line_map.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {

/// Moves over the lines of an input while they are read. Whoever moves it knows what the line is
/// and says so; with a line map, the answers are kept.
///
/// A text is read by the letter, where a line is what it says from its first byte to its last, or
/// as BDF itself reads it: comments end a line, values may stand behind their keyword. What the
/// current line says is found out once, when the reader comes to it. By the letter, the lines are
/// cut out of the text then, too, and nothing can be asked about those ahead.
class LineReader {
 public:
  /// Reads a text by the letter.
  explicit LineReader(std::string_view text) : text_(text), rest_(text) { come_to_line(); }
  /// The same, with a line map.
  LineReader(std::string_view text, LineMap& map) : text_(text), rest_(text), map_(&map) {
    come_to_line();
  }
  /// Reads a text as the program does. `said` is what its lines say: all but their comments.
  LineReader(const SourceText& source, const Lines& said, LineMap& map)
      : source_(&source), said_(&said), text_(source.text()), map_(&map) {
    come_to_line();
  }

  bool at_end() const { return at_end_; }
  std::size_t index() const { return index_; }
  /// Returns what the current line says; not to be called at the end.
  std::string_view line() const { return says_; }
  /// Returns the first word of that; empty for a blank line. It is cut once, for all who ask.
  std::string_view word() const { return word_; }
  /// Tells whether the current line is one that nothing of a module goes beyond.
  bool at_module_border() const { return word_.starts_with('$') && is_module_border(says_); }
  /// Returns what a line further on says; empty beyond the end.
  std::string_view line_ahead(std::size_t distance) const {
    if (index_ + distance >= said_->size()) {
      return {};
    }
    const std::string* const amended = map_->amended_text(index_ + distance + 1);
    return amended == nullptr ? (*said_)[index_ + distance] : *amended;
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
  std::size_t lines_left() const { return said_->size() - index_; }
  /// Returns the current line's location.
  SourceSpan location() const { return span_of_line(index_, whole_); }
  /// Returns the current line, all of it, and moves past it.
  std::string_view take(LineRole role) {
    if (map_ != nullptr) {
      map_->lines[index_ + 1] = {role, record_};
    }
    const std::string_view taken = whole_;
    ++index_;
    come_to_line();
    return taken;
  }
  /// Moves past the current line.
  void skip(LineRole role) { take(role); }
  /// Returns the text behind the current line.
  std::string_view rest() const {
    return reads_as_program() && !at_end_ ? text_.substr(byte_of(whole_) + whole_.size()) : rest_;
  }

  /// Reads a line further on as another one, which no line behind it has been yet.
  void amend(std::size_t distance, BorderFault fault, std::string_view text) {
    map_->amended.push_back({index_ + distance + 1, fault, std::string(text)});
    if (distance == 0) {
      come_to_line();
    }
  }
  /// Has a block that has no end be left before a line further on.
  void break_before(std::size_t distance) { map_->breaks.push_back(index_ + distance + 1); }
  /// Tells whether a block is left before the current line, or one further on.
  bool at_break(std::size_t distance = 0) const {
    return map_ != nullptr && !map_->breaks.empty() &&
           std::binary_search(map_->breaks.begin(), map_->breaks.end(), index_ + distance + 1);
  }

  bool reads_as_program() const { return said_ != nullptr; }
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
  void come_to_line() {
    if (reads_as_program()) {
      at_end_ = index_ >= said_->size();
      whole_ = at_end_ ? std::string_view() : source_->line(index_ + 1);
      says_ = line_ahead(0);
    } else {
      at_end_ = rest_.empty();
      whole_ = at_end_ ? std::string_view() : take_line(rest_);
      says_ = whole_;
    }
    word_ = first_word(says_);
  }

  const SourceText* source_ = nullptr;
  const Lines* said_ = nullptr;
  std::string_view text_;
  std::string_view rest_;
  LineMap* map_ = nullptr;
  std::size_t index_ = 0;
  bool at_end_ = false;
  std::string_view whole_;
  std::string_view says_;
  std::string_view word_;
  RecordId record_;
};

}  // namespace kelp::input::bdf
