#include "schema_lint/meanings.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <unordered_set>

#include "kelp/core/text.hpp"
#include "schema/document_keys.hpp"
#include "schema/entry_reader.hpp"
#include "schema/normalize_key.hpp"
#include "schema_lint/forms.hpp"

namespace kelp::input::bdf::lint {
namespace {

constexpr std::array<KeyRule, 3> family_rules = {{
    {"prefixes", Form::TextList},
    {"summary", Form::Text},
    {"summary_zh", Form::Text},
}};
static_assert(family_rules.size() == family_keys.size(),
              "the linter must know the keys that the reader reads");

// What is no text is a problem of its own.
bool has_summary(const YAML::Node& map) {
  const YAML::Node summary = map.IsMap() ? map["summary"] : YAML::Node(YAML::NodeType::Undefined);
  return summary.IsDefined() &&
         (!summary.IsScalar() || !core::text::trim_view(summary.Scalar()).empty());
}

}  // namespace

void MeaningCheck::check_metadata(const YAML::Node& metadata) {
  const YAML::Node summaries = metadata["summaries"];
  if (!summaries || !summaries.IsScalar()) {
    return;
  }
  required_ = summaries.Scalar() == "required";
  if (!required_ && summaries.Scalar() != "optional") {
    problems_.error(
        "schema.invalid_scalar", summaries,
        "'summaries' must be 'required' or 'optional', not " + quoted(summaries.Scalar()) + ".");
  }
}

void MeaningCheck::check_summary(const NamedItem& item) {
  if (required_ && !has_summary(item.value)) {
    problems_.warning("schema.missing_summary", item.key,
                      quoted(item.name) + " has no 'summary', which 'metadata' requires.");
  }
}

void MeaningCheck::check_values(const YAML::Node& description) {
  EntrySchemaInfo info;
  read_description(description, info, budget_);
  const Keys values = take_keys(description["values"]);
  const Keys chinese = take_keys(description["values_zh"]);
  if (!info.allowed.empty()) {
    check_keys(values, info.allowed, " is not in the list 'allowed'.");
    check_keys(chinese, info.allowed, " is not in the list 'allowed'.");
  } else {
    Names known;
    for (const auto& [value, key] : values) {
      known.push_back(value);
    }
    std::sort(known.begin(), known.end());
    check_keys(chinese, known, " has no meaning in English, under 'values'.");
  }
  const YAML::Node allowed = description["allowed"];
  for (std::size_t i = 0; required_ && i < info.allowed.size(); ++i) {
    if (!values.contains(info.allowed[i])) {
      problems_.warning("schema.missing_value_meaning", allowed.IsSequence() ? allowed[i] : allowed,
                        "The value " + quoted(info.allowed[i]) +
                            " has no meaning under 'values', which 'metadata' requires.");
    }
  }
}

void MeaningCheck::check_families(const YAML::Node& families) {
  if (!families || !families.IsMap()) {
    return;
  }
  for (const auto& item : families) {
    budget_.pay_for_record(item.first);
    budget_.pay_for(item.second);
    check_family(item.first, item.second);
  }
}

void MeaningCheck::check_family(const YAML::Node& name, const YAML::Node& family) {
  if (!name.IsScalar()) {
    problems_.error("schema.wrong_type", name, "The name of a family must be a text.");
    return;
  }
  if (!FormCheck(problems_, budget_).check_map(family, family_rules, "a family")) {
    return;
  }
  check_summary({name.Scalar(), name, family});
  const YAML::Node prefixes = family["prefixes"];
  if (!prefixes || (prefixes.IsSequence() && prefixes.size() == 0)) {
    problems_.warning("schema.no_effect", name,
                      quoted(name.Scalar()) + " has no 'prefixes': no basis set belongs to it.");
  } else if (prefixes.IsScalar()) {
    check_prefix(name, prefixes);
  } else {
    for (const auto& prefix : prefixes) {
      budget_.pay_for(prefix);
      check_prefix(name, prefix);
    }
  }
}

void MeaningCheck::check_prefix(const YAML::Node& name, const YAML::Node& prefix) {
  const auto [first, is_new] = prefixes_.emplace(core::text::to_lower(prefix.Scalar()), name);
  if (is_new) {
    return;
  }
  const YAML::Node& other = first->second;
  if (other.is(name)) {
    problems_.warning("schema.redundant", prefix, quoted(prefix.Scalar()) + " is listed twice.");
  } else {
    problems_.error("schema.name_collision", prefix,
                    "Names that begin with " + quoted(prefix.Scalar()) + " are those of " +
                        quoted(other.Scalar()) + " on " + line_of(other) + ".");
  }
}

void MeaningCheck::check_basis_set(const NamedItem& item) {
  if (required_ && !has_summary(item.value) && !is_of_a_family(item.name)) {
    problems_.warning(
        "schema.missing_summary", item.key,
        quoted(item.name) + " has no 'summary', which 'metadata' requires, and is of no family.");
  }
}

MeaningCheck::Keys MeaningCheck::take_keys(const YAML::Node& map) {
  Keys keys;
  if (!map || !map.IsMap()) {
    return keys;
  }
  for (const auto& item : map) {
    budget_.pay_for(item.first);
    const auto [first, is_new] = keys.emplace(normalize_key(item.first.Scalar()), item.first);
    if (!is_new) {
      problems_.error("schema.duplicate_key", item.first,
                      quoted(item.first.Scalar()) + " is the same value as " +
                          quoted(first->second.Scalar()) + " on " + line_of(first->second) +
                          "; the later one replaces it.");
    }
  }
  return keys;
}

void MeaningCheck::check_keys(const Keys& keys, const Names& known, std::string_view message) {
  const std::unordered_set<std::string_view> expected(known.begin(), known.end());
  for (const auto& [value, key] : keys) {
    if (!expected.contains(value)) {
      problems_.unknown("schema.unknown_value", key, quoted(value).append(message), known);
    }
  }
}

bool MeaningCheck::is_of_a_family(const std::string& basis) const {
  for (std::size_t length = 0; length <= basis.size(); ++length) {
    if (prefixes_.contains(basis.substr(0, length))) {
      return true;
    }
  }
  return false;
}

}  // namespace kelp::input::bdf::lint
