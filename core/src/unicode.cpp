#include "kelp/core/unicode.hpp"

#include <algorithm>
#include <array>
#include <cstdint>

namespace kelp::core::unicode {
namespace {

constexpr std::string_view tab_blanks = "    ";

struct CodeRange {
  std::uint32_t first;
  std::uint32_t last;
};

// Marks that combine and characters without a shape: the blocks of them that occur in notes and
// names.
constexpr auto zero_width = std::to_array<CodeRange>({
    {0x300, 0x36F},     {0x483, 0x489},     {0x591, 0x5BD},   {0x610, 0x61A},   {0x64B, 0x65F},
    {0x670, 0x670},     {0x93C, 0x93C},     {0x941, 0x948},   {0x94D, 0x94D},   {0xE31, 0xE31},
    {0xE34, 0xE3A},     {0xE47, 0xE4E},     {0x1160, 0x11FF}, {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF},
    {0x20D0, 0x20FF},   {0x302A, 0x302D},   {0x3099, 0x309A}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F},
    {0x1F3FB, 0x1F3FF}, {0xE0100, 0xE01EF},
});

constexpr auto wide = std::to_array<CodeRange>({
    {0x1100, 0x115F},
    {0x2329, 0x232A},
    {0x2E80, 0x303E},
    {0x3041, 0xA4CF},
    {0xA960, 0xA97F},
    {0xAC00, 0xD7A3},
    {0xF900, 0xFAFF},
    {0xFE10, 0xFE19},
    {0xFE30, 0xFE6F},
    {0xFF01, 0xFF60},
    {0xFFE0, 0xFFE6},
    {0x1F300, 0x1F64F},
    {0x1F680, 0x1F6FF},
    {0x1F900, 0x1F9FF},
    {0x20000, 0x2FFFD},
    {0x30000, 0x3FFFD},
});

// What moves the cursor, starts an escape sequence, makes a line read other than it is written, or
// makes two words that look the same differ.
constexpr auto unshowable = std::to_array<CodeRange>({
    {0x0, 0x1F},
    {0x7F, 0x9F},
    {0xAD, 0xAD},
    {0x61C, 0x61C},
    {0x180E, 0x180E},
    {0x200B, 0x200F},
    {0x2028, 0x202E},
    {0x2060, 0x206F},
    {0xFEFF, 0xFEFF},
    {0xFFF9, 0xFFFB},
    {0xE0000, 0xE007F},
});

template <std::size_t Count>
bool is_in(std::uint32_t code, const std::array<CodeRange, Count>& ranges) {
  return std::any_of(ranges.begin(), ranges.end(), [code](const CodeRange& range) {
    return code >= range.first && code <= range.last;
  });
}

std::uint8_t byte_at(std::string_view text, std::size_t index) {
  return static_cast<std::uint8_t>(text[index]);
}

bool is_continuation(std::uint8_t byte) {
  return (byte & 0xC0U) == 0x80U;
}

std::size_t announced_length(std::uint8_t lead) {
  if (lead >= 0xC2U && lead <= 0xDFU) {
    return 2;
  }
  if (lead >= 0xE0U && lead <= 0xEFU) {
    return 3;
  }
  return lead >= 0xF0U && lead <= 0xF4U ? 4 : 0;
}

// Returns the length of the well-formed UTF-8 sequence that a text begins with, 0 for none.
std::size_t sequence_length(std::string_view text) {
  const std::uint8_t lead = byte_at(text, 0);
  if (lead < 0x80U) {
    return 1;
  }
  const std::size_t length = announced_length(lead);
  if (length == 0 || text.size() < length) {
    return 0;
  }
  for (std::size_t i = 1; i < length; ++i) {
    if (!is_continuation(byte_at(text, i))) {
      return 0;
    }
  }
  // Overlong forms, surrogates and what lies beyond Unicode.
  const std::uint8_t second = byte_at(text, 1);
  const bool malformed = (lead == 0xE0U && second < 0xA0U) || (lead == 0xEDU && second > 0x9FU) ||
                         (lead == 0xF0U && second < 0x90U) || (lead == 0xF4U && second > 0x8FU);
  return malformed ? 0 : length;
}

}  // namespace

