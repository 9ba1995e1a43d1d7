// Whether a value is right is asked of every entry, what is wrong about it of few. The first
// question stops at the first thing that is not right; the second one is put only then, and looks
// at each part by itself: a field of the wrong type is at fault before a wrong number of fields is.

#include "validate/value_check.hpp"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "model/value_lines.hpp"
#include "schema/normalize_key.hpp"

namespace kelp::input::bdf {
namespace {

using Tokens = std::vector<std::string_view>;

enum class ValueType { Any, Integer, Float };

ValueType type_from_name(std::string_view name) {
  if (name == "integer") {
    return ValueType::Integer;
  }
  const std::string_view type = bare_key(require_text(name));
  if (is_normally(type, "integer")) {
    return ValueType::Integer;
  }
  return is_normally(type, "float") || is_normally(type, "number") ? ValueType::Float
                                                                   : ValueType::Any;
}

ValueReason check_bounds(double value, const EntrySchemaInfo& info) {
  if (info.min && (value < *info.min || (info.min_exclusive && value == *info.min))) {
    return ValueReason::BelowMinimum;
  }
  if (info.max && (value > *info.max || (info.max_exclusive && value == *info.max))) {
    return ValueReason::AboveMaximum;
  }
  return ValueReason::None;
}

ValueReason check_token(std::string_view token, ValueType type, const EntrySchemaInfo& info) {
  switch (type) {
    case ValueType::Any:
      return ValueReason::None;
    case ValueType::Integer: {
      const auto value = core::number::parse_integer(token);
      return value ? check_bounds(static_cast<double>(*value), info) : ValueReason::WrongType;
    }
    case ValueType::Float: {
      const auto value = core::number::parse_float(token);
      return value ? check_bounds(*value, info) : ValueReason::WrongType;
    }
  }
  return ValueReason::None;
}

/// Limits on a number of fields; what is unset or empty limits nothing.
struct Arity {
  const std::optional<std::uint64_t>& exact;
  const std::optional<std::uint64_t>& min;
  const std::optional<std::uint64_t>& max;
  const std::vector<std::uint64_t>& allowed;
};

Arity arity_of_value(const EntrySchemaInfo& info) {
  return {info.arity, info.min_arity, info.max_arity, info.allowed_arities};
}

Arity arity_of_row(const EntrySchemaInfo& info) {
  return {info.row_arity, info.row_min_arity, info.row_max_arity, info.row_allowed_arities};
}

ValueReason check_arity(std::size_t count, const Arity& arity) {
  if ((arity.exact && count < *arity.exact) || (arity.min && count < *arity.min)) {
    return ValueReason::TooFewFields;
  }
  if ((arity.exact && count > *arity.exact) || (arity.max && count > *arity.max)) {
    return ValueReason::TooManyFields;
  }
  const bool allowed =
      arity.allowed.empty() ||
      std::find(arity.allowed.begin(), arity.allowed.end(), count) != arity.allowed.end();
  return allowed ? ValueReason::None : ValueReason::WrongFieldCount;
}

// All fields together are one value.
bool is_allowed(const Tokens& tokens, const std::vector<std::string>& allowed) {
  const std::string joined = tokens.size() == 1 ? std::string() : core::text::join(tokens, " ");
  const std::string_view value = bare_key(tokens.size() == 1 ? tokens.front() : joined);
  return std::any_of(allowed.begin(), allowed.end(),
                     [value](const std::string& other) { return is_normally(value, other); });
}

ValueReason check_count_line(std::string_view line, std::size_t rows, Tokens& tokens) {
  tokens.clear();
  split_value_tokens(line, tokens);
  if (tokens.size() != 1) {
    return ValueReason::WrongCount;
  }
  const auto count = core::number::parse_integer(tokens.front());
  if (!count || *count < 0) {
    return ValueReason::WrongCount;
  }
  return static_cast<std::uint64_t>(*count) == rows ? ValueReason::None
                                                    : ValueReason::WrongRowCount;
}

using Types = std::vector<ValueType>;

Types column_types(const EntrySchemaInfo& info) {
  Types types;
  types.reserve(info.row_types.size() + 1);
  for (const std::string& name : info.row_types) {
    types.push_back(type_from_name(name));
  }
  if (types.empty()) {
    types.push_back(type_from_name(info.value_type));
  }
  return types;
}

ValueReason check_row(const Tokens& tokens, const Types& types, const EntrySchemaInfo& info) {
  ValueReason reason = check_arity(tokens.size(), arity_of_row(info));
  for (std::size_t column = 0; column < tokens.size() && reason == ValueReason::None; ++column) {
    // The last type holds for all further columns.
    reason = check_token(tokens[column], types[std::min(column, types.size() - 1)], info);
  }
  return reason;
}

/// Finds out what is wrong about value lines that are.
class FaultFinder {
 public:
  FaultFinder(const std::vector<ValueLine>& lines, const EntrySchemaInfo& info)
      : lines_(lines), info_(info) {}

