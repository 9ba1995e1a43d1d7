#include "model/value_lines.hpp"

#include <cstddef>

#include "kelp/core/text.hpp"
#include "schema/normalize_key.hpp"

namespace kelp::input::bdf {
namespace {

bool is_separator(char byte) {
  return byte == ',' || core::text::is_space(byte);
}

}  // namespace

std::string_view clean_value_line(std::string_view line) {
  return core::text::trim_view(line.substr(0, line.find('#')));
}

void add_cleaned_lines(const ModuleEntry& entry, std::vector<std::string_view>& lines) {
  for (const std::string& value : entry.values) {
    const std::string_view line = clean_value_line(value);
    if (!line.empty()) {
      lines.push_back(line);
    }
  }
}

std::vector<std::string_view> cleaned_lines(const ModuleEntry& entry) {
  std::vector<std::string_view> lines;
  add_cleaned_lines(entry, lines);
  return lines;
}

std::vector<ValueLine> numbered_lines(const std::vector<std::string>& values) {
  std::vector<ValueLine> lines;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const std::string_view line = clean_value_line(values[i]);
    if (!line.empty()) {
      lines.push_back({i, line});
    }
  }
  return lines;
}

std::string first_value(const ModuleEntry& entry) {
  for (const std::string& value : entry.values) {
    const std::string_view line = clean_value_line(value);
    if (!line.empty()) {
      return normalize_key(line);
    }
  }
  return {};
}

std::string_view take_value_token(std::string_view& rest) {
  std::size_t begin = 0;
  while (begin < rest.size() && is_separator(rest[begin])) {
    ++begin;
  }
  std::size_t end = begin;
  while (end < rest.size() && !is_separator(rest[end])) {
    ++end;
  }
  const std::string_view token = rest.substr(begin, end - begin);
  rest.remove_prefix(end);
  return token;
}

void split_value_tokens(std::string_view line, std::vector<std::string_view>& tokens) {
  for (auto token = take_value_token(line); !token.empty(); token = take_value_token(line)) {
    tokens.push_back(token);
  }
}

}  // namespace kelp::input::bdf
