#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/schema.hpp"

namespace kelp::input::bdf {

/// A header line cut into tokens, and the pieces of the line that each was put together from.
struct HeaderWords {
  struct Piece {
    std::size_t token;       ///< index into `tokens`
    std::size_t text_begin;  ///< where the piece begins in the token
    std::string_view text;   ///< a view into the line
  };

  std::vector<std::string> tokens;
  std::vector<Piece> pieces;
};

/// Joins each keyword that takes a value with the value behind it: `charge 1` becomes the token
/// `charge=1`. What the schema knows as a word of its own is no value.
void join_values(HeaderWords& words, const InputSchema& schema);

/// Cuts a header line of an easy input into tokens, joining the pieces of `key = value`.
HeaderWords split_header_line(std::string_view line);

}  // namespace kelp::input::bdf
