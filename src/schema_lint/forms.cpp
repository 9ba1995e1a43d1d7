#include "schema_lint/forms.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <unordered_map>

namespace kelp::input::bdf::lint {
namespace {

constexpr std::array<KeyRule, 2> requirement_rules = {{
    {"entry", Form::Text},
    {"equals", Form::Text},
}};

std::string_view form_text(Form form) {
  switch (form) {
    case Form::Text:
      return "a text";
    case Form::Bool:
      return "true or false";
    case Form::Number:
      return "a number";
    case Form::Count:
      return "a whole number from 0 on";
    case Form::Integer:
      return "an integer";
    case Form::TextList:
      return "a text or a list of texts";
    case Form::CountList:
      return "a count or a list of counts";
    case Form::Map:
      return "a map";
    case Form::TextMap:
      return "a map of texts";
    case Form::NameList:
      return "a list of names or a map whose keys are names";
    case Form::Requirements:
      return "a name or a list of names";
  }
  return {};
}

// Sentences begin with what they are about: a quoted key, or words.
std::string capitalised(std::string_view text) {
  std::string result(text);
  if (!result.empty() && result.front() == 'a') {
    result.front() = 'A';
  }
  return result;
}

Names names_of(std::span<const KeyRule> rules) {
  Names names;
  for (const KeyRule& rule : rules) {
    names.emplace_back(rule.key);
  }
  return names;
}

}  // namespace

std::string_view node_text(const YAML::Node& node) {
  if (node.IsMap()) {
    return "a map";
  }
  if (node.IsSequence()) {
    return "a list";
  }
  return node.IsScalar() ? "a text" : "nothing";
}

bool FormCheck::check_map(const YAML::Node& node, std::span<const KeyRule> rules,
                          std::string_view thing) {
  if (!node.IsMap()) {
    return wrong_type(node, thing, "a map");
  }
  bool good = true;
  std::unordered_map<std::string, YAML::Node> seen;
  for (const auto& item : node) {
    budget_.pay_for(item.second);
    if (!item.first.IsScalar()) {
      good = wrong_type(item.first, std::string("a key of ") + std::string(thing), "a text");
      continue;
    }
    const auto [first, is_new] = seen.emplace(item.first.Scalar(), item.first);
    if (!is_new) {
      problems_.error("schema.duplicate_key", item.first,
                      quoted(item.first.Scalar()) + " is given twice; only the one on " +
                          line_of(first->second) + " counts.");
      good = false;
      continue;
    }
    good = check_key(item.first, item.second, rules, thing) && good;
  }
  return good;
}

bool FormCheck::check_key(const YAML::Node& key, const YAML::Node& value,
                          std::span<const KeyRule> rules, std::string_view thing) {
  const auto rule = std::find_if(rules.begin(), rules.end(), [&key](const KeyRule& candidate) {
    return candidate.key == key.Scalar();
  });
  if (rule == rules.end()) {
    problems_.unknown("schema.unknown_key", key,
                      quoted(key.Scalar()) + " is not a key of " + std::string(thing) + ".",
                      names_of(rules));
    return false;
  }
  return check(value, rule->form, quoted(rule->key));
}

bool FormCheck::check(const YAML::Node& value, Form form, std::string_view key) {
  switch (form) {
    case Form::Map:
      return value.IsMap() || wrong_type(value, key, form_text(form));
    case Form::TextMap:
      return check_text_map(value, key);
    case Form::NameList:
      return value.IsMap() || value.IsSequence() || wrong_type(value, key, form_text(form));
    case Form::TextList:
      return check_list(value, Form::Text, key);
    case Form::CountList:
      return check_list(value, Form::Count, key);
    case Form::Requirements:
      return check_requirements(value, key);
    default:
      break;
  }
  if (!value.IsScalar()) {
    return wrong_type(value, key, form_text(form));
  }
  if (!converts(value, form)) {
    problems_.error("schema.invalid_scalar", value,
                    capitalised(key) + " must be " + std::string(form_text(form)) + ", not " +
                        quoted(value.Scalar()) + ".");
    return false;
  }
  return true;
}

bool FormCheck::check_list(const YAML::Node& value, Form item_form, std::string_view key) {
  if (value.IsScalar()) {
    return check(value, item_form, key);
  }
  if (!value.IsSequence()) {
    return wrong_type(value, key,
                      form_text(item_form == Form::Text ? Form::TextList : Form::CountList));
  }
  bool good = true;
  for (const auto& item : value) {
    budget_.pay_for(item);
    good = check(item, item_form, "an item of " + std::string(key)) && good;
  }
  return good;
}

bool FormCheck::check_text_map(const YAML::Node& value, std::string_view key) {
  if (!value.IsMap()) {
    return wrong_type(value, key, form_text(Form::TextMap));
  }
  bool good = true;
  for (const auto& item : value) {
    budget_.pay_for(item.first);
    budget_.pay_for(item.second);
    good = check(item.first, Form::Text, "a key of " + std::string(key)) && good;
    good = check(item.second, Form::Text, "an item of " + std::string(key)) && good;
  }
  return good;
}

bool FormCheck::check_requirements(const YAML::Node& value, std::string_view key) {
  if (value.IsScalar()) {
    return true;
  }
  if (!value.IsSequence()) {
    return wrong_type(value, key, form_text(Form::Requirements));
  }
  bool good = true;
  for (const auto& item : value) {
    budget_.pay_for(item);
    good = check_requirement(item, key) && good;
  }
  return good;
}

bool FormCheck::check_requirement(const YAML::Node& item, std::string_view key) {
  if (item.IsScalar()) {
    return true;
  }
  if (!item.IsMap()) {
    return wrong_type(item, "an item of " + std::string(key),
                      "a name or a map with 'entry' and 'equals'");
  }
  if (!check_map(item, requirement_rules, "a requirement")) {
    return false;
  }
  if (!item["entry"]) {
    problems_.error("schema.unknown_reference", item, "The requirement names no 'entry'.");
    return false;
  }
  return true;
}

// The reader's own conversions decide.
bool FormCheck::converts(const YAML::Node& value, Form form) const {
  try {
    bool flag = false;
    std::optional<double> number;
    std::optional<std::uint64_t> count;
    switch (form) {
      case Form::Bool:
        read_bool(value, flag);
        return true;
      case Form::Number:
        read_number(value, number);
        return number && std::isfinite(*number);
      case Form::Count:
        read_count(value, count);
        return true;
      case Form::Integer:
        required_int(value);
        return true;
      default:
        return true;
    }
  } catch (const YAML::Exception&) {
    return false;
  }
}

bool FormCheck::wrong_type(const YAML::Node& value, std::string_view key, std::string_view wanted) {
  problems_.error("schema.wrong_type", value,
                  capitalised(key) + " must be " + std::string(wanted) + ", not " +
                      std::string(node_text(value)) + ".");
  return false;
}

}  // namespace kelp::input::bdf::lint