std::size_t character_length(std::string_view text) {
  return std::max<std::size_t>(sequence_length(text), 1);
}

namespace {

std::uint32_t code_of(std::string_view character) {
  constexpr std::array<std::uint32_t, 5> lead_bits = {0, 0x7F, 0x1F, 0x0F, 0x07};
  std::uint32_t code = byte_at(character, 0) & lead_bits[character.size()];
  for (std::size_t i = 1; i < character.size(); ++i) {
    code = code << 6U | (byte_at(character, i) & 0x3FU);
  }
  return code;
}

// Calls `use` for each character; a byte that is not well formed is one.
template <typename Use>
void for_each_character(std::string_view text, Use use) {
  while (!text.empty()) {
    const std::size_t length = character_length(text);
    use(text.substr(0, length));
    text.remove_prefix(length);
  }
}

// What stands at the end of a line rather than at the beginning of the next, and the reverse.
constexpr auto closing = std::to_array<CodeRange>({
    {0x21, 0x21},     {0x25, 0x25},     {0x29, 0x29},     {0x2C, 0x2C},     {0x2E, 0x2F},
    {0x3A, 0x3B},     {0x3F, 0x3F},     {0x5D, 0x5D},     {0x7D, 0x7D},     {0x2019, 0x2019},
    {0x201D, 0x201D}, {0x2026, 0x2026}, {0x3001, 0x3002}, {0x3009, 0x3009}, {0x300B, 0x300B},
    {0x300D, 0x300D}, {0x300F, 0x300F}, {0x3011, 0x3011}, {0xFF01, 0xFF01}, {0xFF09, 0xFF09},
    {0xFF0C, 0xFF0C}, {0xFF0E, 0xFF0F}, {0xFF1A, 0xFF1B}, {0xFF1F, 0xFF1F},
});
constexpr auto opening = std::to_array<CodeRange>({
    {0x28, 0x28},
    {0x5B, 0x5B},
    {0x7B, 0x7B},
    {0x2018, 0x2018},
    {0x201C, 0x201C},
    {0x3008, 0x3008},
    {0x300A, 0x300A},
    {0x300C, 0x300C},
    {0x300E, 0x300E},
    {0x3010, 0x3010},
    {0xFF08, 0xFF08},
});

bool may_part(std::uint32_t before, std::uint32_t after) {
  return (is_in(before, wide) || is_in(after, wide)) && !is_in(after, closing) &&
         !is_in(after, zero_width) && !is_in(before, opening);
}

// Calls `use(begin, length)` for each part of a text that stays on one line: a word, or a wide
// character with what belongs to it.
template <typename Use>
void for_each_piece(std::string_view text, Use use) {
  std::size_t begin = 0;
  std::size_t at = 0;
  std::uint32_t last = 0;
  const auto finish = [&] {
    if (at > begin) {
      use(begin, at - begin);
    }
  };
  for_each_character(text, [&](std::string_view character) {
    const std::uint32_t code = sequence_length(character) == 0 ? 0 : code_of(character);
    const std::size_t length = character.size();
    if (code == ' ') {
      finish();
      begin = at + length;
    } else if (at > begin && may_part(last, code)) {
      finish();
      begin = at;
    }
    last = code;
    at += length;
  });
  finish();
}

bool is_byte(std::string_view character) {
  return character.size() == 1;
}

void append_hexadecimal(std::string& text, std::uint32_t code, unsigned int digits) {
  for (unsigned int digit = digits; digit > 0; --digit) {
    text += "0123456789abcdef"[code >> 4U * (digit - 1) & 0xFU];
  }
}

// As it would be written in a string of most languages.
std::string escaped(std::string_view character) {
  switch (character.front()) {
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    default:
      break;
  }
  constexpr std::uint32_t last_of_four_digits = 0xFFFF;
  const std::uint32_t code = is_byte(character) ? byte_at(character, 0) : code_of(character);
  const bool is_long = code > last_of_four_digits;
  std::string text = is_byte(character) ? "\\x" : is_long ? "\\U" : "\\u";
  append_hexadecimal(text, code, is_byte(character) ? 2 : is_long ? 8 : 4);
  return text;
}

bool is_showable(std::string_view character) {
  return sequence_length(character) > 0 && !is_in(code_of(character), unshowable);
}

}  // namespace

