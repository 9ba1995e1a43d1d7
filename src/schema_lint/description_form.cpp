#include <array>
#include <cstddef>

#include "schema/document_keys.hpp"
#include "schema_lint/description.hpp"
#include "schema_lint/forms.hpp"

namespace kelp::input::bdf::lint {
namespace {

constexpr std::array<KeyRule, 25> description_rules = {{
    {"kind", Form::Text},
    {"terminator", Form::Text},
    {"value_type", Form::Text},
    {"default", Form::Text},
    {"allowed", Form::TextList},
    {"min", Form::Number},
    {"max", Form::Number},
    {"min_exclusive", Form::Bool},
    {"max_exclusive", Form::Bool},
    {"arity", Form::Count},
    {"min_arity", Form::Count},
    {"max_arity", Form::Count},
    {"allowed_arities", Form::CountList},
    {"count_line", Form::Bool},
    {"repeatable", Form::Bool},
    {"row", Form::Map},
    {"requires", Form::Requirements},
    {"conflicts", Form::TextList},
    {"aliases", Form::TextList},
    {"entries", Form::Map},
    {"category", Form::Text},
    {"summary", Form::Text},
    {"summary_zh", Form::Text},
    {"values", Form::TextMap},
    {"values_zh", Form::TextMap},
}};

constexpr std::array<KeyRule, 5> row_rules = {{
    {"arity", Form::Count},
    {"min_arity", Form::Count},
    {"max_arity", Form::Count},
    {"allowed_arities", Form::CountList},
    {"types", Form::TextList},
}};

constexpr bool same_keys() {
  for (std::size_t i = 0; i < description_keys.size(); ++i) {
    if (description_keys[i] != description_rules[i].key) {
      return false;
    }
  }
  for (std::size_t i = 0; i < row_keys.size(); ++i) {
    if (row_keys[i] != row_rules[i].key) {
      return false;
    }
  }
  return true;
}
static_assert(same_keys(), "the linter must know the keys that the reader reads");

}  // namespace

bool check_description_form(const YAML::Node& map, Problems& problems, ExpansionBudget& budget) {
  FormCheck form(problems, budget);
  bool good = form.check_map(map, description_rules, "an entry");
  const YAML::Node row = map.IsMap() ? map["row"] : YAML::Node();
  if (row.IsDefined() && row.IsMap()) {
    good = form.check_map(row, row_rules, "a row") && good;
  }
  return good;
}

}  // namespace kelp::input::bdf::lint
