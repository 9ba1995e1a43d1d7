// Columns count characters, so that a place in a line costs a walk along the line. In a long line
// the columns of some places are noted once, so that a million findings on one line stay cheap.

#include "source_text.hpp"

#include <algorithm>
#include <utility>

#include "kelp/core/text.hpp"
#include "unicode.hpp"

namespace kelp::app {
namespace {

constexpr std::size_t milestone_distance = 4096;

}  // namespace

SourceText::SourceText(std::string text) : text_(std::move(text)) {
  for (std::string_view rest = text_; !rest.empty();) {
    lines_.push_back(core::text::take_line(rest));
    measure(lines_.back());
  }
}

void SourceText::measure(std::string_view line) {
  std::size_t passed = 0;
  std::size_t column = 0;
  while (line.size() - passed > milestone_distance) {
    const std::size_t goal = passed + milestone_distance;
    for (; passed < goal; ++column) {
      passed += character_length(line.substr(passed));
    }
    milestones_.push_back({byte_of(line) + passed, column});
  }
}

std::size_t SourceText::byte_of(std::string_view line) const {
  return static_cast<std::size_t>(line.data() - text_.data());
}

std::string_view SourceText::line(std::size_t number) const {
  return number >= 1 && number <= lines_.size() ? lines_[number - 1] : std::string_view();
}

std::string_view SourceText::text_of(const LinePart& part) const {
  return line(part.line).substr(part.begin, part.end - part.begin);
}

LinePart SourceText::trimmed(LinePart part) const {
  const std::string_view text = line(part.line);
  while (part.begin < part.end && core::text::is_space(text[part.begin])) {
    ++part.begin;
  }
  while (part.begin < part.end && core::text::is_space(text[part.end - 1])) {
    --part.end;
  }
  return part;
}

LinePart SourceText::content(std::size_t number) const {
  return trimmed({number, 0, line(number).size()});
}

LinePart SourceText::first_word(std::size_t number) const {
  LinePart part = content(number);
  std::string_view rest = line(number).substr(part.begin);
  part.end = part.begin + core::text::take_word(rest).size();
  return part;
}

std::size_t SourceText::column(std::string_view line, std::size_t byte) const {
  const std::size_t line_byte = byte_of(line);
  const auto behind = std::upper_bound(
      milestones_.begin(), milestones_.end(), line_byte + byte,
      [](std::size_t wanted, const Milestone& milestone) { return wanted < milestone.byte; });
  Milestone start = {line_byte, 0};
  if (behind != milestones_.begin() && std::prev(behind)->byte > line_byte) {
    start = *std::prev(behind);
  }
  const std::size_t passed = start.byte - line_byte;
  return start.column + count_code_points(line.substr(passed, byte - passed));
}

Position SourceText::position(std::size_t number, std::size_t byte) const {
  Position position;
  position.line = number;
  if (number >= 1 && number <= lines_.size()) {
    const std::string_view text = lines_[number - 1];
    byte = std::min(byte, text.size());
    position.column = column(text, byte) + 1;
    position.byte = byte_of(text) + byte;
  }
  return position;
}

Range SourceText::range(const LinePart& part) const {
  return {position(part.line, part.begin), position(part.line, part.end)};
}

void place_finding(Finding& finding, const SourceText& source, const LinePart& part) {
  // No report shows more of a line.
  constexpr std::size_t margin = 1000;
  const std::string_view line = source.line(part.line);
  const std::size_t at = std::min(part.begin, line.size());
  const std::size_t begin = at - std::min(at, margin);
  finding.range = source.range(part);
  finding.source_line = line.substr(begin, at - begin + margin);
  finding.source_line_byte = finding.range->start.byte - (at - begin);
}

}  // namespace kelp::app
