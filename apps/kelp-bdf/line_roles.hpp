#pragma once

#include <cstddef>
#include <vector>

#include "checked_input.hpp"

namespace kelp::app {

/// What a line of an input is.
enum class LineRole {
  Verbatim,  ///< written back as it is, but for white space; also an empty line
  ScriptLine,
  LeadingComment,
  Header,
  GeometryStart,
  Atom,
  GeometryLine,  ///< another line within the geometry
  GeometryEnd,
  ModuleHeader,
  Keyword,   ///< a keyword that the schema knows
  BlockEnd,  ///< the line that closes an entry's block
};

/// A line's role and the record that was made of it.
struct LineUse {
  LineRole role = LineRole::Verbatim;
  bool moves = false;  ///< the canonical form has the line at another place
  const input::bdf::AtomRecord* atom = nullptr;
  const input::bdf::Module* module = nullptr;
  const input::bdf::ModuleEntry* entry = nullptr;
};

/// Returns the use of every line, found at the line's number; the first is unused.
std::vector<LineUse> line_uses(const CheckedInput& input);

/// Returns the number of the line that ends a geometry block, or of the input's last line if none
/// does. There must be a geometry.
std::size_t last_geometry_line(const CheckedInput& input);

}  // namespace kelp::app
