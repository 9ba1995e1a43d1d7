#include "source/lines.hpp"

namespace kelp::input::bdf {
namespace {

using core::text::equals_ignoring_case;
using core::text::trim_view;

bool starts_with_ignoring_case(std::string_view text, std::string_view prefix) {
  return equals_ignoring_case(text.substr(0, prefix.size()), prefix);
}

}  // namespace

std::string_view without_comment(std::string_view line) {
  const std::size_t hash = line.find('#');
  const bool is_behind = hash != std::string_view::npos && !trim_view(line.substr(0, hash)).empty();
  return is_behind ? line.substr(0, hash) : line;
}

bool is_geometry_start(std::string_view line) {
  constexpr std::string_view keyword = "geometry";
  const std::string_view text = trim_view(line);
  if (!starts_with_ignoring_case(text, keyword)) {
    return false;
  }
  return text.size() == keyword.size() || text[keyword.size()] == '#' ||
         core::text::is_space(text[keyword.size()]);
}

bool is_geometry_end(std::string_view line) {
  const char first = first_byte(line);
  return (first == 'e' || first == 'E') &&
         starts_with_ignoring_case(trim_view(line), "end geometry");
}

}  // namespace kelp::input::bdf
