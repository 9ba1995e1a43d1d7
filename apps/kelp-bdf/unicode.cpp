#include "unicode.hpp"

#include <fmt/format.h>

#include <cstdint>

namespace kelp::app {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";
constexpr std::string_view tab_blanks = "    ";

bool is_continuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// Returns the length of the well-formed UTF-8 sequence that a text begins with, 0 for none.
std::size_t sequence_length(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  std::size_t length = 0;
  if (lead < 0x80U) {
    return 1;
  }
  if (lead >= 0xC2U && lead <= 0xDFU) {
    length = 2;
  } else if (lead >= 0xE0U && lead <= 0xEFU) {
    length = 3;
  } else if (lead >= 0xF0U && lead <= 0xF4U) {
    length = 4;
  }
  if (length == 0 || text.size() < length) {
    return 0;
  }
  for (std::size_t i = 1; i < length; ++i) {
    if (!is_continuation(text[i])) {
      return 0;
    }
  }
  // Overlong forms, surrogates and what lies beyond Unicode.
  const auto second = static_cast<unsigned char>(text[1]);
  const bool malformed = (lead == 0xE0U && second < 0xA0U) || (lead == 0xEDU && second > 0x9FU) ||
                         (lead == 0xF0U && second < 0x90U) || (lead == 0xF4U && second > 0x8FU);
  return malformed ? 0 : length;
}

bool is_control(std::string_view character) {
  const auto byte = static_cast<unsigned char>(character[0]);
  return byte < 0x20U || byte == 0x7FU ||
         (byte == 0xC2U && static_cast<unsigned char>(character[1]) < 0xA0U);
}

// Calls `use` for each character; one that is not well formed is empty.
template <typename Use>
void for_each_character(std::string_view text, Use use) {
  while (!text.empty()) {
    const std::size_t length = sequence_length(text);
    use(text.substr(0, length));
    text.remove_prefix(length == 0 ? 1 : length);
  }
}

}  // namespace

std::size_t count_code_points(std::string_view text) {
  std::size_t count = 0;
  for_each_character(text, [&](std::string_view) { ++count; });
  return count;
}

std::size_t display_width(std::string_view text) {
  // fmt pads to a width in columns, so what it adds to an empty text and to this one differs by
  // this one's width.
  const std::string shown = displayable(text);
  const std::size_t room = 2 * shown.size();
  return room - (fmt::formatted_size("{:<{}}", shown, room) - shown.size());
}

std::string displayable(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  for_each_character(text, [&](std::string_view character) {
    if (character == "\t") {
      shown += tab_blanks;
    } else if (character.empty() || is_control(character)) {
      shown += replacement;
    } else {
      shown += character;
    }
  });
  return shown;
}

}  // namespace kelp::app
