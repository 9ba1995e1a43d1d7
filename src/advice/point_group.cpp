// Point groups as the program writes them: a letter, and its index in parentheses. Which of them
// have real representations is a property of the families, not a list.

#include "advice/point_group.hpp"

#include <algorithm>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

std::string without_blanks(std::string_view text) {
  std::string name = core::text::to_lower(text);
  name.erase(std::remove_if(name.begin(), name.end(), core::text::is_space), name.end());
  return name;
}

/// An index such as `12v`, taken apart: the order of the axis, 0 without one, and what follows.
struct Index {
  int order = 0;
  std::string_view rest;
};

Index index_from(std::string_view text) {
  constexpr std::size_t most_digits = 3;
  std::size_t digits = 0;
  while (digits < text.size() && digits < most_digits && text[digits] >= '0' &&
         text[digits] <= '9') {
    ++digits;
  }
  const auto order = core::number::parse_integer(text.substr(0, digits));
  return {static_cast<int>(order.value_or(0)), text.substr(digits)};
}

GroupForm form_when(bool is_group, bool is_real) {
  if (!is_group) {
    return GroupForm::Unknown;
  }
  return is_real ? GroupForm::Real : GroupForm::Complex;
}

GroupForm form_of_axial(char letter, std::string_view text) {
  const bool is_cyclic = letter == 'c';
  if (text == "lin" || (is_cyclic && (text == "i" || text == "s"))) {
    return GroupForm::Real;
  }
  const auto [order, rest] = index_from(text);
  if (is_cyclic) {
    return form_when(order > 0 && (rest.empty() || rest == "v" || rest == "h"),
                     order <= 2 || rest == "v");
  }
  return form_when(order > 0 && (rest.empty() || rest == "h" || rest == "d"), true);
}

// What a letter with an index stands for.
GroupForm form_of(char letter, std::string_view index) {
  switch (letter) {
    case 'c':
    case 'd':
      return form_of_axial(letter, index);
    case 's': {
      const auto [order, rest] = index_from(index);
      return form_when(order > 0 && order % 2 == 0 && rest.empty(), false);
    }
    case 't':
      return form_when(index.empty() || index == "d" || index == "h", index == "d");
    case 'o':
    case 'i':
      return form_when(index.empty() || index == "h", true);
    default:
      return GroupForm::Unknown;
  }
}

}  // namespace

GroupForm group_form(std::string_view text) {
  const std::string name = without_blanks(text);
  if (name.empty()) {
    return GroupForm::None;
  }
  if (name.starts_with("gen(")) {
    return GroupForm::Generators;
  }
  const std::string_view rest = std::string_view(name).substr(1);
  const bool is_enclosed = rest.size() > 2 && rest.front() == '(' && rest.back() == ')';
  if (rest.empty() || is_enclosed) {
    return form_of(name.front(), rest.empty() ? rest : rest.substr(1, rest.size() - 2));
  }
  return form_of(name.front(), rest) == GroupForm::Unknown ? GroupForm::Unknown
                                                           : GroupForm::WithoutParentheses;
}

PointGroup point_group_of(const Job& job, const System& system) {
  PointGroup group;
  const bool has_own = system.compass != nullptr && system.compass->has("group");
  group.setting = has_own ? system.compass->get("group") : job.header("group");
  group.name = without_blanks(group.setting.text());
  group.form = group_form(group.name);
  return group;
}

bool is_non_abelian(const Job& job, const PointGroup& group) {
  if (!group) {
    return false;
  }
  // The table leaves out D(nd) with an even n; with n from 2 on none of them is Abelian.
  const bool is_antiprism = group.name.starts_with("d(") && group.name.ends_with("d)");
  return is_antiprism ? group.name != "d(1d)"
                      : job.knowledge().is_abelian(group.name) == std::optional<bool>(false);
}

}  // namespace kelp::input::bdf
