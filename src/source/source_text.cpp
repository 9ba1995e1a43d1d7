// A text is cut into lines once; all that is kept of a line is where it begins. Columns that do not
// count bytes cost a walk along the line. In a long line the columns of some bytes are noted when
// the text is cut, so that a million findings on one line stay cheap.

#include <algorithm>
#include <utility>
#include <vector>

#include "kelp/core/text.hpp"
#include "kelp/core/unicode.hpp"
#include "kelp/input/bdf/source.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::size_t milestone_distance = 4096;
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

/// The columns of one byte in a long line, counted from 0.
struct Milestone {
  std::size_t byte;  ///< from the beginning of the text
  std::size_t code_points;
  std::size_t utf16_units;
};

}  // namespace

struct SourceText::Impl {
  explicit Impl(std::string source) : text(std::move(source)) {
    std::string_view rest = text;
    if (rest.starts_with(byte_order_mark)) {
      rest.remove_prefix(byte_order_mark.size());
    }
    begins.reserve(static_cast<std::size_t>(std::count(rest.begin(), rest.end(), '\n')) + 2);
    while (!rest.empty()) {
      const std::size_t begin = text.size() - rest.size();
      begins.push_back(begin);
      measure(begin, core::text::take_line(rest));
    }
    begins.push_back(text.size());
  }

  void measure(std::size_t begin, std::string_view line) {
    std::size_t passed = 0;
    Milestone milestone = {begin, 0, 0};
    while (line.size() - passed > milestone_distance) {
      const std::size_t goal = passed + milestone_distance;
      while (passed < goal) {
        const std::size_t length = core::unicode::character_length(line.substr(passed));
        passed += length;
        ++milestone.code_points;
        milestone.utf16_units += length == 4 ? 2 : 1;
      }
      milestone.byte = begin + passed;
      milestones.push_back(milestone);
    }
  }

  std::size_t line_count() const { return begins.size() - 1; }
  bool has_line(std::size_t number) const { return number >= 1 && number <= line_count(); }

  // The bytes of a line, its end included.
  TextRange full_line(std::size_t number) const {
    return has_line(number) ? TextRange{begins[number - 1], begins[number]}
                            : TextRange{text.size(), text.size()};
  }

  // Only the ends are looked at: a line may be as long as the text, and be asked for often.
  TextRange line(std::size_t number) const {
    TextRange range = full_line(number);
    for (const char end : {'\n', '\r'}) {
      if (!range.empty() && text[range.end - 1] == end) {
        --range.end;
      }
    }
    return range;
  }

  // Returns what counts columns from the line's beginning to the nearest milestone before a byte.
  Milestone start_of_count(std::size_t line_begin, std::size_t byte) const {
    const auto behind =
        std::upper_bound(milestones.begin(), milestones.end(), byte,
                         [](std::size_t wanted, const Milestone& at) { return wanted < at.byte; });
    if (behind != milestones.begin() && std::prev(behind)->byte > line_begin) {
      return *std::prev(behind);
    }
    return {line_begin, 0, 0};
  }

  // Returns the column of a byte, counted from 0.
  std::size_t column(std::size_t line_begin, std::size_t byte, ColumnUnit unit) const {
    if (unit == ColumnUnit::Byte) {
      return byte - line_begin;
    }
    const Milestone start = start_of_count(line_begin, byte);
    const std::string_view walked = std::string_view(text).substr(start.byte, byte - start.byte);
    return unit == ColumnUnit::CodePoint
               ? start.code_points + core::unicode::count_code_points(walked)
               : start.utf16_units + core::unicode::count_utf16_units(walked);
  }

  std::string text;
  std::vector<std::size_t> begins;    ///< of each line, and the end of the text
  std::vector<Milestone> milestones;  ///< in the order of the text
};

