#include "rewrite/same_value.hpp"

#include <algorithm>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "model/value_lines.hpp"

namespace kelp::input::bdf {
namespace {

bool same_field(std::string_view left, std::string_view right) {
  if (left == right) {
    return true;
  }
  const auto left_number = core::number::parse_float(left);
  const auto right_number = core::number::parse_float(right);
  if (left_number && right_number) {
    return *left_number == *right_number;
  }
  // A name of a file keeps its case.
  const bool is_path = left.find_first_of("/\\$=") != std::string_view::npos ||
                       left.find('.') != std::string_view::npos;
  return !is_path && core::text::equals_ignoring_case(left, right);
}

std::vector<std::string_view> telling_lines(const std::vector<std::string>& values) {
  std::vector<std::string_view> lines;
  for (const ValueLine& line : numbered_lines(values)) {
    lines.push_back(line.text);
  }
  return lines;
}

}  // namespace

bool same_value_line(std::string_view left, std::string_view right) {
  std::vector<std::string_view> left_fields;
  std::vector<std::string_view> right_fields;
  split_value_tokens(clean_value_line(left), left_fields);
  split_value_tokens(clean_value_line(right), right_fields);
  return std::equal(left_fields.begin(), left_fields.end(), right_fields.begin(),
                    right_fields.end(), same_field);
}

bool same_values(const std::vector<std::string>& left, const std::vector<std::string>& right) {
  const auto left_lines = telling_lines(left);
  const auto right_lines = telling_lines(right);
  return std::equal(left_lines.begin(), left_lines.end(), right_lines.begin(), right_lines.end(),
                    same_value_line);
}

}  // namespace kelp::input::bdf
