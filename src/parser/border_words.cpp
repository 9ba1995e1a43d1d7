#include "parser/border_words.hpp"

#include <algorithm>

#include "kelp/core/spelling.hpp"
#include "kelp/core/text.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::string_view end_word = "end";

bool is_letter(char byte) {
  return core::text::to_lower(byte) >= 'a' && core::text::to_lower(byte) <= 'z';
}

// Returns a text without its blanks, in lower case. What is longer than any border stays empty.
std::string letters_of(std::string_view text) {
  if (text.size() > core::spelling::longest_word) {
    return {};
  }
  std::string letters = core::text::to_lower(text);
  std::erase_if(letters, core::text::is_space);
  return letters;
}

// A letter of another script is one slip, whatever bytes it has.
std::string with_one_byte_each(std::string_view letters) {
  std::string bytes;
  for (const char byte : letters) {
    constexpr unsigned continues = 0x80U;
    constexpr unsigned mask = 0xC0U;
    if ((static_cast<unsigned char>(byte) & mask) != continues) {
      bytes += byte;
    }
  }
  return bytes;
}

// Tells whether a line has no more letters than `end` with another sign on either side, and need
// not be copied to be told that it is none.
bool is_as_short_as_end(std::string_view line) {
  std::size_t letters = 0;
  for (const char byte : line) {
    letters += core::text::is_space(byte) ? 0 : 1;
    if (letters > end_word.size() + 2) {
      return false;
    }
  }
  return true;
}

bool is_near_end_word(std::string_view letters) {
  return letters.size() >= 2 && core::spelling::slips_between(letters, end_word, 1) <= 1;
}

}  // namespace

std::optional<std::string_view> behind_wide_dollar(std::string_view line) {
  if (first_byte(line) != first_of_wide_dollar) {
    return std::nullopt;
  }
  const std::string_view text = core::text::trim_view(line);
  for (const std::string_view sign : {"\xEF\xBC\x84", "\xEF\xB9\xA9"}) {
    if (text.starts_with(sign)) {
      return core::text::trim_view(text.substr(sign.size()));
    }
  }
  return std::nullopt;
}

bool is_header_behind_wide_dollar(std::string_view line, const InputSchema& schema) {
  const auto word = behind_wide_dollar(line);
  return word && schema.is_known_module(*word);
}

bool says_nothing(std::string_view line) {
  return is_blank(line) || is_remark(line);
}

bool is_near_module_end(std::string_view line) {
  constexpr std::string_view end = "$end";
  std::string_view rest = line;
  if (core::text::equals_ignoring_case(core::text::take_word(rest), end)) {
    return true;
  }
  const std::string letters = with_one_byte_each(letters_of(line));
  return letters.starts_with('$') && is_near_end_word(std::string_view(letters).substr(1));
}

bool is_terminator_behind_dollar(std::string_view line, std::string_view terminator) {
  if (first_byte(line) != '$') {
    return false;
  }
  const std::string written = letters_of(line);
  return written.starts_with('$') && written.substr(1) == letters_of(terminator);
}

bool is_end_without_dollar(std::string_view line) {
  if (!is_as_short_as_end(line)) {
    return false;
  }
  const std::string letters = letters_of(line);
  std::string_view word = letters;
  // What ends a database is not meant, nor is a command of the shell.
  if (!word.empty() && !is_letter(word.front()) && word.front() != '&' && word.front() != '%') {
    word.remove_prefix(1);
  }
  if (!word.empty() && !is_letter(word.back())) {
    word.remove_suffix(1);
  }
  return word == end_word;
}

bool is_near_end_without_dollar(std::string_view line) {
  if (!is_as_short_as_end(line)) {
    return false;
  }
  const std::string letters = letters_of(line);
  return is_near_end_word(letters) && std::all_of(letters.begin(), letters.end(), is_letter);
}

bool is_near_terminator(std::string_view line, std::string_view terminator,
                        std::string_view keyword) {
  const std::string written = letters_of(line);
  const std::string wanted = letters_of(terminator);
  if (written.size() < end_word.size() || wanted.empty()) {
    return false;
  }
  const bool is_cut_off = wanted.starts_with(written) && written.starts_with(end_word);
  const bool goes_on = written.starts_with(wanted);
  const bool names_keyword = written == std::string(end_word) + letters_of(keyword);
  return is_cut_off || goes_on || names_keyword || is_end_without_dollar(line) ||
         core::spelling::slips_if_near(written, wanted).has_value();
}

bool is_near_geometry_start(std::string_view line) {
  constexpr std::string_view wanted = "geometry";
  constexpr std::size_t least = 4;
  const std::string written = letters_of(line);
  return written.size() >= least && (wanted.starts_with(written) ||
                                     core::spelling::slips_if_near(written, wanted).has_value());
}

bool is_one_word(std::string_view line) {
  const std::string_view text = core::text::trim_view(line);
  return !text.empty() && std::none_of(text.begin(), text.end(), core::text::is_space);
}

}  // namespace kelp::input::bdf
