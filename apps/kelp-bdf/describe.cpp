#include "describe.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

#include "similar.hpp"
#include "vocabulary.hpp"

namespace kelp::app {
namespace {

using input::bdf::EntrySchemaInfo;
using input::bdf::EntryValueKind;
using input::bdf::ValueRequirement;
using Lines = std::vector<std::string>;

// More fields than that show no more.
constexpr std::uint64_t most_fields = 8;

// A number within the bounds, the default's neighbour of choice being 1.
std::string number_example(const EntrySchemaInfo& info, bool integer) {
  double number = 1;
  if (info.min) {
    number = std::max(number, info.min_exclusive ? *info.min + 1 : *info.min);
  }
  if (info.max && (number > *info.max || (info.max_exclusive && number >= *info.max))) {
    number = info.max_exclusive ? (info.min.value_or(*info.max - 1) + *info.max) / 2 : *info.max;
  }
  return integer ? fmt::format("{}", static_cast<std::int64_t>(number))
                 : fmt::format("{:.1f}", number);
}

std::string field_example(const EntrySchemaInfo& info, std::string_view type) {
  if (type == "integer") {
    return number_example(info, true);
  }
  if (type == "float" || type == "number") {
    return number_example(info, false);
  }
  return "text";
}

std::uint64_t field_count(const std::optional<std::uint64_t>& exact,
                          const std::optional<std::uint64_t>& least,
                          const std::vector<std::uint64_t>& allowed) {
  if (exact) {
    return std::min(*exact, most_fields);
  }
  return std::min(allowed.empty() ? least.value_or(1) : allowed.back(), most_fields);
}

std::string value_example(const EntrySchemaInfo& info) {
  if (info.default_value && info.kind != EntryValueKind::Flag) {
    return *info.default_value;
  }
  if (!info.allowed.empty()) {
    return info.allowed.front();
  }
  const Lines fields(
      std::max<std::uint64_t>(1, field_count(info.arity, info.min_arity, info.allowed_arities)),
      field_example(info, info.value_type));
  return fmt::format("{}", fmt::join(fields, " "));
}

std::string row_example(const EntrySchemaInfo& info) {
  std::uint64_t count = field_count(info.row_arity, info.row_min_arity, info.row_allowed_arities);
  count = std::max<std::uint64_t>(count, 1);
  Lines fields;
  for (std::uint64_t i = 0; i < count; ++i) {
    const std::string_view type =
        info.row_types.empty()
            ? std::string_view(info.value_type)
            : info.row_types[std::min<std::size_t>(i, info.row_types.size() - 1)];
    fields.push_back(field_example(info, type));
  }
  return fmt::format("{}", fmt::join(fields, " "));
}

// Every kind of counted rows is written with a count, but where only rows are described it must
// pass for one.
bool shows_count(const EntrySchemaInfo& info) {
  const auto& allowed = info.row_allowed_arities;
  return info.count_line ||
         (info.row_arity.value_or(1) == 1 && info.row_min_arity.value_or(1) <= 1 &&
          (allowed.empty() || std::find(allowed.begin(), allowed.end(), 1) != allowed.end()));
}

std::string requirement_text(const ValueRequirement& requirement) {
  return requirement.entry + (requirement.equals ? " = " + *requirement.equals : "");
}

std::string requirements_text(const std::vector<ValueRequirement>& requirements) {
  Lines texts;
  for (const ValueRequirement& requirement : requirements) {
    texts.push_back(requirement_text(requirement));
  }
  return fmt::format("{}", fmt::join(texts, ", "));
}

}  // namespace

std::string_view kind_name(EntryValueKind kind) {
  switch (kind) {
    case EntryValueKind::Flag:
      return "flag";
    case EntryValueKind::Scalar:
      return "scalar";
    case EntryValueKind::Tuple:
      return "tuple";
    case EntryValueKind::MultiLine:
      return "multiline";
    case EntryValueKind::CountedRows:
      return "counted_rows";
    case EntryValueKind::NestedBlock:
      return "nested_block";
    case EntryValueKind::TerminatedBlock:
      return "terminated_block";
    case EntryValueKind::Raw:
      break;
  }
  return "raw";
}

std::string_view kind_text(EntryValueKind kind) {
  switch (kind) {
    case EntryValueKind::Flag:
      return "The keyword alone; it has no value.";
    case EntryValueKind::Scalar:
      return "The keyword, then its value on the next line.";
    case EntryValueKind::Tuple:
      return "The keyword, then several fields on the next line.";
    case EntryValueKind::MultiLine:
      return "The keyword, then its values on the lines that follow, up to the next keyword.";
    case EntryValueKind::CountedRows:
      return "The keyword, then the number of rows, then as many rows.";
    case EntryValueKind::NestedBlock:
      return "The keyword, then entries of its own, then the line that ends the block.";
    case EntryValueKind::TerminatedBlock:
      return "The keyword, then lines of any kind, then the line that ends the block.";
    case EntryValueKind::Raw:
      break;
  }
  return "The keyword; the lines that follow are kept as they are.";
}

std::string type_name(const EntrySchemaInfo& info) {
  switch (info.kind) {
    case EntryValueKind::Flag:
    case EntryValueKind::NestedBlock:
    case EntryValueKind::TerminatedBlock:
    case EntryValueKind::Raw:
      return {};
    case EntryValueKind::CountedRows:
      if (!info.row_types.empty()) {
        return fmt::format("{}", fmt::join(info.row_types, " "));
      }
      break;
    default:
      break;
  }
  return info.value_type;
}

Lines layout_example(const EntrySchemaInfo& info, const Lines& children) {
  Lines lines = {info.name};
  switch (info.kind) {
    case EntryValueKind::Flag:
    case EntryValueKind::Raw:
      break;
    case EntryValueKind::CountedRows:
      if (shows_count(info)) {
        lines.emplace_back("  1");
      }
      lines.push_back("  " + row_example(info));
      break;
    case EntryValueKind::NestedBlock:
      lines.push_back("  " + (children.empty() ? "..." : children.front()));
      lines.push_back(info.terminator);
      break;
    case EntryValueKind::TerminatedBlock:
      lines.emplace_back("  ...");
      lines.push_back(info.terminator);
      break;
    default:
      lines.push_back("  " + value_example(info));
  }
  return lines;
}

std::string header_example(const EntrySchemaInfo& info) {
  return info.kind == EntryValueKind::Flag ? info.name : info.name + "=" + value_example(info);
}

std::vector<std::pair<std::string, std::string>> facts(const EntrySchemaInfo& info,
                                                       const Lines& aliases) {
  std::vector<std::pair<std::string, std::string>> facts;
  const auto add = [&facts](std::string heading, std::string text) {
    if (!text.empty()) {
      facts.emplace_back(std::move(heading), std::move(text));
    }
  };
  add("type", type_name(info));
  add("values", expected_value(info));
  add("default", info.default_value.value_or(""));
  add("ends with", info.terminator);
  add("needs", requirements_text(info.required));
  add("not with", fmt::format("{}", fmt::join(info.conflicts, ", ")));
  add("also spelt", fmt::format("{}", fmt::join(aliases, ", ")));
  add("repeatable", info.repeatable ? "yes" : "");
  return facts;
}

}  // namespace kelp::app
