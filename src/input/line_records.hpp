#pragma once

#include <cstddef>
#include <vector>

#include "kelp/input/bdf/record.hpp"
#include "source/line_map.hpp"

namespace kelp::input::bdf {

/// Tells whether a record is another one or stands in it.
bool is_within(const RecordId& inner, const RecordId& outer);

inline constexpr std::size_t no_token = static_cast<std::size_t>(-1);

/// Returns the index of the header token at a byte; `no_token` where none stands.
std::size_t token_at(const LineMap& map, std::size_t byte);

/// Finds parts of a header token's text in the input, where its pieces may stand apart.
class TokenText {
 public:
  TokenText(const LineMap& map, std::size_t token);

  /// Returns from where to where the bytes [begin, end) of the token's text go.
  TextRange range(std::size_t begin, std::size_t end) const;

 private:
  std::vector<TokenPiece>::const_iterator first_;
  std::vector<TokenPiece>::const_iterator last_;
};

}  // namespace kelp::input::bdf