  ValueFault in_rows() const {
    if (lines_.empty()) {
      return {ValueReason::WrongRowCount, ValuePart::All, {}};
    }
    const Types types = column_types(info_);
    Tokens tokens;
    for (std::size_t row = info_.count_line ? 1 : 0; row < lines_.size(); ++row) {
      tokens.clear();
      split_value_tokens(lines_[row].text, tokens);
      const ValueReason reason = check_row(tokens, types, info_);
      if (reason != ValueReason::None) {
        return at(reason, ValuePart::Row, lines_[row], lines_[row].text);
      }
    }
    const ValueLine& count = lines_.front();
    return at(check_count_line(count.text, lines_.size() - 1, tokens), ValuePart::CountLine, count,
              count.text);
  }

  ValueFault in_fields() const {
    const ValueType type = type_from_name(info_.value_type);
    ValueReason of_fields = ValueReason::None;
    Tokens tokens;
    for (const ValueLine& line : lines_) {
      std::size_t next = tokens.size();
      split_value_tokens(line.text, tokens);
      for (; next < tokens.size() && of_fields == ValueReason::None; ++next) {
        of_fields = check_token(tokens[next], type, info_);
        // Allowed values are compared with all fields together.
        if (of_fields != ValueReason::None && info_.allowed.empty()) {
          return at(of_fields, ValuePart::Field, line, tokens[next]);
        }
      }
    }
    const ValueReason of_number = check_arity(tokens.size(), arity_of_value(info_));
    if (of_number != ValueReason::None) {
      return in_all(of_number);
    }
    return in_all(of_fields == ValueReason::None ? ValueReason::NotAllowed : of_fields);
  }

 private:
  static ValueFault at(ValueReason reason, ValuePart part, const ValueLine& line,
                       std::string_view text) {
    const auto begin = static_cast<std::size_t>(text.data() - line.text.data());
    return {reason, part, line.index, begin, begin + text.size()};
  }

  ValueFault in_all(ValueReason reason) const {
    return lines_.empty() ? ValueFault{reason, ValuePart::All, {}}
                          : at(reason, ValuePart::All, lines_.front(), lines_.front().text);
  }

  const std::vector<ValueLine>& lines_;
  const EntrySchemaInfo& info_;
};

}  // namespace

bool token_matches_type(std::string_view token, std::string_view type,
                        const EntrySchemaInfo& info) {
  return check_token(token, type_from_name(type), info) == ValueReason::None;
}

bool ValueCheck::matches(const ModuleEntry& entry, const EntrySchemaInfo& info) {
  lines_.clear();
  add_cleaned_lines(entry, lines_);
  return lines_match(lines_, info);
}

bool ValueCheck::lines_match(const Tokens& lines, const EntrySchemaInfo& info) {
  return info.kind == EntryValueKind::CountedRows ? rows_match(lines, info)
                                                  : fields_match(lines, info);
}

bool ValueCheck::fields_match(const Tokens& lines, const EntrySchemaInfo& info) {
  tokens_.clear();
  for (const std::string_view line : lines) {
    split_value_tokens(line, tokens_);
  }
  if (check_arity(tokens_.size(), arity_of_value(info)) != ValueReason::None) {
    return false;
  }
  const ValueType type = type_from_name(info.value_type);
  return std::all_of(tokens_.begin(), tokens_.end(),
                     [&](std::string_view token) {
                       return check_token(token, type, info) == ValueReason::None;
                     }) &&
         (info.allowed.empty() || is_allowed(tokens_, info.allowed));
}

bool ValueCheck::rows_match(const Tokens& lines, const EntrySchemaInfo& info) {
  if (lines.empty() || (info.count_line && check_count_line(lines.front(), lines.size() - 1,
                                                            tokens_) != ValueReason::None)) {
    return false;
  }
  const Types types = column_types(info);
  for (std::size_t row = info.count_line ? 1 : 0; row < lines.size(); ++row) {
    tokens_.clear();
    split_value_tokens(lines[row], tokens_);
    if (check_row(tokens_, types, info) != ValueReason::None) {
      return false;
    }
  }
  return true;
}

bool value_matches(std::string_view value, const EntrySchemaInfo& info) {
  return ValueCheck().fields_match({value}, info);
}

bool lines_match(const std::vector<std::string_view>& lines, const EntrySchemaInfo& info) {
  return ValueCheck().lines_match(lines, info);
}

ValueFault find_value_fault(const std::vector<std::string>& values, const EntrySchemaInfo& info) {
  const std::vector<ValueLine> lines = numbered_lines(values);
  const FaultFinder finder(lines, info);
  return info.kind == EntryValueKind::CountedRows ? finder.in_rows() : finder.in_fields();
}

ValueFault find_header_value_fault(std::string_view value, const EntrySchemaInfo& info) {
  return FaultFinder({{0, value}}, info).in_fields();
}

}  // namespace kelp::input::bdf
