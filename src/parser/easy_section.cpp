#include "parser/easy_section.hpp"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/from_schema.hpp"
#include "parser/frame.hpp"
#include "parser/header_words.hpp"
#include "parser/mending.hpp"
#include "source/atom_line.hpp"

namespace kelp::input::bdf {
namespace {

// Tells the line map where the tokens of a line stand; the first of them will be `first_token`.
void note_pieces(const HeaderWords& words, std::size_t first_token, const LineReader& reader) {
  LineMap* const map = reader.map();
  if (map == nullptr) {
    return;
  }
  for (const HeaderWords::Piece& piece : words.pieces) {
    const std::size_t begin = reader.byte_of(piece.text);
    map->pieces.push_back(
        {first_token + piece.token, piece.text_begin, {begin, begin + piece.text.size()}});
  }
}

void parse_header_line(LineReader& reader, const InputSchema& schema, BDFData& data) {
  const std::size_t index = reader.index();
  reader.begin_record(RecordId::of(RecordKind::EasyToken, data.easy_tokens.size()));
  HeaderWords words = split_header_line(reader.line());
  if (reader.reads_as_program()) {
    join_values(words, schema);
  }
  reader.skip(LineRole::Header);
  note_pieces(words, data.easy_tokens.size(), reader);
  for (std::string& text : words.tokens) {
    EasyToken token = easy_token_from_text(std::move(text), schema);
    token.location = span_of_line(index, token.text);
    data.easy_tokens.push_back(std::move(token));
  }
}

// A long geometry gets room for as many atoms as its text has, if the lines to come are as long as
// those before; what is not needed of it is given back.
void make_room_for_atoms(const LineReader& reader, std::size_t bytes_before,
                         std::vector<AtomRecord>& atoms) {
  constexpr std::size_t sample = 64;
  if (atoms.size() != sample) {
    return;
  }
  const std::size_t bytes_of_sample = bytes_before - reader.rest().size();
  const std::string_view rest = reader.rest().substr(0, reader.rest().find('$'));
  atoms.reserve(sample + 1 + rest.size() / (bytes_of_sample / sample));
}

void give_back_room(std::vector<AtomRecord>& atoms) {
  if (atoms.capacity() / 4 * 3 > atoms.size()) {
    atoms.shrink_to_fit();
  }
}

void parse_geometry(LineReader& reader, BDFData& data) {
  data.has_geometry = true;
  data.geometry_terminated = false;
  data.geometry_location = reader.location();
  const RecordId geometry = RecordId::of(RecordKind::Geometry, 0);
  reader.begin_record(geometry);
  reader.skip(LineRole::GeometryStart);
  mend_geometry(reader);
  const std::size_t bytes = reader.rest().size();
  while (!reader.at_end() && !reader.at_break()) {
    const std::string_view line = reader.line();
    if (is_geometry_end(line)) {
      data.geometry_terminated = true;
      reader.begin_record(geometry);
      reader.skip(LineRole::GeometryEnd);
      break;
    }
    if (const AtomLine read = read_atom_line(line); read.is_atom()) {
      reader.begin_record(RecordId::of(RecordKind::Atom, data.atoms.size()));
      AtomRecord& atom = data.atoms.emplace_back();
      describe_atom(atom, read);
      atom.location = reader.location();
      atom.line = reader.take(LineRole::Atom);
      make_room_for_atoms(reader, bytes, data.atoms);
    } else {
      reader.begin_record(RecordId::of(RecordKind::GeometryLine, data.geometry_lines.size()));
      data.geometry_lines.emplace_back(reader.take(LineRole::GeometryLine));
    }
  }
  give_back_room(data.atoms);
}

}  // namespace

void parse_easy_section(LineReader& reader, const InputSchema& schema, BDFData& data) {
  while (!reader.at_end()) {
    mend_opening(reader, schema, Outside::Header);
    const std::string_view line = reader.line();
    if (starts_body(line)) {
      return;
    }
    if (is_geometry_start(line)) {
      parse_geometry(reader, data);
      return;
    }
    if (is_blank(line)) {
      skip_blank(reader);
    } else if (is_remark(line)) {
      take_leading_line(reader, data);
    } else {
      parse_header_line(reader, schema, data);
    }
  }
}

}  // namespace kelp::input::bdf
