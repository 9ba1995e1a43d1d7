#include "model/same_value.hpp"

#include <algorithm>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "model/value_lines.hpp"

namespace kelp::input::bdf {
namespace {

std::string normal_field(std::string_view field) {
  if (const auto number = core::number::parse_float(field)) {
    return core::number::to_text(*number == 0.0 ? 0.0 : *number);
  }
  // A name of a file keeps its case.
  const bool is_path = field.find_first_of("/\\$=.") != std::string_view::npos;
  return is_path ? std::string(field) : core::text::to_lower(field);
}

bool same_field(std::string_view left, std::string_view right) {
  return left == right || normal_field(left) == normal_field(right);
}

std::vector<std::string_view> fields_of(std::string_view line) {
  std::vector<std::string_view> fields;
  split_value_tokens(clean_value_line(line), fields);
  return fields;
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
  const auto left_fields = fields_of(left);
  const auto right_fields = fields_of(right);
  return std::equal(left_fields.begin(), left_fields.end(), right_fields.begin(),
                    right_fields.end(), same_field);
}

bool same_values(const std::vector<std::string>& left, const std::vector<std::string>& right) {
  const auto left_lines = telling_lines(left);
  const auto right_lines = telling_lines(right);
  return std::equal(left_lines.begin(), left_lines.end(), right_lines.begin(), right_lines.end(),
                    same_value_line);
}

std::string normal_value_line(std::string_view line) {
  std::string normal;
  for (const std::string_view field : fields_of(line)) {
    normal += (normal.empty() ? "" : " ") + normal_field(field);
  }
  return normal;
}

}  // namespace kelp::input::bdf
