#include "schema_lint/acceptance.hpp"

#include <vector>

#include "model/value_lines.hpp"
#include "validate/value_check.hpp"

namespace kelp::input::bdf::lint {

bool accepts(const EntrySchemaInfo& info, const std::string& value) {
  std::vector<std::string_view> lines;
  if (const std::string_view line = clean_value_line(value); !line.empty()) {
    lines.push_back(line);
  }
  return lines_match(lines, info);
}

std::string_view refusing_part(const EntrySchemaInfo& info, const std::string& value) {
  EntrySchemaInfo relaxed = info;
  relaxed.allowed.clear();
  if (accepts(relaxed, value)) {
    return "the values allowed";
  }
  relaxed.min.reset();
  relaxed.max.reset();
  if (accepts(relaxed, value)) {
    return "the bounds";
  }
  relaxed.value_type = "any";
  relaxed.row_types.clear();
  return accepts(relaxed, value) ? "the type" : "the number of fields";
}

}  // namespace kelp::input::bdf::lint
