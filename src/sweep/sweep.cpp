// Combinations are numbers: the number of a variant, written with a digit for each axis, tells
// which value of each is meant. So names are made one by one, and the whole plan is refused before
// any input is made when two of them are alike.

#include "kelp/input/bdf/sweep.hpp"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "kelp/core/text.hpp"
#include "sweep/name_pattern.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::string_view new_line = "\\n";

// The position of the comma behind a value, or the end of the text.
std::size_t end_of_value(std::string_view text) {
  int depth = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char byte = text[i];
    if (byte == '\\') {
      ++i;
    } else if (byte == '(') {
      ++depth;
    } else if (byte == ')') {
      depth -= depth > 0 ? 1 : 0;
    } else if (byte == ',' && depth == 0) {
      return i;
    }
  }
  return text.size();
}

std::vector<std::string> lines_of_value(std::string_view text) {
  std::vector<std::string> lines(1);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.substr(i, new_line.size()) == new_line) {
      lines.emplace_back();
      ++i;
    } else if (text[i] != '\\' || text.substr(i + 1, 1) != ",") {
      lines.back() += text[i];
    }
  }
  return lines;
}

std::string read_values(std::string_view text, SweepAxis& axis) {
  for (bool is_last = false; !is_last;) {
    const std::size_t end = end_of_value(text);
    const std::string_view value = core::text::trim_view(text.substr(0, end));
    if (value.empty()) {
      return "a value of '" + to_string(axis.path) + "' is empty";
    }
    axis.values.push_back(lines_of_value(value));
    is_last = end == text.size();
    text.remove_prefix(is_last ? end : end + 1);
  }
  return {};
}

/// Returns a text that is the same for all paths that mean the same.
std::string canonical_text(const ValuePath& path, const InputSchema& schema) {
  ValuePath canonical = path;
  if (path.kind == PathKind::EasyKeyword) {
    canonical.name = schema.canonical_easy_key(path.name);
  } else {
    canonical.module = schema.canonical_module(path.module);
    canonical.name = schema.canonical_entry(path.module, path.name);
    canonical.child = schema.canonical_nested_entry(path.module, path.name, path.child);
  }
  return core::text::to_lower(to_string(canonical));
}

std::string find_fault(const std::vector<SweepAxis>& axes, const InputSchema& schema) {
  if (axes.empty()) {
    return "a sweep needs a path with values";
  }
  std::unordered_map<std::string, std::string> paths;
  std::size_t count = 1;
  for (const SweepAxis& axis : axes) {
    const std::string path = to_string(axis.path);
    if (axis.values.empty()) {
      return "'" + path + "' has no values";
    }
    const auto [other, is_new] = paths.emplace(canonical_text(axis.path, schema), path);
    if (!is_new) {
      return "'" + other->second + "' and '" + path + "' mean the same";
    }
    if (axis.values.size() > most_sweep_variants / count) {
      return "that would be more than the " + std::to_string(most_sweep_variants) +
             " variants that one sweep may have";
    }
    count *= axis.values.size();
  }
  return {};
}

std::size_t count_variants(const std::vector<SweepAxis>& axes) {
  std::size_t count = 1;
  for (const SweepAxis& axis : axes) {
    count *= axis.values.size();
  }
  return count;
}

std::vector<std::size_t> choice_of(const std::vector<SweepAxis>& axes, std::size_t number) {
  std::vector<std::size_t> chosen(axes.size());
  for (std::size_t i = axes.size(); i-- > 0;) {
    chosen[i] = number % axes[i].values.size();
    number /= axes[i].values.size();
  }
  return chosen;
}

std::string described(const std::vector<SweepAxis>& axes, const SweepVariant& variant) {
  std::string text;
  for (std::size_t i = 0; i < axes.size(); ++i) {
    text += (i == 0 ? "" : " ") + to_string(axes[i].path) + '=' +
            core::text::join(axes[i].values[variant.chosen[i]], new_line);
  }
  return text;
}

// Some systems take names that differ in case for one.
std::string find_same_names(const std::vector<SweepAxis>& axes,
                            const std::vector<SweepVariant>& variants) {
  std::unordered_map<std::string, const SweepVariant*> names;
  for (const SweepVariant& variant : variants) {
    const auto [other, is_new] = names.emplace(core::text::to_lower(variant.name), &variant);
    if (!is_new) {
      return "two variants would be named '" + variant.name +
             "': " + described(axes, *other->second) + ", and " + described(axes, variant) +
             "; {#} in the name is a number for each";
    }
  }
  return {};
}

}  // namespace

SweepAxisResult parse_sweep_axis(std::string_view text) {
  SweepAxisResult result;
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos) {
    result.error = "'" + std::string(text) + "' is no PATH=VALUE,VALUE";
    return result;
  }
  PathResult path = parse_path(text.substr(0, equals));
  if (!path.path) {
    result.error = std::move(path.error);
    return result;
  }
  SweepAxis axis = {*std::move(path.path), {}};
  result.error = read_values(text.substr(equals + 1), axis);
  if (result.error.empty()) {
    result.axis = std::move(axis);
  }
  return result;
}

SweepPlan plan_sweep(const std::vector<SweepAxis>& axes, std::string_view name_pattern,
                     const InputSchema& schema) {
  SweepPlan plan;
  plan.error = find_fault(axes, schema);
  if (!plan.error.empty()) {
    return plan;
  }
  const std::size_t count = count_variants(axes);
  const NamePattern pattern(name_pattern, axes, count);
  plan.error = pattern.error();
  std::vector<SweepVariant> variants;
  for (std::size_t i = 0; i < count && plan.error.empty(); ++i) {
    const std::vector<std::size_t> chosen = choice_of(axes, i);
    variants.push_back({pattern.name_of(i, chosen), chosen});
    plan.error = fault_of_name(variants.back().name);
  }
  if (plan.error.empty()) {
    plan.error = find_same_names(axes, variants);
  }
  if (plan.error.empty()) {
    plan.variants = std::move(variants);
  }
  return plan;
}

std::vector<Assignment> assignments_of(const std::vector<SweepAxis>& axes,
                                       const SweepVariant& variant) {
  std::vector<Assignment> assignments;
  for (std::size_t i = 0; i < axes.size() && i < variant.chosen.size(); ++i) {
    const auto& values = axes[i].values;
    if (variant.chosen[i] < values.size()) {
      assignments.push_back({axes[i].path, values[variant.chosen[i]]});
    }
  }
  return assignments;
}

}  // namespace kelp::input::bdf