SourceText::SourceText() : SourceText(std::string()) {}
SourceText::SourceText(std::string text) : impl_(std::make_shared<const Impl>(std::move(text))) {}
SourceText::SourceText(const SourceText& other) = default;
// A text that was moved from stays one that can be asked.
// NOLINTNEXTLINE(performance-move-constructor-init,cert-oop11-cpp): as said.
SourceText::SourceText(SourceText&& other) noexcept : impl_(other.impl_) {}
SourceText& SourceText::operator=(const SourceText& other) = default;
SourceText& SourceText::operator=(SourceText&& other) noexcept {
  impl_ = other.impl_;
  return *this;
}
SourceText::~SourceText() = default;

std::string_view SourceText::text() const {
  return impl_->text;
}

std::string_view SourceText::text_of(const TextRange& range) const {
  const std::size_t begin = std::min(range.begin, impl_->text.size());
  return text().substr(begin, range.end > begin ? range.end - begin : 0);
}

std::size_t SourceText::line_count() const {
  return impl_->line_count();
}

TextRange SourceText::full_line_range(std::size_t number) const {
  return impl_->full_line(number);
}

TextRange SourceText::line_range(std::size_t number) const {
  return impl_->line(number);
}

std::string_view SourceText::line(std::size_t number) const {
  const TextRange range = impl_->line(number);
  return {impl_->text.data() + range.begin, range.size()};
}

std::string_view SourceText::line_end(std::size_t number) const {
  return text_of({line_range(number).end, full_line_range(number).end});
}

std::size_t SourceText::line_at(std::size_t byte) const {
  const auto& begins = impl_->begins;
  // Not the last one, which is the end of the text.
  const auto behind = std::upper_bound(begins.begin(), begins.end() - 1, byte);
  return std::max<std::size_t>(1, static_cast<std::size_t>(behind - begins.begin()));
}

TextPosition SourceText::position(std::size_t byte, ColumnUnit unit) const {
  const std::size_t number = line_at(byte);
  const TextRange line = line_range(number);
  return {number, impl_->column(line.begin, std::clamp(byte, line.begin, line.end), unit) + 1};
}

std::size_t SourceText::byte_at(const TextPosition& position, ColumnUnit unit) const {
  const TextRange line = line_range(position.line);
  const std::size_t wanted = std::max<std::size_t>(position.column, 1) - 1;
  if (unit == ColumnUnit::Byte) {
    return std::min(line.begin + wanted, line.end);
  }
  std::size_t byte = line.begin;
  for (std::size_t passed = 0; byte < line.end && passed < wanted;) {
    const std::size_t length = core::unicode::character_length(text_of({byte, line.end}));
    byte += length;
    passed += unit == ColumnUnit::Utf16 && length == 4 ? 2 : 1;
  }
  return byte;
}

TextRange SourceText::trimmed(TextRange range) const {
  const std::string_view whole = text();
  range.end = std::min(range.end, whole.size());
  while (range.begin < range.end && core::text::is_space(whole[range.begin])) {
    ++range.begin;
  }
  while (range.begin < range.end && core::text::is_space(whole[range.end - 1])) {
    --range.end;
  }
  return range;
}

TextRange SourceText::content(std::size_t number) const {
  return trimmed(line_range(number));
}

TextRange SourceText::first_word(const TextRange& range) const {
  TextRange word = trimmed(range);
  std::string_view rest = text_of(word);
  word.end = word.begin + core::text::take_word(rest).size();
  return word;
}

TextRange SourceText::first_word(std::size_t number) const {
  return first_word(line_range(number));
}

std::string apply_edits(std::string_view text, const std::vector<TextEdit>& edits) {
  std::string result;
  std::size_t copied = 0;
  for (const TextEdit& edit : edits) {
    if (edit.range.begin < copied || edit.range.end < edit.range.begin ||
        edit.range.end > text.size()) {
      continue;
    }
    result += text.substr(copied, edit.range.begin - copied);
    result += edit.text;
    copied = edit.range.end;
  }
  return result.append(text.substr(copied));
}

}  // namespace kelp::input::bdf
