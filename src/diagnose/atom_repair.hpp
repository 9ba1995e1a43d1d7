#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "kelp/input/bdf/source.hpp"
#include "source/geometry_line.hpp"

namespace kelp::input::bdf {

/// A way to make a line of a geometry readable. Ranges count from where the line begins.
struct AtomRepair {
  TextRange fault;       ///< the character at fault, or the field that is two
  std::string label;     ///< what it is: "a comma for a decimal point"
  std::string title;     ///< what mending does: "write decimal points"
  TextRange range;       ///< what is replaced
  std::string text;      ///< what by
  bool is_safe = false;  ///< the line can be read in no other way
};

/// Returns how to mend a line that `reader` cannot read as the next one; nothing when nobody knows.
std::optional<AtomRepair> repair_atom_line(std::string_view line, const GeometryReader& reader);

/// What keeps a line from being an atom, where there is no telling what was meant.
struct AtomFault {
  TextRange range;    ///< the character or field at fault, counted from where the line begins
  std::string label;  ///< what is wrong about it
};

/// Returns what is wrong about a line that `reader` cannot read.
AtomFault fault_of_atom_line(std::string_view line, const GeometryReader& reader);

}  // namespace kelp::input::bdf
