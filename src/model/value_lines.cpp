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

void split_value_tokens(std::string_view line, std::vector<std::string_view>& tokens) {
  std::size_t at = 0;
  while (at < line.size()) {
    while (at < line.size() && is_separator(line[at])) {
      ++at;
    }
    const std::size_t begin = at;
    while (at < line.size() && !is_separator(line[at])) {
      ++at;
    }
    if (at > begin) {
      tokens.push_back(line.substr(begin, at - begin));
    }
  }
}

}  // namespace kelp::input::bdf
