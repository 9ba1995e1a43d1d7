// What a description accepts, in words.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/explain.hpp"
#include "kelp/input/bdf/names.hpp"

namespace kelp::input::bdf {
namespace {

std::string counted(std::uint64_t count, std::string_view thing) {
  return std::to_string(count).append(" ").append(thing) + (count == 1 ? "" : "s");
}

std::string arity_text(const std::optional<std::uint64_t>& exact,
                       const std::optional<std::uint64_t>& least,
                       const std::optional<std::uint64_t>& most,
                       const std::vector<std::uint64_t>& allowed, std::string_view thing) {
  if (exact) {
    return counted(*exact, thing);
  }
  if (!allowed.empty()) {
    std::vector<std::string> counts;
    counts.reserve(allowed.size());
    for (const std::uint64_t count : allowed) {
      counts.push_back(std::to_string(count));
    }
    return core::text::join(counts, " or ").append(" ").append(thing) + "s";
  }
  if (least && most) {
    return std::to_string(*least) + " to " + std::to_string(*most).append(" ").append(thing) + "s";
  }
  if (least) {
    return "at least " + counted(*least, thing);
  }
  return most ? "at most " + counted(*most, thing) : std::string();
}

std::string type_text(std::string_view type) {
  if (type == "integer") {
    return "integer";
  }
  return type == "float" || type == "number" ? "number" : "";
}

std::string bounds_text(const EntrySchemaInfo& info) {
  std::string text;
  if (info.min) {
    text += info.min_exclusive ? " above " : " of at least ";
    text += core::number::to_text(*info.min);
  }
  if (info.max) {
    text += info.min ? " and" : "";
    text += info.max_exclusive ? " below " : " at most ";
    text += core::number::to_text(*info.max);
  }
  return text;
}

std::string rows_text(const EntrySchemaInfo& info) {
  std::string text = info.count_line ? "the number of rows, then the rows" : "rows";
  const std::string columns = arity_text(info.row_arity, info.row_min_arity, info.row_max_arity,
                                         info.row_allowed_arities, "field");
  if (!columns.empty()) {
    text += " of " + columns;
  }
  if (!info.row_types.empty()) {
    text += " (" + core::text::join(info.row_types, ", ") + ")";
  }
  return text;
}

}  // namespace

std::string value_type_text(const EntrySchemaInfo& info) {
  switch (info.kind) {
    case EntryValueKind::Flag:
    case EntryValueKind::NestedBlock:
    case EntryValueKind::TerminatedBlock:
    case EntryValueKind::Raw:
      return {};
    case EntryValueKind::CountedRows:
      return info.row_types.empty() ? info.value_type : core::text::join(info.row_types, " ");
    default:
      return info.value_type;
  }
}

std::string expected_value(const EntrySchemaInfo& info) {
  if (!info.allowed.empty()) {
    return quoted_choice(info.allowed);
  }
  if (info.kind == EntryValueKind::CountedRows) {
    return rows_text(info);
  }
  const std::string type = type_text(info.value_type);
  const std::string fields = arity_text(info.arity, info.min_arity, info.max_arity,
                                        info.allowed_arities, type.empty() ? "field" : type);
  if (info.arity == std::uint64_t{1} && !type.empty()) {
    return (type == "integer" ? "an integer" : "a number") + bounds_text(info);
  }
  if (!fields.empty()) {
    return fields + (type.empty() ? "" : bounds_text(info));
  }
  return type.empty() ? std::string() : type + "s" + bounds_text(info);
}

}  // namespace kelp::input::bdf
