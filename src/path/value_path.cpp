// Paths from text and to text. A path is cut at its dots first; what stands in each part decides
// nothing about the others, so that the first fault found is the leftmost.

#include "kelp/input/bdf/value_path.hpp"

#include <algorithm>
#include <array>
#include <cstdint>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::string_view geometry_word = "geometry";
constexpr std::string_view header_word = "easy";
constexpr std::size_t most_parts = 3;

bool cannot_stand_in_a_name(char byte) {
  return core::text::is_space(byte) || byte == '=' || byte == '#' || byte == '\0';
}

std::vector<std::string_view> split_at_dots(std::string_view text) {
  std::vector<std::string_view> parts;
  for (std::size_t dot = 0; dot != std::string_view::npos;) {
    dot = text.find('.');
    parts.push_back(text.substr(0, dot));
    text.remove_prefix(dot == std::string_view::npos ? text.size() : dot + 1);
  }
  return parts;
}

/// Reads one path. All views are into its text, so that a part knows its range.
class PathReader {
 public:
  explicit PathReader(std::string_view text) : text_(text) {}

  PathResult run() {
    PathResult result;
    if (read()) {
      result.path = std::move(path_);
      return result;
    }
    result.error = "'" + std::string(text_) + "' is no path: " + reason_ +
                   "; paths look like scf.charge, scf#2.charge, easy.charge or geometry";
    result.range = range_;
    return result;
  }

 private:
  bool read() {
    if (core::text::equals_ignoring_case(text_, geometry_word)) {
      path_.kind = PathKind::Geometry;
      return true;
    }
    const std::vector<std::string_view> parts = split_at_dots(text_);
    if (parts.size() > most_parts) {
      const auto rest = static_cast<std::size_t>(parts[most_parts].data() - text_.data());
      return reject(text_.substr(rest), "it has more than three parts");
    }
    if (parts.size() == 2 && core::text::equals_ignoring_case(parts[0], header_word)) {
      path_.kind = PathKind::EasyKeyword;
      return read_name(parts[1], "keyword", path_.name);
    }
    path_.kind = std::array{PathKind::Module, PathKind::Entry, PathKind::Child}[parts.size() - 1];
    return read_module(parts[0]) &&
           (parts.size() < 2 || read_name(parts[1], "entry", path_.name)) &&
           (parts.size() < 3 || read_name(parts[2], "entry", path_.child));
  }

  // Reads "scf" or "scf#2", with or without the `$` of an input.
  bool read_module(std::string_view part) {
    part.remove_prefix(part.starts_with('$') ? 1 : 0);
    const std::size_t hash = part.find('#');
    if (!read_name(part.substr(0, hash), "module", path_.module)) {
      return false;
    }
    return hash == std::string_view::npos || read_number(part.substr(hash + 1));
  }

  bool read_number(std::string_view digits) {
    const auto number = core::number::parse_integer(digits);
    const bool plain = !digits.empty() && digits.front() >= '1' && digits.front() <= '9' &&
                       !core::text::is_space(digits.back());
    if (!number || !plain) {
      return reject(digits,
                    "'" + std::string(digits) + "' is no number of a module, counted from 1");
    }
    path_.module_index = static_cast<std::size_t>(*number) - 1;
    return true;
  }

  bool read_name(std::string_view part, std::string_view thing, std::string& name) {
    if (part.empty()) {
      return reject(part, "it has no " + std::string(thing));
    }
    if (std::any_of(part.begin(), part.end(), cannot_stand_in_a_name)) {
      return reject(part, "'" + std::string(part) + "' cannot be the name of a" +
                              (thing.front() == 'e' ? "n " : " ") + std::string(thing));
    }
    name = part;
    return true;
  }

  bool reject(std::string_view part, std::string reason) {
    const auto begin = static_cast<std::size_t>(part.data() - text_.data());
    range_ = {begin, begin + part.size()};
    reason_ = std::move(reason);
    return false;
  }

  std::string_view text_;
  ValuePath path_;
  std::string reason_;
  TextRange range_;
};

}  // namespace

PathResult parse_path(std::string_view text) {
  return PathReader(text).run();
}

std::string to_string(const ValuePath& path) {
  if (path.kind == PathKind::Geometry) {
    return std::string(geometry_word);
  }
  if (path.kind == PathKind::EasyKeyword) {
    return std::string(header_word) + '.' + path.name;
  }
  std::string text = path.module;
  if (path.module_index > 0) {
    text += '#' + std::to_string(path.module_index + 1);
  }
  if (path.kind != PathKind::Module) {
    text += '.' + path.name;
  }
  if (path.kind == PathKind::Child) {
    text += '.' + path.child;
  }
  return text;
}

}  // namespace kelp::input::bdf
