#pragma once

#include <cstddef>
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

/// What the parser tells of the lines that it moves over. Nothing has to be guessed afterwards from
/// the document or from the text.
struct LineMap {
  std::vector<LineInfo> lines;             ///< by line number, from 1 on; the first is unused
  std::vector<std::size_t> last_line;      ///< of each module, by its index
  std::vector<TokenPiece> pieces;          ///< in the order of the text
  std::vector<std::size_t> inline_values;  ///< numbers of keyword lines that hold the value, too
};

}  // namespace kelp::input::bdf
