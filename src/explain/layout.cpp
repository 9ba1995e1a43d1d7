// How an entry is written, with values that its description accepts: the default, or else the first
// value allowed, or else as many fields of the right type within the bounds as are asked for.

#include "explain/layout.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/explain.hpp"

namespace kelp::input::bdf {
namespace {

using Lines = std::vector<std::string>;

// More fields than that show no more.
constexpr std::uint64_t most_fields = 8;

std::string with_decimals(double number, int decimals) {
  // Room for a sign, the 309 digits of the largest double, the point and a decimal.
  std::array<char, 320> digits;
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                     std::chars_format::fixed, decimals);
  return {digits.data(), written.ptr};
}

// A number within the bounds: 1, or what is nearest to it.
std::string number_example(const EntrySchemaInfo& info, bool integer) {
  double number = 1;
  if (info.min) {
    number = std::max(number, info.min_exclusive ? *info.min + 1 : *info.min);
  }
  if (info.max && (number > *info.max || (info.max_exclusive && number >= *info.max))) {
    number = info.max_exclusive ? (info.min.value_or(*info.max - 1) + *info.max) / 2 : *info.max;
  }
  // No bound need fit into an integer's type. Zero added makes zero of minus zero.
  return integer ? with_decimals(std::trunc(number) + 0.0, 0) : with_decimals(number, 1);
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
  return core::text::join(fields, " ");
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
  return core::text::join(fields, " ");
}

// Every kind of counted rows is written with a count, but where only rows are described it must
// pass for one.
bool shows_count(const EntrySchemaInfo& info) {
  const auto& allowed = info.row_allowed_arities;
  return info.count_line ||
         (info.row_arity.value_or(1) == 1 && info.row_min_arity.value_or(1) <= 1 &&
          (allowed.empty() || std::find(allowed.begin(), allowed.end(), 1) != allowed.end()));
}

}  // namespace

std::string_view layout_sentence(EntryValueKind kind) {
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

}  // namespace kelp::input::bdf
