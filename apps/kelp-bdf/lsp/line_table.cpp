#include "lsp/line_table.hpp"

#include <algorithm>

#include "kelp/core/unicode.hpp"

namespace kelp::app::lsp {

using input::bdf::ColumnUnit;

namespace {

std::size_t units_of(std::string_view text, ColumnUnit unit) {
  switch (unit) {
    case ColumnUnit::CodePoint:
      return core::unicode::count_code_points(text);
    case ColumnUnit::Utf16:
      return core::unicode::count_utf16_units(text);
    default:
      return text.size();
  }
}

// Returns how many bytes a number of units takes; a part of a character counts for nothing.
std::size_t bytes_of(std::string_view line, std::size_t units, ColumnUnit unit) {
  std::size_t byte = 0;
  while (byte < line.size()) {
    const std::size_t length = core::unicode::character_length(line.substr(byte));
    const std::size_t taken = units_of(line.substr(byte, length), unit);
    if (taken > units) {
      break;
    }
    units -= taken;
    byte += length;
  }
  return byte;
}

}  // namespace

LineTable::LineTable(std::string_view text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '\n' || (text[at] == '\r' && text.substr(at + 1, 1) != "\n")) {
      starts_.push_back(at + 1);
    }
  }
}

std::size_t LineTable::byte_at(std::string_view text, const Position& position,
                               ColumnUnit unit) const {
  if (position.line >= starts_.size()) {
    return text.size();
  }
  const std::size_t begin = starts_[position.line];
  const std::size_t end =
      position.line + 1 < starts_.size() ? starts_[position.line + 1] : text.size();
  std::string_view line = text.substr(begin, end - begin);
  line = line.substr(0, line.find_first_of("\r\n"));
  return begin + bytes_of(line, position.character, unit);
}

std::size_t LineTable::line_at(std::size_t byte) const {
  const auto after = std::upper_bound(starts_.begin(), starts_.end(), byte);
  return static_cast<std::size_t>(after - starts_.begin()) - 1;
}

Position LineTable::position(std::string_view text, std::size_t byte, ColumnUnit unit) const {
  byte = std::min(byte, text.size());
  const std::size_t line = line_at(byte);
  std::string_view before = text.substr(starts_[line], byte - starts_[line]);
  before = before.substr(0, before.find_first_of("\r\n"));
  return {line, units_of(before, unit)};
}

}  // namespace kelp::app::lsp
