#include "source_text.hpp"

namespace kelp::app {

using input::bdf::TextRange;

std::string_view SourceText::text_of(const LinePart& part) const {
  return line(part.line).substr(part.begin, part.end - part.begin);
}

LinePart SourceText::trimmed(const LinePart& part) const {
  return this->part(part.line, source_.trimmed(range(part)));
}

LinePart SourceText::content(std::size_t number) const {
  return part(number, source_.content(number));
}

LinePart SourceText::first_word(std::size_t number) const {
  return part(number, source_.first_word(number));
}

TextRange SourceText::range(const LinePart& part) const {
  const std::size_t begin = source_.line_range(part.line).begin;
  return {begin + part.begin, begin + part.end};
}

LinePart SourceText::part(std::size_t number, const TextRange& range) const {
  const std::size_t begin = source_.line_range(number).begin;
  return {number, range.begin - begin, range.end - begin};
}

}  // namespace kelp::app
