#include "source_text.hpp"

#include <algorithm>
#include <utility>

#include "kelp/core/text.hpp"
#include "unicode.hpp"

namespace kelp::app {

SourceText::SourceText(std::string text) : text_(std::move(text)) {
  for (std::string_view rest = text_; !rest.empty();) {
    lines_.push_back(core::text::take_line(rest));
  }
}

std::string_view SourceText::line(std::size_t number) const {
  return number >= 1 && number <= lines_.size() ? lines_[number - 1] : std::string_view();
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
  const std::string_view text = line(number);
  std::string_view rest = text.substr(part.begin);
  part.end = part.begin + core::text::take_word(rest).size();
  return part;
}

Position SourceText::position(std::size_t number, std::size_t byte) const {
  Position position;
  position.line = number;
  if (number >= 1 && number <= lines_.size()) {
    const std::string_view text = lines_[number - 1];
    byte = std::min(byte, text.size());
    position.column = count_code_points(text.substr(0, byte)) + 1;
    position.byte = static_cast<std::size_t>(text.data() - text_.data()) + byte;
  }
  return position;
}

Range SourceText::range(const LinePart& part) const {
  return {position(part.line, part.begin), position(part.line, part.end)};
}

}  // namespace kelp::app
