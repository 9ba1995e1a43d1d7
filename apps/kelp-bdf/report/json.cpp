#include "report/json.hpp"

#include <fmt/format.h>

namespace kelp::app {
namespace {

Json position_json(std::size_t byte, const input::bdf::SourceText& source) {
  const input::bdf::TextPosition position = source.position(byte);
  return {{"line", position.line}, {"column", position.column}, {"byte", byte}};
}

}  // namespace

Json text_or_null(const std::string& text) {
  return text.empty() ? Json() : Json(text);
}

Json range_json(const input::bdf::TextRange& range, const input::bdf::SourceText& source) {
  return {{"start", position_json(range.begin, source)}, {"end", position_json(range.end, source)}};
}

std::string json_line(const Json& value) {
  return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string json_lines(const Json& value) {
  constexpr int indent = 2;
  return value.dump(indent, ' ', false, Json::error_handler_t::replace);
}

std::string JsonList::begin() const {
  return fmt::format("{{\n  \"version\": {},\n  \"{}\": [", record_version, name_);
}

std::string JsonList::add(std::string_view item) {
  std::string text = is_empty_ ? "\n    " : ",\n    ";
  is_empty_ = false;
  for (const char byte : item) {
    text += byte == '\n' ? std::string("\n    ") : std::string(1, byte);
  }
  return text;
}

std::string JsonList::end(const Json& more) const {
  std::string text = is_empty_ ? "]" : "\n  ]";
  for (const auto& [name, value] : more.items()) {
    text += fmt::format(",\n  \"{}\": {}", name, json_line(value));
  }
  return text + "\n}\n";
}

}  // namespace kelp::app
