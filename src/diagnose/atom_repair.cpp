// Lines of a geometry are typed by hand or pasted from elsewhere, and go wrong in few ways. Each of
// them can be undone; what is undone is tried on the reader, and the first that makes the line
// readable is what was meant. What word processors do to characters, and decimal commas, leave no
// other reading; all else is a proposal.

#include "diagnose/atom_repair.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "kelp/core/unicode.hpp"
#include "source/elements.hpp"

namespace kelp::input::bdf {
namespace {

struct Character {
  std::string_view written;
  std::string_view meant;
  std::string_view label;
};

constexpr std::string_view minus = "a typographic minus";
constexpr std::string_view blank = "a blank that is no plain one";
constexpr std::string_view wide = "a full-width character";
constexpr std::string_view unseen = "a character that is not seen";

constexpr auto characters = std::to_array<Character>({
    {"\xE2\x88\x92", "-", minus},
    {"\xE2\x80\x90", "-", minus},
    {"\xE2\x80\x91", "-", minus},
    {"\xE2\x80\x92", "-", minus},
    {"\xE2\x80\x93", "-", minus},
    {"\xE2\x80\x94", "-", minus},
    {"\xEF\xB9\xA3", "-", minus},
    {"\xC2\xA0", " ", "a no-break space"},
    {"\xE2\x80\xAF", " ", "a no-break space"},
    {"\xE2\x80\x82", " ", blank},
    {"\xE2\x80\x83", " ", blank},
    {"\xE2\x80\x87", " ", blank},
    {"\xE2\x80\x89", " ", blank},
    {"\xE3\x80\x80", " ", blank},
    {"\xE2\x80\x8B", "", unseen},
    {"\xE2\x81\xA0", "", unseen},
    {"\xEF\xBB\xBF", "", unseen},
    {"\xC2\xAD", "", unseen},
});

// The full-width forms of ASCII are U+FF01 to U+FF5E, in the same order.
char narrow_form(std::string_view text) {
  if (text.size() < 3 || text[0] != '\xEF') {
    return '\0';
  }
  const auto second = static_cast<unsigned char>(text[1]);
  const auto third = static_cast<unsigned char>(text[2]);
  if ((second != 0xBC && second != 0xBD) || third < 0x80 || third > 0xBF) {
    return '\0';
  }
  const int offset = (second - 0xBC) * 0x40 + third - 0x80;
  return offset >= 1 && offset <= 0x5E ? static_cast<char>(' ' + offset) : '\0';
}

bool is_digit(char byte) {
  return byte >= '0' && byte <= '9';
}

/// A line that was changed in one way, and how to tell of that.
struct Attempt {
  std::string text;
  std::string_view label;
  std::string_view title;
};

Attempt with_plain_characters(std::string_view line) {
  Attempt attempt = {"", "", "write plain characters"};
  while (!line.empty()) {
    const std::size_t length = core::unicode::character_length(line);
    const auto* const found =
        std::find_if(characters.begin(), characters.end(),
                     [&](const Character& item) { return line.starts_with(item.written); });
    const char narrow = narrow_form(line);
    std::string_view label;
    if (found != characters.end()) {
      attempt.text += found->meant;
      label = found->label;
    } else if (narrow != '\0') {
      attempt.text += narrow;
      label = wide;
    } else {
      attempt.text += line.substr(0, length);
    }
    attempt.label = attempt.label.empty() ? label : attempt.label;
    line.remove_prefix(length);
  }
  return attempt;
}

Attempt with_decimal_points(std::string line) {
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    const bool follows = i == 0 || line[i - 1] != ',';
    if (line[i] == ',' && is_digit(line[i + 1]) && follows) {
      line[i] = '.';
    }
  }
  return {std::move(line), "a comma for a decimal point", "write decimal points"};
}

Attempt without_commas(std::string line) {
  std::replace_if(
      line.begin(), line.end(), [](char byte) { return byte == ',' || byte == ';'; }, ' ');
  return {std::move(line), "a comma between fields", "write blanks between the fields"};
}

// In fields that are all digits and look-alikes of digits.
Attempt with_digits_for_letters(std::string line) {
  const auto look_alike = [](char byte) {
    return byte == 'O' || byte == 'o' ? '0' : byte == 'l' || byte == 'I' ? '1' : '\0';
  };
  const std::vector<std::string_view> words = words_of(line);
  std::vector<std::size_t> letters;
  for (std::size_t i = 1; i < words.size(); ++i) {
    const std::string_view word = words[i];
    const bool is_numeric = std::all_of(word.begin(), word.end(), [&](char byte) {
      return is_digit(byte) || look_alike(byte) != '\0' || byte == '.' || byte == '-' ||
             byte == '+' || byte == 'e' || byte == 'E' || byte == 'd' || byte == 'D';
    });
    for (std::size_t at = 0; is_numeric && at < word.size(); ++at) {
      if (look_alike(word[at]) != '\0') {
        letters.push_back(static_cast<std::size_t>(word.data() - line.data()) + at);
      }
    }
  }
  for (const std::size_t at : letters) {
    line[at] = look_alike(line[at]);
  }
  return {std::move(line), "a letter for a digit", "write digits"};
}

// A blank behind the label: before the sign of `F-1.43`, before the digits of `F1.43`.
Attempt with_label_apart(std::string line) {
  const std::string_view text = core::text::trim_view(line);
  const auto begin = static_cast<std::size_t>(text.data() - line.data());
  std::size_t end = begin + letters_of_label(text).size();
  std::size_t digits = end;
  while (digits < line.size() && is_digit(line[digits])) {
    ++digits;
  }
  if (digits < line.size() && (line[digits] == '-' || line[digits] == '+')) {
    end = digits;
  }
  if (end > begin && end < line.size()) {
    line.insert(end, 1, ' ');
  }
  return {std::move(line), "label and number without a blank between", "write a blank between"};
}

// A blank before each sign that stands behind a digit, and so is not that of an exponent.
Attempt with_numbers_apart(std::string_view line) {
  Attempt attempt = {"", "two numbers without a blank between", "write a blank between"};
  for (std::size_t i = 0; i < line.size(); ++i) {
    const bool is_sign = line[i] == '-' || line[i] == '+';
    if (is_sign && i > 0 && (is_digit(line[i - 1]) || line[i - 1] == '.')) {
      attempt.text += ' ';
    }
    attempt.text += line[i];
  }
  return attempt;
}

// Rows numbered by the program that they were copied from.
Attempt without_first_field(std::string_view line) {
  std::string_view rest = line;
  const bool is_count = core::number::parse_integer(core::text::take_word(rest)).has_value();
  return {std::string(is_count ? core::text::trim_view(rest) : line), "a number before the label",
          "drop the number"};
}

Attempt with_dots_once(std::string line) {
  for (std::size_t i = 1; i < line.size();) {
    if (line[i] == '.' && line[i - 1] == '.') {
      line.erase(i, 1);
    } else {
      ++i;
    }
  }
  return {std::move(line), "a second decimal point", "write one decimal point"};
}

AtomRepair repair_from(std::string_view line, const Attempt& attempt, bool is_safe) {
  const auto [at, other] =
      std::mismatch(line.begin(), line.end(), attempt.text.begin(), attempt.text.end());
  const auto begin = static_cast<std::size_t>(at - line.begin());
  std::size_t same = 0;
  while (same < std::min(line.size(), attempt.text.size()) - begin &&
         line[line.size() - same - 1] == attempt.text[attempt.text.size() - same - 1]) {
    ++same;
  }
  AtomRepair repair;
  repair.range = {begin, line.size() - same};
  repair.text = attempt.text.substr(begin, attempt.text.size() - same - begin);
  repair.label = attempt.label;
  repair.title = attempt.title;
  repair.is_safe = is_safe;
  repair.fault = repair.range;
  return repair;
}

// Where one character was replaced, it is at fault; where something was put in between, the field.
void find_fault(std::string_view line, AtomRepair& repair) {
  std::size_t begin = repair.range.begin;
  if (!repair.range.empty()) {
    // The bytes of two characters can begin in the same way.
    while (begin > 0 && (static_cast<unsigned char>(line[begin]) & 0xC0U) == 0x80U) {
      --begin;
    }
    const std::size_t length = core::unicode::character_length(line.substr(begin));
    repair.fault = {begin, begin + length};
    return;
  }
  const auto is_break = [&](std::size_t at) { return core::text::is_space(line[at]); };
  std::size_t end = begin;
  while (begin > 0 && !is_break(begin - 1)) {
    --begin;
  }
  while (end < line.size() && !is_break(end)) {
    ++end;
  }
  repair.fault = {begin, end};
}

TextRange range_in(std::string_view line, std::string_view part) {
  const auto begin = static_cast<std::size_t>(part.data() - line.data());
  return {begin, begin + part.size()};
}

// The character behind the longest number that a field begins with; all of it where there is none.
TextRange fault_of_number(std::string_view line, std::string_view field) {
  for (std::size_t length = field.size(); length-- > 1;) {
    if (is_decimal(field.substr(0, length))) {
      const std::size_t size = core::unicode::character_length(field.substr(length));
      return range_in(line, field.substr(length, size));
    }
  }
  return range_in(line, field);
}

std::string count_of(std::size_t count, std::size_t wanted) {
  return std::to_string(count) + " of " + std::to_string(wanted) + " coordinates";
}

AtomFault fault_of_row(std::string_view line, const std::vector<std::string_view>& words,
                       std::size_t wanted) {
  for (std::size_t i = 1; i < words.size() && i <= wanted; i += 2) {
    if (!core::number::parse_integer(words[i])) {
      return {range_in(line, words[i]), "not the number of an atom above"};
    }
  }
  if (words.size() > wanted + 1) {
    return {range_in(line, words[wanted + 1]), "more than the row takes"};
  }
  return {range_in(line, core::text::trim_view(line)),
          std::to_string(words.size() - 1) + " of " + std::to_string(wanted) + " fields"};
}

}  // namespace

