#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "kelp/input/bdf/document.hpp"

namespace kelp::input::bdf {

/// The first four fields of a line as an atom has them: a label and three coordinates. What follows
/// them is passed over. The views are into the line.
struct AtomLine {
  std::string_view label;                  ///< empty for a blank line
  std::array<std::string_view, 3> fields;  ///< the coordinates as written; empty when missing
  std::array<double, 3> position = {0, 0, 0};
  std::size_t numbers = 0;  ///< how many of the fields are numbers, up to the first that is none

  /// Tells whether the line is an atom.
  bool is_atom() const { return numbers == fields.size(); }
};

/// Reads a line as that of an atom: of a geometry block, of a `$compass` geometry, of an XYZ file.
AtomLine read_atom_line(std::string_view line);

/// Sets label and coordinates of an atom from a line that is one.
void describe_atom(AtomRecord& atom, const AtomLine& line);

/// Returns the atom of a line that is one, without the line itself and its location.
AtomRecord atom_of(const AtomLine& line);

}  // namespace kelp::input::bdf
