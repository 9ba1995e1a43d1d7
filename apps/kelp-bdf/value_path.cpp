#include "value_path.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <vector>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"

namespace kelp::app {
namespace {

[[noreturn]] void reject(std::string_view path, std::string_view reason) {
  throw std::runtime_error(fmt::format(
      "'{}' is no path: {}; paths look like scf.charge, scf#2.charge, easy.charge or geometry",
      path, reason));
}

std::vector<std::string> split_at_dots(std::string_view text) {
  std::vector<std::string> parts;
  for (std::size_t dot = 0; dot != std::string_view::npos;) {
    dot = text.find('.');
    parts.emplace_back(text.substr(0, dot));
    text.remove_prefix(dot == std::string_view::npos ? text.size() : dot + 1);
  }
  return parts;
}

bool is_out_of_place(char byte) {
  return core::text::is_space(byte) || byte == '=' || byte == '#' || byte == '\0';
}

void check_name(std::string_view path, std::string_view name, std::string_view thing) {
  if (name.empty()) {
    reject(path, fmt::format("it has no {}", thing));
  }
  if (std::any_of(name.begin(), name.end(), is_out_of_place)) {
    reject(path, fmt::format("'{}' cannot be the name of a{} {}", name,
                             thing.front() == 'e' ? "n" : "", thing));
  }
}

// Reads "scf" or "scf#2", with or without the `$` of an input.
void read_module(ValuePath& path, std::string_view part) {
  part.remove_prefix(part.starts_with('$') ? 1 : 0);
  const std::size_t hash = part.find('#');
  path.module = part.substr(0, hash);
  check_name(path.text, path.module, "module");
  if (hash == std::string_view::npos) {
    return;
  }
  const std::string_view digits = part.substr(hash + 1);
  const auto number = core::number::parse_integer(digits);
  const bool plain = !digits.empty() && digits.front() >= '1' && digits.front() <= '9';
  if (!number || !plain) {
    reject(path.text, fmt::format("'{}' is no number of a module, counted from 1", digits));
  }
  path.module_index = static_cast<std::size_t>(*number) - 1;
}

}  // namespace

ValuePath parse_path(std::string_view text) {
  ValuePath path;
  path.text = text;
  if (core::text::equals_ignoring_case(text, "geometry")) {
    path.kind = ValuePath::Kind::Geometry;
    return path;
  }
  const std::vector<std::string> parts = split_at_dots(text);
  if (parts.size() > 3) {
    reject(text, "it has more than three parts");
  }
  if (parts.size() == 2 && core::text::equals_ignoring_case(parts[0], "easy")) {
    path.kind = ValuePath::Kind::EasyKeyword;
    path.name = parts[1];
    check_name(text, path.name, "keyword");
    return path;
  }
  read_module(path, parts[0]);
  path.kind = ValuePath::Kind::Module;
  if (parts.size() > 1) {
    path.kind = ValuePath::Kind::Entry;
    path.name = parts[1];
    check_name(text, path.name, "entry");
  }
  if (parts.size() > 2) {
    path.kind = ValuePath::Kind::Child;
    path.child = parts[2];
    check_name(text, path.child, "entry");
  }
  return path;
}

}  // namespace kelp::app
