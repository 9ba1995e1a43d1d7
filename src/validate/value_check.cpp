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
  const std::string type = normalize_key(name);
  if (type == "integer") {
    return ValueType::Integer;
  }
  return type == "float" || type == "number" ? ValueType::Float : ValueType::Any;
}

bool within_bounds(double value, const EntrySchemaInfo& info) {
  const bool too_small =
      info.min && (value < *info.min || (info.min_exclusive && value == *info.min));
  const bool too_large =
      info.max && (value > *info.max || (info.max_exclusive && value == *info.max));
  return !too_small && !too_large;
}

bool token_matches(std::string_view token, ValueType type, const EntrySchemaInfo& info) {
  switch (type) {
    case ValueType::Any:
      return true;
    case ValueType::Integer: {
      const auto value = core::number::parse_integer(token);
      return value && within_bounds(static_cast<double>(*value), info);
    }
    case ValueType::Float: {
      const auto value = core::number::parse_float(token);
      return value && within_bounds(*value, info);
    }
  }
  return true;
}

/// Limits on a number of fields; what is unset or empty limits nothing.
struct Arity {
  const std::optional<std::uint64_t>& exact;
  const std::optional<std::uint64_t>& min;
  const std::optional<std::uint64_t>& max;
  const std::vector<std::uint64_t>& allowed;
};

bool arity_ok(std::size_t count, const Arity& arity) {
  return (!arity.exact || count == *arity.exact) && (!arity.min || count >= *arity.min) &&
         (!arity.max || count <= *arity.max) &&
         (arity.allowed.empty() ||
          std::find(arity.allowed.begin(), arity.allowed.end(), count) != arity.allowed.end());
}

bool is_allowed(const Tokens& tokens, const std::vector<std::string>& allowed) {
  const std::string value = normalize_key(core::text::join(tokens, " "));
  return std::find(allowed.begin(), allowed.end(), value) != allowed.end();
}

bool count_line_matches(std::string_view line, std::size_t rows) {
  Tokens tokens;
  split_value_tokens(line, tokens);
  if (tokens.size() != 1) {
    return false;
  }
  const auto count = core::number::parse_integer(tokens.front());
  return count && *count >= 0 && static_cast<std::uint64_t>(*count) == rows;
}

std::vector<ValueType> column_types(const EntrySchemaInfo& info) {
  std::vector<ValueType> types;
  types.reserve(info.row_types.size() + 1);
  for (const std::string& name : info.row_types) {
    types.push_back(type_from_name(name));
  }
  if (types.empty()) {
    types.push_back(type_from_name(info.value_type));
  }
  return types;
}

bool row_matches(const Tokens& tokens, const std::vector<ValueType>& types,
                 const EntrySchemaInfo& info) {
  if (!arity_ok(tokens.size(), {info.row_arity, info.row_min_arity, info.row_max_arity,
                                info.row_allowed_arities})) {
    return false;
  }
  for (std::size_t column = 0; column < tokens.size(); ++column) {
    // The last type holds for all further columns.
    if (!token_matches(tokens[column], types[std::min(column, types.size() - 1)], info)) {
      return false;
    }
  }
  return true;
}

}  // namespace

bool token_matches_type(std::string_view token, std::string_view type,
                        const EntrySchemaInfo& info) {
  return token_matches(token, type_from_name(type), info);
}

bool value_matches(const std::vector<std::string_view>& lines, const EntrySchemaInfo& info) {
  Tokens tokens;
  for (const std::string_view line : lines) {
    split_value_tokens(line, tokens);
  }
  if (!arity_ok(tokens.size(),
                {info.arity, info.min_arity, info.max_arity, info.allowed_arities})) {
    return false;
  }
  const ValueType type = type_from_name(info.value_type);
  return std::all_of(tokens.begin(), tokens.end(),
                     [&](std::string_view token) { return token_matches(token, type, info); }) &&
         (info.allowed.empty() || is_allowed(tokens, info.allowed));
}

bool counted_rows_match(const std::vector<std::string_view>& lines, const EntrySchemaInfo& info) {
  if (lines.empty() || (info.count_line && !count_line_matches(lines.front(), lines.size() - 1))) {
    return false;
  }
  const std::vector<ValueType> types = column_types(info);
  Tokens tokens;
  for (std::size_t row = info.count_line ? 1 : 0; row < lines.size(); ++row) {
    tokens.clear();
    split_value_tokens(lines[row], tokens);
    if (!row_matches(tokens, types, info)) {
      return false;
    }
  }
  return true;
}

bool lines_match(const std::vector<std::string_view>& lines, const EntrySchemaInfo& info) {
  return info.kind == EntryValueKind::CountedRows ? counted_rows_match(lines, info)
                                                  : value_matches(lines, info);
}

}  // namespace kelp::input::bdf
