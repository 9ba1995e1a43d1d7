#include "vocabulary.hpp"

#include <fmt/format.h>

#include <cstdint>
#include <optional>
#include <utility>

#include "similar.hpp"

namespace kelp::app {
namespace {

using input::bdf::EntrySchemaInfo;
using input::bdf::EntryValueKind;
using input::bdf::InputSchema;
using Names = std::vector<std::string>;

void append(Names& names, Names more) {
  for (std::string& name : more) {
    names.push_back(std::move(name));
  }
}

// Adds to each name its aliases, which `aliases_of` returns.
template <typename AliasesOf>
Names with_aliases(const Names& names, AliasesOf aliases_of) {
  Names all = names;
  for (const std::string& name : names) {
    append(all, aliases_of(name));
  }
  return all;
}

std::string counted(std::uint64_t count, std::string_view thing) {
  return fmt::format("{} {}{}", count, thing, count == 1 ? "" : "s");
}

std::string arity_text(const std::optional<std::uint64_t>& exact,
                       const std::optional<std::uint64_t>& least,
                       const std::optional<std::uint64_t>& most,
                       const std::vector<std::uint64_t>& allowed, std::string_view thing) {
  if (exact) {
    return counted(*exact, thing);
  }
  if (!allowed.empty()) {
    return fmt::format("{} {}s", fmt::join(allowed, " or "), thing);
  }
  if (least && most) {
    return fmt::format("{} to {} {}s", *least, *most, thing);
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
    text += fmt::format(" {} {}", info.min_exclusive ? "above" : "of at least", *info.min);
  }
  if (info.max) {
    text += fmt::format("{} {} {}", info.min ? " and" : "",
                        info.max_exclusive ? "below" : "at most", *info.max);
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
    text += fmt::format(" ({})", fmt::join(info.row_types, ", "));
  }
  return text;
}

}  // namespace

Names module_names(const InputSchema& schema) {
  return with_aliases(schema.known_modules(),
                      [&](const std::string& name) { return schema.module_aliases(name); });
}

Names entry_names(const InputSchema& schema, std::string_view module) {
  return with_aliases(schema.known_entries(module),
                      [&](const std::string& name) { return schema.entry_aliases(module, name); });
}

Names nested_entry_names(const InputSchema& schema, std::string_view module,
                         std::string_view entry) {
  return with_aliases(schema.known_nested_entries(module, entry), [&](const std::string& name) {
    return schema.nested_entry_aliases(module, entry, name);
  });
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

}  // namespace kelp::app
