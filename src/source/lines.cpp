#include "source/lines.hpp"

#include <algorithm>

#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

using core::text::equals_ignoring_case;
using core::text::trim_view;

bool starts_with_ignoring_case(std::string_view text, std::string_view prefix) {
  return equals_ignoring_case(text.substr(0, prefix.size()), prefix);
}

bool starts_with_any_of(std::string_view line, std::string_view bytes) {
  const std::string_view text = trim_view(line);
  return !text.empty() && bytes.find(text.front()) != std::string_view::npos;
}

}  // namespace

Lines split_lines(std::string_view text) {
  Lines lines;
  while (!text.empty()) {
    lines.push_back(take_line(text));
  }
  return lines;
}

SourceSpan span_of_line(std::size_t index, std::string_view line) {
  return {index + 1, 1, line.size()};
}

std::string_view without_comment(std::string_view line) {
  const std::size_t hash = line.find('#');
  const bool is_behind = hash != std::string_view::npos && !trim_view(line.substr(0, hash)).empty();
  return is_behind ? line.substr(0, hash) : line;
}

bool is_same_line(std::string_view line, std::string_view other) {
  return equals_ignoring_case(trim_view(line), trim_view(other));
}

std::string_view first_word(std::string_view line) {
  const std::string_view text = trim_view(line);
  return text.substr(0, text.find_first_of(" \t\r\n"));
}

bool is_blank(std::string_view line) {
  return trim_view(line).empty();
}

bool is_module_border(std::string_view line) {
  const std::string_view text = trim_view(line);
  return text.size() >= 2 && text.front() == '$';
}

bool is_module_end(std::string_view line) {
  return equals_ignoring_case(trim_view(line), "$end");
}

bool is_module_header(std::string_view line) {
  return is_module_border(line) && !is_module_end(line);
}

bool is_shell_line(std::string_view line) {
  return starts_with_any_of(line, "%");
}

bool is_database_start(std::string_view line) {
  return equals_ignoring_case(trim_view(line), "&database");
}

bool is_database_end(std::string_view line) {
  return equals_ignoring_case(trim_view(line), "&end");
}

bool is_remark(std::string_view line) {
  return starts_with_any_of(line, "#*");
}

bool is_script_line(std::string_view line) {
  return trim_view(line).starts_with("#!");
}

bool is_geometry_start(std::string_view line) {
  constexpr std::string_view keyword = "geometry";
  const std::string_view text = trim_view(line);
  if (!starts_with_ignoring_case(text, keyword)) {
    return false;
  }
  return text.size() == keyword.size() || text[keyword.size()] == '#' ||
         core::text::is_space(text[keyword.size()]);
}

bool is_geometry_end(std::string_view line) {
  return starts_with_ignoring_case(trim_view(line), "end geometry");
}

bool starts_body(std::string_view line) {
  return is_module_header(line) || is_shell_line(line) || is_database_start(line);
}

bool is_indented(std::string_view line) {
  return !line.empty() && (line.front() == ' ' || line.front() == '\t');
}

}  // namespace kelp::input::bdf
