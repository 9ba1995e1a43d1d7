#include <algorithm>

#include "schema/document_keys.hpp"
#include "schema/normalize_key.hpp"
#include "schema_lint/description.hpp"

namespace kelp::input::bdf::lint {
namespace {

bool is_word(const YAML::Node& node) {
  return node.IsDefined() && node.IsScalar();
}

void check_kind(const YAML::Node& node, Problems& problems) {
  const std::string word = normalize_key(node.Scalar());
  Names names;
  for (const KindName& kind : kind_names) {
    names.emplace_back(kind.text);
  }
  if (std::find(names.begin(), names.end(), word) == names.end()) {
    problems.unknown("schema.unknown_kind", node,
                     "There is no kind " + quoted(word) + "; it is read as a scalar.",
                     std::move(names));
  }
}

void check_type(const YAML::Node& node, Problems& problems) {
  const std::string word = normalize_key(node.Scalar());
  if (std::find(value_type_names.begin(), value_type_names.end(), word) == value_type_names.end()) {
    problems.unknown("schema.unknown_type", node,
                     "There is no type " + quoted(word) + "; every value is of it.",
                     Names(value_type_names.begin(), value_type_names.end()));
  }
}

void check_types(const YAML::Node& types, Problems& problems, ExpansionBudget& budget) {
  if (is_word(types)) {
    check_type(types, problems);
  } else if (types.IsDefined() && types.IsSequence()) {
    for (const auto& type : types) {
      budget.pay_for(type);
      if (is_word(type)) {
        check_type(type, problems);
      }
    }
  }
}

// These two words tell other things about a word of the header.
void check_category(const YAML::Node& node, Problems& problems) {
  const std::string category = normalize_key(node.Scalar());
  if (category == "method_spec" || category == "unknown") {
    problems.error("schema.reserved_category", node,
                   "The category " + quoted(category) + " has a meaning of its own.");
  }
}

}  // namespace

void check_words(const YAML::Node& map, Described described, Problems& problems,
                 ExpansionBudget& budget) {
  if (!map.IsMap()) {
    return;
  }
  if (is_word(map["kind"])) {
    check_kind(map["kind"], problems);
  }
  if (is_word(map["value_type"])) {
    check_type(map["value_type"], problems);
  }
  if (const YAML::Node row = map["row"]; row.IsDefined() && row.IsMap()) {
    check_types(row["types"], problems, budget);
  }
  if (described == Described::Keyword && is_word(map["category"])) {
    check_category(map["category"], problems);
  }
}

}  // namespace kelp::input::bdf::lint