std::optional<AtomRepair> repair_atom_line(std::string_view line, const GeometryReader& reader) {
  const auto reads = [&](const std::string& text) {
    const GeometryLineKind kind = reader.kind_of(text);
    return kind != GeometryLineKind::Malformed && kind != GeometryLineKind::Nothing;
  };
  const auto repaired = [&](const Attempt& attempt, bool is_safe) {
    AtomRepair repair = repair_from(line, attempt, is_safe);
    find_fault(line, repair);
    return repair;
  };
  const Attempt plain = with_plain_characters(line);
  if (reads(plain.text)) {
    return repaired(plain, true);
  }
  // What has to be done in two steps is told by the first of them.
  const bool is_plain = plain.text == line;
  const auto told = [&](Attempt attempt) {
    return is_plain ? attempt : Attempt{std::move(attempt.text), plain.label, plain.title};
  };
  const Attempt pointed = with_decimal_points(plain.text);
  const Attempt parted = without_commas(plain.text);
  if (reads(pointed.text)) {
    return repaired(told(pointed), !reads(parted.text));
  }
  const bool is_pointed = pointed.text != plain.text;
  for (const std::string& text : {plain.text, pointed.text}) {
    for (const Attempt& attempt :
         {without_commas(text), with_digits_for_letters(text), with_numbers_apart(text),
          with_label_apart(text), with_label_apart(with_numbers_apart(text).text),
          with_dots_once(text), without_first_field(text)}) {
      if (reads(attempt.text)) {
        return repaired(told(attempt), false);
      }
    }
    if (!is_pointed) {
      break;
    }
  }
  return std::nullopt;
}

AtomFault fault_of_atom_line(std::string_view line, const GeometryReader& reader) {
  const std::vector<std::string_view> words = words_of(line);
  if (reader.is_internal()) {
    return fault_of_row(line, words, fields_of_row(reader.rows()));
  }
  constexpr std::size_t wanted = 3;
  if (is_decimal(words[0])) {
    return {range_in(line, words[0]), "no label of an atom"};
  }
  for (std::size_t i = 1; i < words.size() && i <= wanted; ++i) {
    if (!is_decimal(words[i])) {
      return {fault_of_number(line, words[i]), "not a number"};
    }
  }
  if (words.size() <= wanted) {
    return {range_in(line, core::text::trim_view(line)), count_of(words.size() - 1, wanted)};
  }
  if (words.size() > wanted + 1) {
    return {range_in(line, words[wanted + 1]), "more than three coordinates"};
  }
  return {range_in(line, core::text::trim_view(line)), "not an atom"};
}

}  // namespace kelp::input::bdf
