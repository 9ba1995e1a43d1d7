// A row of basis-block gives elements a basis set, `C,O=6-31g`; or it is one name alone, for all
// the others. A name has no blank in it.

#include "diagnose/basis_rows.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include "kelp/core/text.hpp"
#include "source/elements.hpp"
#include "source/geometry_line.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::string_view marks = " \t:;,-=";

std::string_view without_marks_before(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(marks), text.size()));
}

// `Pt lanl2dz`, `Pt:lanl2dz`
std::string assignment_in(std::string_view row, const InputSchema& schema) {
  const std::size_t end = row.find_first_of(marks);
  if (end == std::string_view::npos || schema.is_known_basis(row)) {
    return {};
  }
  const std::string_view label = row.substr(0, end);
  const std::string_view name = without_marks_before(row.substr(end));
  return is_atom_label(label) && schema.is_known_basis(name)
             ? std::string(label) + "=" + std::string(name)
             : std::string();
}

std::optional<BasisRowFault> fault_of_name(std::string_view row, const InputSchema& schema) {
  std::string meant = assignment_in(row, schema);
  if (!meant.empty()) {
    return BasisRowFault{"'=' is missing behind the element", std::move(meant)};
  }
  if (words_of(row).size() > 1 && !schema.is_known_basis(row)) {
    return BasisRowFault{"a basis set is one word", {}};
  }
  return std::nullopt;
}

// Several elements are one word, too.
std::optional<BasisRowFault> fault_of_elements(std::string_view elements, std::string_view name) {
  if (words_of(elements).size() < 2 && !elements.starts_with(',') && !elements.ends_with(',')) {
    return std::nullopt;
  }
  std::string spaced(elements);
  std::replace(spaced.begin(), spaced.end(), ',', ' ');
  const std::vector<std::string_view> labels = words_of(spaced);
  // Blanks beside commas change nothing: `C, O`.
  const auto commas = static_cast<std::size_t>(std::count(elements.begin(), elements.end(), ','));
  if (commas + 1 == labels.size()) {
    return std::nullopt;
  }
  return BasisRowFault{"elements are parted by commas",
                       core::text::join(labels, ",") + "=" + std::string(name), Severity::Warning};
}

}  // namespace

std::optional<BasisRowFault> fault_of_basis_row(std::string_view row, const InputSchema& schema) {
  const std::size_t equals = row.find('=');
  if (equals == std::string_view::npos) {
    return fault_of_name(row, schema);
  }
  const std::string_view elements = core::text::trim_view(row.substr(0, equals));
  const std::string_view behind = core::text::trim_view(row.substr(equals + 1));
  const std::string_view name = without_marks_before(behind);
  if (elements.empty()) {
    return BasisRowFault{"of which element?", {}};
  }
  if (name.empty()) {
    return BasisRowFault{"which basis set?", {}};
  }
  if (behind.find('=') != std::string_view::npos) {
    return BasisRowFault{"one '=' is enough", schema.is_known_basis(name)
                                                  ? std::string(elements) + "=" + std::string(name)
                                                  : ""};
  }
  if (words_of(behind).size() > 1 && !schema.is_known_basis(behind)) {
    return BasisRowFault{"a basis set is one word", {}};
  }
  return fault_of_elements(elements, behind);
}

}  // namespace kelp::input::bdf
