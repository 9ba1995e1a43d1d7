#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <string>
#include <vector>

#include "kelp/input/bdf/record.hpp"
#include "kelp/input/bdf/source.hpp"

namespace kelp::input::bdf {

/// A piece of a header token: the text of `key = value` is put together from pieces of the line.
struct TokenPiece {
  std::size_t token = 0;       ///< index of the token
  std::size_t text_begin = 0;  ///< where the piece begins in the token's text
  TextRange range;             ///< where it stands in the input
};

/// A line that is read as another one.
struct AmendedLine {
  std::size_t line = 0;  ///< its number
  BorderFault fault = BorderFault::MisspeltEnd;
  std::string text;  ///< what it was meant to be
};

/// What the parser tells of the lines that it moves over. Nothing has to be guessed afterwards from
/// the document or from the text.
struct LineMap {
  std::vector<LineInfo> lines;             ///< by line number, from 1 on; the first is unused
  std::vector<std::size_t> last_line;      ///< of each module, by its index
  std::vector<TokenPiece> pieces;          ///< in the order of the text
  std::vector<std::size_t> inline_values;  ///< numbers of keyword lines that hold the value, too
  /// In the order of the text. The texts never move: the parser has views of them.
  std::deque<AmendedLine> amended;
  /// Numbers of lines before which a block that has no end is left, in the order of the text.
  std::vector<std::size_t> breaks;

  /// Returns what a line is read as instead of what it says; null for most lines.
  const std::string* amended_text(std::size_t line) const {
    if (amended.empty()) {
      return nullptr;
    }
    const auto found = std::lower_bound(
        amended.begin(), amended.end(), line,
        [](const AmendedLine& it, std::size_t wanted) { return it.line < wanted; });
    return found == amended.end() || found->line != line ? nullptr : &found->text;
  }
};

}  // namespace kelp::input::bdf
