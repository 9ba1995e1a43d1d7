#include "schema_lint/description.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <set>
#include <string>

#include "schema/document_keys.hpp"
#include "schema/entry_reader.hpp"
#include "schema/normalize_key.hpp"
#include "schema_lint/acceptance.hpp"
#include "schema_lint/arity.hpp"

namespace kelp::input::bdf::lint {
namespace {

bool is_numeric(std::string_view type) {
  return type == "integer" || type == "float" || type == "number";
}

std::string short_number(double number) {
  std::array<char, 32> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  return {buffer.data(), end.ptr};
}

/// Checks one description for its meaning.
class DescriptionCheck {
 public:
  DescriptionCheck(const YAML::Node& map, Described described, Problems& problems,
                   ExpansionBudget& budget)
      : map_(map), described_(described), problems_(problems) {
    read_description(map, info_, budget);
  }

  void run() {
    check_terminator();
    check_effects();
    check_arities();
    check_bounds();
    check_allowed();
    check_default();
  }

 private:
  bool has(std::string_view key) const { return static_cast<bool>(at(key)); }
  YAML::Node at(std::string_view key) const { return map_[std::string(key)]; }

  // Whether a value of the entry is compared with its description at all.
  bool is_checked() const {
    return described_ == Described::Keyword || info_.kind == EntryValueKind::Scalar ||
           info_.kind == EntryValueKind::Tuple || info_.kind == EntryValueKind::MultiLine ||
           has_rows();
  }
  bool has_rows() const {
    return described_ != Described::Keyword && info_.kind == EntryValueKind::CountedRows;
  }
  bool is_block() const {
    return described_ != Described::Keyword && (info_.kind == EntryValueKind::NestedBlock ||
                                                info_.kind == EntryValueKind::TerminatedBlock);
  }

  void check_terminator() {
    if (is_block() && info_.terminator.empty()) {
      problems_.error("schema.missing_terminator", has("kind") ? at("kind") : map_,
                      "A block needs a 'terminator', the line that ends it.");
    }
    if (has("terminator") && at("terminator").Scalar().starts_with('$')) {
      problems_.warning("schema.no_effect", at("terminator"),
                        "The '$' of a terminator is dropped: the line that ends the block is " +
                            quoted(info_.terminator) + ".");
    }
  }

  void without_effect(std::string_view key, std::string_view reason) {
    if (has(key)) {
      problems_.warning("schema.no_effect", at(key),
                        quoted(key) + " has no effect: " + std::string(reason) + ".");
    }
  }

  void check_effects() {
    if (described_ == Described::Keyword) {
      for (const std::string_view key :
           {"terminator", "count_line", "repeatable", "row", "requires", "conflicts", "entries"}) {
        without_effect(key, "it is for entries of modules");
      }
    } else {
      without_effect("category", "it is for easy keywords");
      check_effects_of_kind();
    }
    if (described_ != Described::Keyword && info_.kind == EntryValueKind::Flag) {
      without_effect("values", "a flag has no value");
    }
    if (!info_.min && info_.min_exclusive) {
      without_effect("min_exclusive", "there is no 'min'");
    }
    if (!info_.max && info_.max_exclusive) {
      without_effect("max_exclusive", "there is no 'max'");
    }
  }

  void check_effects_of_kind() {
    if (!has_rows()) {
      without_effect("row", "only counted rows have rows");
      without_effect("count_line", "only counted rows have a count");
    } else {
      for (const std::string_view key : {"arity", "min_arity", "max_arity", "allowed_arities"}) {
        without_effect(key, "put it under 'row', counted rows have no other");
      }
      without_effect("allowed", "rows are not compared with a list");
    }
    if (!is_block()) {
      without_effect("terminator", "only blocks have one");
    }
    if (described_ == Described::NestedEntry) {
      without_effect("entries", "blocks nest one level deep");
    } else if (info_.kind != EntryValueKind::NestedBlock) {
      without_effect("entries", "only nested blocks have entries");
    }
    if (!is_checked()) {
      for (const std::string_view key :
           {"allowed", "min", "max", "arity", "min_arity", "max_arity", "allowed_arities"}) {
        without_effect(key, "values of this kind are not checked");
      }
    }
  }

  void check_arities() {
    check_arity({info_.arity, info_.min_arity, info_.max_arity, info_.allowed_arities}, map_);
    if (!has_rows() || !has("row")) {
      return;
    }
    const Arity row = {info_.row_arity, info_.row_min_arity, info_.row_max_arity,
                       info_.row_allowed_arities};
    check_arity(row, at("row"));
    const std::optional<std::uint64_t> most = row.exact ? row.exact : row.most;
    if (most && info_.row_types.size() > *most) {
      problems_.warning("schema.no_effect", at("row")["types"],
                        "There are more types than a row has fields.");
    }
  }

  void check_arity(const Arity& arity, const YAML::Node& map) {
    if (arity.is_possible()) {
      return;
    }
    YAML::Node place = map;
    for (const char* const key : {"arity", "allowed_arities", "min_arity"}) {
      if (map[key]) {
        place.reset(map[key]);
        break;
      }
    }
    problems_.error("schema.impossible_arity", place,
                    "No number of fields agrees with all that is said about it.");
  }

  void check_bounds() {
    if (!info_.min && !info_.max) {
      return;
    }
    const bool numeric_rows = std::any_of(info_.row_types.begin(), info_.row_types.end(),
                                          [](const std::string& type) { return is_numeric(type); });
    if (!is_numeric(info_.value_type) && !numeric_rows) {
      without_effect("min", "the values are no numbers");
      without_effect("max", "the values are no numbers");
    }
    if (info_.min && info_.max &&
        (*info_.min > *info_.max ||
         (*info_.min >= *info_.max && (info_.min_exclusive || info_.max_exclusive)))) {
      problems_.error("schema.impossible_bounds", at("min"),
                      "No number lies between " + short_number(*info_.min) + " and " +
                          short_number(*info_.max) + ".");
    }
  }

  // Compared alone, so that a list of any length costs no more than its length.
  void check_allowed() {
    if (info_.allowed.empty() || !is_checked() || has_rows()) {
      return;
    }
    const YAML::Node node = at("allowed");
    EntrySchemaInfo alone = info_;
    std::set<std::string> seen;
    for (std::size_t i = 0; i < info_.allowed.size(); ++i) {
      const std::string& value = info_.allowed[i];
      const YAML::Node place = node.IsSequence() ? node[i] : node;
      alone.allowed = {value};
      if (!seen.insert(value).second) {
        problems_.warning("schema.redundant", place, quoted(value) + " is listed twice.");
      } else if (!accepts(alone, value)) {
        problems_.error("schema.impossible_value", place,
                        "The value " + quoted(value) + " is allowed, but refused for " +
                            std::string(refusing_part(alone, value)) + ".");
      }
    }
  }

  void check_default() {
    if (!info_.default_value) {
      return;
    }
    if (is_block()) {
      without_effect("default", "a block has no value");
    } else if (is_checked() && !accepts(info_, *info_.default_value)) {
      problems_.error("schema.refused_default", at("default"),
                      "The default " + quoted(*info_.default_value) + " is refused for " +
                          std::string(refusing_part(info_, *info_.default_value)) + ".");
    }
  }

  const YAML::Node& map_;
  Described described_;
  Problems& problems_;
  EntrySchemaInfo info_;
};

}  // namespace

void check_description(const YAML::Node& map, Described described, Problems& problems,
                       ExpansionBudget& budget) {
  DescriptionCheck(map, described, problems, budget).run();
}

}  // namespace kelp::input::bdf::lint
