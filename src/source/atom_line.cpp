#include "source/atom_line.hpp"

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"

namespace kelp::input::bdf {

AtomLine read_atom_line(std::string_view line) {
  AtomLine atom;
  std::string_view rest = line;
  atom.label = core::text::take_word(rest);
  for (std::string_view& field : atom.fields) {
    field = core::text::take_word(rest);
  }
  for (; !atom.is_atom(); ++atom.numbers) {
    const auto value = core::number::parse_float(atom.fields[atom.numbers]);
    if (!value) {
      break;
    }
    atom.position[atom.numbers] = *value;
  }
  return atom;
}

void describe_atom(AtomRecord& atom, const AtomLine& line) {
  atom.element = line.label;
  atom.x = line.position[0];
  atom.y = line.position[1];
  atom.z = line.position[2];
}

AtomRecord atom_of(const AtomLine& line) {
  AtomRecord atom;
  describe_atom(atom, line);
  return atom;
}

}  // namespace kelp::input::bdf
