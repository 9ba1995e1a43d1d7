// A name that is near may be written unasked only where nothing else can be meant. That is told
// from the word itself and from what stands behind it: of another keyword it would be no value.

#include "diagnose/certain_names.hpp"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "kelp/core/number.hpp"
#include "kelp/core/spelling.hpp"
#include "kelp/core/text.hpp"
#include "model/value_lines.hpp"
#include "source/lines.hpp"
#include "validate/value_check.hpp"

namespace kelp::input::bdf {
namespace {

using core::text::to_lower;

bool is_digit(char byte) {
  return byte >= '0' && byte <= '9';
}

std::string digits_of(std::string_view word) {
  std::string digits;
  std::copy_if(word.begin(), word.end(), std::back_inserter(digits), is_digit);
  return digits;
}

// `n0symm`: a digit that looks like the letter that is meant.
bool looks_like(std::string_view written, std::string_view meant) {
  return std::equal(written.begin(), written.end(), meant.begin(), meant.end(),
                    [](char left, char right) {
                      const char letter = to_lower(right);
                      return to_lower(left) == letter || (left == '0' && letter == 'o') ||
                             (left == '1' && (letter == 'l' || letter == 'i'));
                    });
}

bool is_letter(char byte) {
  return to_lower(byte) >= 'a' && to_lower(byte) <= 'z';
}

// The first letters agree, or are swapped, or one stands for the other in a word of some length; or
// a sign that is none of a name stands before them.
bool begin_alike(std::string_view written, std::string_view meant) {
  constexpr std::size_t long_enough = 5;
  const bool has_sign = !is_letter(written[0]) && written.substr(1) == meant;
  const bool is_replaced = written.size() == meant.size() && meant.size() >= long_enough &&
                           core::text::equals_ignoring_case(written.substr(1), meant.substr(1));
  return has_sign || is_replaced || to_lower(written[0]) == to_lower(meant[0]) ||
         (to_lower(written[0]) == to_lower(meant[1]) && to_lower(written[1]) == to_lower(meant[0]));
}

bool tells_nothing(const ModuleEntry& entry) {
  return !entry.known && (is_blank(entry.raw_line) || is_remark(entry.raw_line));
}

}  // namespace

bool is_certain_slip(std::string_view written, std::string_view meant) {
  constexpr std::size_t long_name = 10;
  const std::size_t most = meant.size() >= long_name ? 2 : 1;
  if (looks_like(written, meant)) {
    return true;
  }
  return written.size() > 1 && meant.size() > 1 && begin_alike(written, meant) &&
         digits_of(written) == digits_of(meant) &&
         core::spelling::slips_between(written, meant, most) <= most;
}

std::optional<GluedNumber> glued_number(std::string_view word) {
  std::size_t begin = word.size();
  while (begin > 0 && is_digit(word[begin - 1])) {
    --begin;
  }
  if (begin == word.size()) {
    return std::nullopt;
  }
  if (begin > 0 && (word[begin - 1] == '-' || word[begin - 1] == '+')) {
    --begin;
  }
  return begin == 0 ? std::nullopt
                    : std::optional(GluedNumber{word.substr(0, begin), word.substr(begin)});
}

std::vector<std::string_view> value_behind(const std::vector<ModuleEntry>& siblings,
                                           const ModuleEntry& entry) {
  std::string_view rest = without_comment(entry.raw_line);
  core::text::take_word(rest);
  if (!is_blank(rest)) {
    return {core::text::trim_view(rest)};
  }
  std::vector<std::string_view> lines = cleaned_lines(entry);
  const auto begin = siblings.begin() + (&entry - siblings.data()) + 1;
  for (auto next = begin; lines.empty() && next != siblings.end() && !next->known; ++next) {
    if (!tells_nothing(*next)) {
      lines.push_back(clean_value_line(next->raw_line));
    }
  }
  return lines;
}

bool takes_value(const EntrySchemaInfo& info, const std::vector<std::string_view>& lines) {
  switch (info.kind) {
    case EntryValueKind::Flag:
      return std::none_of(lines.begin(), lines.end(), [](std::string_view line) {
        return core::number::parse_float(first_word(line)).has_value();
      });
    case EntryValueKind::Scalar:
    case EntryValueKind::Tuple:
    case EntryValueKind::MultiLine:
      return !lines.empty() && lines_match(lines, info);
    case EntryValueKind::CountedRows:
      return !lines.empty() && core::number::parse_float(first_word(lines.front())).has_value();
    case EntryValueKind::TerminatedBlock:
    case EntryValueKind::NestedBlock:
    case EntryValueKind::Raw:
      return true;
  }
  return true;
}

}  // namespace kelp::input::bdf