std::size_t next_character(std::string_view text, std::size_t at) {
  while (at < text.size() && is_continuation(byte_at(text, at))) {
    ++at;
  }
  return at;
}

std::size_t count_code_points(std::string_view text) {
  std::size_t count = 0;
  for_each_character(text, [&](std::string_view) { ++count; });
  return count;
}

std::size_t count_utf16_units(std::string_view text) {
  std::size_t count = 0;
  // What lies beyond the basic plane takes four bytes here and two units there.
  for_each_character(text,
                     [&](std::string_view character) { count += character.size() == 4 ? 2 : 1; });
  return count;
}

std::size_t display_width(std::string_view text) {
  std::size_t width = 0;
  for_each_character(text, [&](std::string_view character) {
    if (character == "\t") {
      width += tab_blanks.size();
    } else if (!is_showable(character)) {
      width += escaped(character).size();
    } else if (const std::uint32_t code = code_of(character); !is_in(code, zero_width)) {
      width += is_in(code, wide) ? 2 : 1;
    }
  });
  return width;
}

std::string displayable(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  for_each_character(text, [&](std::string_view character) {
    if (character == "\t") {
      shown += tab_blanks;
    } else if (is_showable(character)) {
      shown += character;
    } else {
      shown += escaped(character);
    }
  });
  return shown;
}

std::vector<std::string_view> wrap(std::string_view text, std::size_t columns) {
  std::vector<std::string_view> lines;
  std::size_t begin = 0;
  std::size_t end = 0;  // of the line so far
  std::size_t width = 0;
  for_each_piece(text, [&](std::size_t piece, std::size_t length) {
    const std::size_t wider = width + display_width(text.substr(end, piece + length - end));
    if (end > begin && wider > columns) {
      lines.push_back(text.substr(begin, end - begin));
      end = begin;
    }
    width = end > begin ? wider : display_width(text.substr(piece, length));
    begin = end > begin ? begin : piece;
    end = piece + length;
  });
  if (end > begin) {
    lines.push_back(text.substr(begin, end - begin));
  }
  return lines;
}

std::string fitted(std::string_view text, std::size_t columns) {
  constexpr std::string_view dots = "...";
  if (display_width(text) <= columns) {
    return std::string(text);
  }
  const std::size_t room = columns - std::min(columns, dots.size());
  const std::vector<std::string_view> lines = wrap(text, room);
  std::string_view first = lines.empty() ? std::string_view() : lines.front();
  while (display_width(first) > room) {
    std::size_t last = first.size() - 1;
    while (last > 0 && is_continuation(byte_at(first, last))) {
      --last;
    }
    first = first.substr(0, last);
  }
  return std::string(first).append(dots);
}

std::string displayable_lines(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    const std::string_view line_end = text.substr(end, 1);
    text.remove_prefix(line.size() + line_end.size());
    if (!line_end.empty() && line.ends_with('\r')) {
      line.remove_suffix(1);
    }
    shown += displayable(line);
    shown += line_end;
  }
  return shown;
}

std::string abridged(std::string_view text) {
  constexpr std::size_t longest = 2000;
  constexpr std::size_t head = 800;
  constexpr std::size_t tail = 200;
  if (text.size() <= longest) {
    return std::string(text);
  }
  std::string shorter(text.substr(0, next_character(text, head)));
  shorter += " ... ";
  return shorter.append(text.substr(next_character(text, text.size() - tail)));
}

}  // namespace kelp::core::unicode
