#include "sweep/name_pattern.hpp"

#include <algorithm>

#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

bool is_kept_in_names(char byte) {
  return (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') ||
         (byte >= 'A' && byte <= 'Z') ||
         std::string_view("_.+()=,-").find(byte) != std::string_view::npos;
}

/// Returns a text as a part of a name: a dash for all in a row that no name should hold, and none
/// for what begins or ends it.
std::string as_part_of_name(std::string_view text) {
  std::string part;
  bool is_gap = false;
  for (const char byte : text) {
    if (!is_kept_in_names(byte)) {
      is_gap = true;
      continue;
    }
    part += is_gap && !part.empty() ? "-" : "";
    part += byte;
    is_gap = false;
  }
  return part;
}

// The name of what a path leads to: the entry of a nested block, else the entry or the keyword.
const std::string& last_name(const ValuePath& path) {
  return path.kind == PathKind::Child    ? path.child
         : path.kind == PathKind::Module ? path.module
                                         : path.name;
}

std::string padded(std::size_t number, std::size_t digits) {
  std::string text = std::to_string(number);
  return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

std::string listed_fields(const std::vector<SweepAxis>& axes) {
  std::string list;
  for (const SweepAxis& axis : axes) {
    list += "{" + to_string(axis.path) + "}, ";
  }
  return list + "{#}";
}

}  // namespace

NamePattern::NamePattern(std::string_view text, const std::vector<SweepAxis>& axes,
                         std::size_t count)
    : axes_(axes), digits_(std::to_string(count).size()), error_(read(text)) {}

std::string NamePattern::read(std::string_view text) {
  while (!text.empty()) {
    const std::size_t brace = std::min(text.find_first_of("{}"), text.size());
    parts_.push_back({std::string(text.substr(0, brace))});
    text.remove_prefix(brace);
    if (text.empty()) {
      break;
    }
    const std::size_t end = text.find_first_of("{}", 1);
    if (text.front() == '}' || end == std::string_view::npos || text[end] == '{') {
      return "a brace in the name has no other one";
    }
    std::string error = add_field(text.substr(1, end - 1));
    if (!error.empty()) {
      return error;
    }
    text.remove_prefix(end + 1);
  }
  return {};
}

// A whole path counts for more than a name.
std::string NamePattern::add_field(std::string_view field) {
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i < axes_.size(); ++i) {
    if (core::text::equals_ignoring_case(to_string(axes_[i].path), field)) {
      found = {i};
      break;
    }
    if (core::text::equals_ignoring_case(last_name(axes_[i].path), field)) {
      found.push_back(i);
    }
  }
  if (found.empty() && field == "#") {
    found = {number_axis};
  }
  const std::string shown = "'{" + std::string(field) + "}' in the name";
  if (found.empty()) {
    return shown + " stands for none of the paths; there are " + listed_fields(axes_);
  }
  if (found.size() > 1) {
    return shown + " may stand for several of the paths, '" + to_string(axes_[found[0]].path) +
           "' and '" + to_string(axes_[found[1]].path) + "'; write the whole path";
  }
  parts_.push_back({{}, found.front()});
  return {};
}

std::string NamePattern::name_of(std::size_t number, const std::vector<std::size_t>& chosen) const {
  std::string name;
  for (const Part& part : parts_) {
    if (part.axis == no_axis) {
      name += part.text;
    } else if (part.axis == number_axis) {
      name += padded(number + 1, digits_);
    } else {
      const SweepAxis& axis = axes_[part.axis];
      const std::string value =
          as_part_of_name(core::text::join(axis.values[chosen[part.axis]], " "));
      name += value.empty() ? as_part_of_name(last_name(axis.path)) : value;
    }
  }
  return name;
}

std::string fault_of_name(std::string_view name) {
  const std::string shown = "'" + std::string(name) + "' is no name for a file of a sweep: ";
  const auto is_forbidden = [](char byte) {
    return (byte >= 0 && byte < ' ') || byte == '\x7f' ||
           std::string_view("\\:*?\"<>|").find(byte) != std::string_view::npos;
  };
  if (std::any_of(name.begin(), name.end(), is_forbidden)) {
    return shown + "not every system takes what stands in it";
  }
  for (std::size_t slash = 0; slash != std::string_view::npos;) {
    slash = name.find('/');
    const std::string_view part = name.substr(0, slash);
    if (part.empty() || part == "." || part == "..") {
      return shown + "it names no file below the folder";
    }
    if (part.front() == '-') {
      return shown + "it begins with a dash, as options do";
    }
    name.remove_prefix(slash == std::string_view::npos ? name.size() : slash + 1);
  }
  return {};
}

}  // namespace kelp::input::bdf
