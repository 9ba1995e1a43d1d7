#include "easy_token_places.hpp"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "kelp/core/text.hpp"
#include "line_of.hpp"

namespace kelp::app {
namespace {

using input::bdf::EasyToken;

// A message ends with the value in quotation marks, and tells the keyword before.
bool is_about(std::string_view message, const EasyToken& token) {
  return !token.value.empty() && message.ends_with('\'' + token.value + "'.") &&
         message.find('\'' + token.key + "' has") != std::string_view::npos;
}

}  // namespace

std::optional<EasyTokenPlace> EasyTokenPlaces::next(const input::bdf::ValidationIssue& issue) {
  const auto& tokens = input_.result.data.easy_tokens;
  const std::size_t line = line_of(issue);
  while (token_ < tokens.size() && line_of(tokens[token_]) <= line) {
    const EasyToken& token = tokens[token_];
    ++token_;
    const auto value = take_value(token);
    if (value && value->line == line && is_about(issue.message, token)) {
      return EasyTokenPlace{&token, *value};
    }
  }
  return std::nullopt;
}

// "key = value" is one token of three words: its text is that of its words, joined.
std::optional<LinePart> EasyTokenPlaces::take_value(const EasyToken& token) {
  const auto number = line_of(token);
  if (line_ != number) {
    line_ = number;
    at_ = 0;
  }
  const std::string_view line = input_.source.line(number);
  const std::size_t value_begin = token.text.find('=') + 1;
  const std::size_t value_end = std::min(token.text.find('#'), token.text.size());
  LinePart part{number, 0, 0};
  for (std::size_t passed = 0; passed < token.text.size();) {
    std::string_view rest = line.substr(at_);
    const std::size_t size = core::text::take_word(rest).size();
    const std::size_t end = line.size() - rest.size();
    const std::size_t begin = end - size;
    if (size == 0) {
      return std::nullopt;
    }
    if (value_begin >= passed && value_begin < passed + size) {
      part.begin = begin + (value_begin - passed);
    }
    if (value_end > passed && value_end <= passed + size) {
      part.end = begin + (value_end - passed);
    }
    passed += size;
    at_ = end;
  }
  return part.begin < part.end ? std::optional(part) : std::nullopt;
}

}  // namespace kelp::app
