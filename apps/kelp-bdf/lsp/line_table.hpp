#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/source.hpp"

namespace kelp::app::lsp {

/// A position as the protocol counts it.
struct Position {
  std::size_t line = 0;       ///< counted from 0
  std::size_t character = 0;  ///< counted from 0, in the unit that was agreed on

  friend bool operator==(const Position&, const Position&) = default;
};

/// The lines of a text as the protocol counts them: a carriage return alone ends one, too, and a
/// byte order mark is a character of the first. So lines and columns need not be those of the
/// library, and only bytes are passed between the two.
class LineTable {
 public:
  /// Makes the table of an empty text.
  LineTable() = default;
  explicit LineTable(std::string_view text);

  /// Returns the byte at a position. A line beyond the text is its end, a character beyond the line
  /// the line's end; within a character it is where that begins.
  std::size_t byte_at(std::string_view text, const Position& position,
                      input::bdf::ColumnUnit unit) const;
  /// Returns the position of a byte; beyond the text that of its end.
  Position position(std::string_view text, std::size_t byte, input::bdf::ColumnUnit unit) const;
  /// Returns the number of lines, an empty one behind the last line end included.
  std::size_t size() const { return starts_.size(); }
  /// Returns the number of the line that a byte stands in.
  std::size_t line_at(std::size_t byte) const;

 private:
  std::vector<std::size_t> starts_ = {0};
};

}  // namespace kelp::app::lsp
