#include "input/line_records.hpp"

#include <algorithm>

namespace kelp::input::bdf {

bool is_within(const RecordId& inner, const RecordId& outer) {
  const bool in_module = inner.kind == RecordKind::Module || inner.kind == RecordKind::Entry ||
                         inner.kind == RecordKind::Child;
  switch (outer.kind) {
    case RecordKind::Geometry:
      return inner.kind == RecordKind::Geometry || inner.kind == RecordKind::Atom ||
             inner.kind == RecordKind::GeometryLine;
    case RecordKind::Module:
      return in_module && inner.index == outer.index;
    case RecordKind::Entry:
      return in_module && inner.kind != RecordKind::Module && inner.index == outer.index &&
             inner.entry == outer.entry;
    default:
      return inner == outer;
  }
}

std::size_t token_at(const LineMap& map, std::size_t byte) {
  const auto behind = std::upper_bound(
      map.pieces.begin(), map.pieces.end(), byte,
      [](std::size_t wanted, const TokenPiece& piece) { return wanted < piece.range.begin; });
  if (behind == map.pieces.begin()) {
    return no_token;
  }
  const auto before = behind - 1;
  // Between the pieces of one token is within it.
  const bool inside = before->range.contains(byte) ||
                      (behind != map.pieces.end() && behind->token == before->token);
  return inside ? before->token : no_token;
}

TokenText::TokenText(const LineMap& map, std::size_t token) {
  const auto less = [](const TokenPiece& piece, std::size_t wanted) {
    return piece.token < wanted;
  };
  first_ = std::lower_bound(map.pieces.begin(), map.pieces.end(), token, less);
  last_ = std::lower_bound(first_, map.pieces.end(), token + 1, less);
}

TextRange TokenText::range(std::size_t begin, std::size_t end) const {
  TextRange range;
  bool found = false;
  for (auto piece = first_; piece != last_; ++piece) {
    const std::size_t from = std::max(begin, piece->text_begin);
    const std::size_t to = std::min(end, piece->text_begin + piece->range.size());
    if (from >= to) {
      continue;
    }
    if (!found) {
      range.begin = piece->range.begin + (from - piece->text_begin);
      found = true;
    }
    range.end = piece->range.begin + (to - piece->text_begin);
  }
  return range;
}

}  // namespace kelp::input::bdf
