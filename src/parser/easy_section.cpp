#include "parser/easy_section.hpp"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "model/from_schema.hpp"
#include "parser/header_words.hpp"

namespace kelp::input::bdf {
namespace {

void parse_header_line(LineReader& reader, const InputSchema& schema, BDFData& data) {
  const std::size_t index = reader.index();
  for (std::string& text : split_header_line(reader.take())) {
    EasyToken token = easy_token_from_text(std::move(text), schema);
    token.location = span_of_line(index, token.text);
    data.easy_tokens.push_back(std::move(token));
  }
}

std::optional<AtomRecord> parse_atom(std::string_view line) {
  std::string_view rest = line;
  const std::string_view element = core::text::take_word(rest);
  std::array<double, 3> position{};
  for (double& coordinate : position) {
    const auto value = core::number::parse_float(core::text::take_word(rest));
    if (!value) {
      return std::nullopt;
    }
    coordinate = *value;
  }
  AtomRecord atom;
  atom.element = element;
  atom.x = position[0];
  atom.y = position[1];
  atom.z = position[2];
  atom.line = line;
  return atom;
}

void parse_geometry(LineReader& reader, BDFData& data) {
  data.has_geometry = true;
  data.geometry_terminated = false;
  data.geometry_location = reader.location();
  reader.skip();
  for (; !reader.at_end(); reader.skip()) {
    const std::string_view line = reader.line();
    if (is_geometry_end(line)) {
      data.geometry_terminated = true;
      reader.skip();
      return;
    }
    if (auto atom = parse_atom(line)) {
      atom->location = reader.location();
      data.atoms.push_back(*std::move(atom));
    } else {
      data.geometry_lines.emplace_back(line);
    }
  }
}

}  // namespace

void parse_easy_section(LineReader& reader, const InputSchema& schema, BDFData& data) {
  while (!reader.at_end() && !starts_body(reader.line())) {
    const std::string_view line = reader.line();
    if (is_geometry_start(line)) {
      parse_geometry(reader, data);
      return;
    }
    if (is_blank(line)) {
      reader.skip();
    } else if (is_remark(line)) {
      data.leading_lines.emplace_back(reader.take());
    } else {
      parse_header_line(reader, schema, data);
    }
  }
}

}  // namespace kelp::input::bdf
