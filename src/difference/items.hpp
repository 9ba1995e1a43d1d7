#pragma once

#include <string>
#include <vector>

#include "kelp/input/bdf/difference.hpp"

namespace kelp::input::bdf {

/// A part of an input as it is compared.
struct Item {
  DifferingThing thing = DifferingThing::Entry;
  std::string key;      ///< what it is compared with what is called by
  std::string meaning;  ///< equal for two items that say the same, all below them included
  DifferenceSide side;
  std::vector<Item> atoms;  ///< atoms and lines of an entry that is a geometry, in order
  std::vector<Item> parts;  ///< entries of a module or of a nested block, in any order
};

/// An input as it is compared.
struct Items {
  std::vector<Item> words;     ///< script name and header, in any order
  std::vector<Item> geometry;  ///< atoms and lines of the geometry block, in order
  std::vector<Item> sequence;  ///< modules and the lines between them, in order
};

/// Takes an input apart. With `in_angstrom`, coordinates are converted and rounded.
Items items_of(const ParsedInput& input, bool in_angstrom);

}  // namespace kelp::input::bdf
