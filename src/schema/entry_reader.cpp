#include "schema/entry_reader.hpp"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "kelp/core/text.hpp"
#include "schema/document_keys.hpp"
#include "schema/normalize_key.hpp"

namespace kelp::input::bdf {
namespace {

EntryValueKind kind_from_text(std::string_view text) {
  for (const KindName& name : kind_names) {
    if (name.text == text) {
      return name.kind;
    }
  }
  return EntryValueKind::Scalar;
}

// How many values there are is the kind's and the arity's business, so arrays are their elements.
std::string value_type_from_text(std::string text) {
  if (text == "integer_array") {
    return "integer";
  }
  if (text == "float_array" || text == "number_array") {
    return "float";
  }
  if (text == "string_array") {
    return "string";
  }
  return text;
}

std::vector<std::string> normalized_list(const YAML::Node& node, ExpansionBudget& budget) {
  std::vector<std::string> texts = text_list(node, budget);
  for (std::string& text : texts) {
    text = normalize_key(text);
  }
  return texts;
}

ValueRequirement requirement_from_map(const YAML::Node& map, ExpansionBudget& budget) {
  const Fields fields(map, requirement_keys, budget);
  ValueRequirement requirement{normalize_key(scalar_text(fields["entry"])), std::nullopt};
  const std::string equals = scalar_text(fields["equals"]);
  if (!equals.empty()) {
    requirement.equals = normalize_key(equals);
  }
  return requirement;
}

std::vector<ValueRequirement> requirement_list(const YAML::Node& node, ExpansionBudget& budget) {
  std::vector<ValueRequirement> requirements;
  if (node.IsScalar()) {
    requirements.push_back({normalize_key(node.Scalar()), std::nullopt});
  } else if (node.IsSequence()) {
    for (const auto& item : node) {
      budget.pay_for(item);
      if (item.IsScalar()) {
        requirements.push_back({normalize_key(item.Scalar()), std::nullopt});
      } else if (item.IsMap()) {
        ValueRequirement requirement = requirement_from_map(item, budget);
        if (!requirement.entry.empty()) {
          requirements.push_back(std::move(requirement));
        }
      }
    }
  }
  return requirements;
}

void read_row(const YAML::Node& node, EntrySchemaInfo& info, ExpansionBudget& budget) {
  if (!node.IsMap()) {
    return;
  }
  const Fields fields(node, row_keys, budget);
  read_count(fields["arity"], info.row_arity);
  read_count(fields["min_arity"], info.row_min_arity);
  read_count(fields["max_arity"], info.row_max_arity);
  info.row_allowed_arities = count_list(fields["allowed_arities"], budget);
  info.row_types = normalized_list(fields["types"], budget);
}

void read_bounds(const Fields<description_keys.size()>& fields, EntrySchemaInfo& info) {
  read_number(fields["min"], info.min);
  read_number(fields["max"], info.max);
  read_bool(fields["min_exclusive"], info.min_exclusive);
  read_bool(fields["max_exclusive"], info.max_exclusive);
}

void read_arities(const Fields<description_keys.size()>& fields, EntrySchemaInfo& info,
                  ExpansionBudget& budget) {
  read_count(fields["arity"], info.arity);
  read_count(fields["min_arity"], info.min_arity);
  read_count(fields["max_arity"], info.max_arity);
  info.allowed_arities = count_list(fields["allowed_arities"], budget);
}

Meaning::Values read_values(const YAML::Node& node, ExpansionBudget& budget, TextPool& texts) {
  Meaning::Values values;
  if (!node.IsMap()) {
    return values;
  }
  values.reserve(node.size());
  for (const auto& item : node) {
    budget.pay_for(item.first);
    budget.pay_for(item.second);
    if (item.first.IsScalar() && item.second.IsScalar()) {
      values.emplace_back(normalize_key(item.first.Scalar()), texts.add(item.second.Scalar()));
    }
  }
  return values;
}

void read_children(const YAML::Node& map, EntrySpec& parent, ExpansionBudget& budget,
                   TextPool& texts, int depth) {
  for (const auto& item : map) {
    budget.pay_for_record(item.first);
    budget.pay_for(item.second);
    if (!item.first.IsScalar()) {
      continue;
    }
    const std::string name = normalize_key(item.first.Scalar());
    NamedEntry child = read_entry(name, item.second, budget, texts, depth + 1);
    parent.children.insert_or_assign(name,
                                     std::make_shared<const EntrySpec>(std::move(child.spec)));
    parent.child_aliases.insert_or_assign(name, name);
    for (const std::string& alias : child.aliases) {
      budget.pay_for_copy(name);
      parent.child_aliases.insert_or_assign(normalize_key(alias), name);
    }
  }
}

}  // namespace

TextSlice TextPool::add(std::string_view text) {
  text = core::text::trim_view(text);
  if (text.empty()) {
    return {};
  }
  if (texts_.empty()) {
    texts_.reserve(expected_);
  }
  const TextSlice slice = {texts_.size(), text.size()};
  texts_.append(text);
  std::replace(texts_.begin() + static_cast<std::ptrdiff_t>(slice.begin), texts_.end(), '\n', ' ');
  return slice;
}

EntryExtras read_description(const YAML::Node& map, EntrySchemaInfo& info, ExpansionBudget& budget,
                             TextPool* texts) {
  const Fields fields(map, description_keys, budget);
  if (const YAML::Node& kind = fields["kind"]; kind.IsScalar()) {
    info.kind = kind_from_text(normalize_key(kind.Scalar()));
  }
  if (const YAML::Node& terminator = fields["terminator"]; terminator.IsScalar()) {
    info.terminator = normalize_key(terminator.Scalar());
  }
  if (const YAML::Node& type = fields["value_type"]; type.IsScalar()) {
    info.value_type = value_type_from_text(normalize_key(type.Scalar()));
  }
  if (const YAML::Node& value = fields["default"]; value.IsScalar()) {
    info.default_value = value.Scalar();
  }
  info.allowed = normalized_list(fields["allowed"], budget);
  read_bounds(fields, info);
  read_arities(fields, info, budget);
  read_bool(fields["count_line"], info.count_line);
  read_bool(fields["repeatable"], info.repeatable);
  read_row(fields["row"], info, budget);
  info.required = requirement_list(fields["requires"], budget);
  info.conflicts = normalized_list(fields["conflicts"], budget);
  EntryExtras extras = {text_list(fields["aliases"], budget), fields["entries"],
                        normalize_key(scalar_text(fields["category"])), Meaning()};
  if (texts != nullptr) {
    extras.meaning = read_summary(fields, *texts);
    extras.meaning.values = {read_values(fields["values"], budget, *texts),
                             read_values(fields["values_zh"], budget, *texts)};
  }
  return extras;
}

NamedEntry read_entry(std::string name, const YAML::Node& node, ExpansionBudget& budget,
                      TextPool& texts, int depth) {
  // yaml-cpp stops at 500 levels of YAML, which are 250 of entries; only aliases go deeper.
  constexpr int max_depth = 256;
  if (depth > max_depth) {
    throw std::runtime_error("its entries are nested too deeply");
  }
  NamedEntry entry;
  entry.spec.name = std::move(name);
  if (node.IsMap()) {
    EntryExtras extras = read_description(node, entry.spec, budget, &texts);
    entry.aliases = std::move(extras.aliases);
    entry.spec.meaning = std::move(extras.meaning);
    if (extras.entries.IsMap()) {
      read_children(extras.entries, entry.spec, budget, texts, depth);
      entry.spec.index_names();
    }
  }
  return entry;
}

}  // namespace kelp::input::bdf
