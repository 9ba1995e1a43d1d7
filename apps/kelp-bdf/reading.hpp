#pragma once

#include <string>
#include <vector>

#include "checked_input.hpp"
#include "source_text.hpp"

namespace kelp::app {

/// One thing that an input says. Two ways of writing the same have the same meaning.
struct Piece {
  std::string meaning;
  LinePart part;
};

/// What the canonical form does to a part of an input, other than laying it out.
enum class DepartureKind {
  Loss,      ///< the part would not be written
  Move,      ///< the part would be written at another place
  Addition,  ///< something would be written that is not there
};

/// A place at which the canonical form is known to depart from what was read.
struct Departure {
  DepartureKind kind = DepartureKind::Loss;
  LinePart part;
  std::string message;  ///< a sentence
  std::string label;    ///< what would become of the part, in few words
  std::string help;     ///< what to do about it; may be empty
};

/// All that an input says, in order. What the canonical form departs from by its rules is told
/// apart: it is no piece. White space, the case of keywords and the choice among the names of one
/// keyword say nothing.
struct Reading {
  std::vector<Piece> pieces;
  std::vector<Departure> departures;
};

Reading read_pieces(const CheckedInput& input);

}  // namespace kelp::app
