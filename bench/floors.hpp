#pragma once

/// @file
/// The least work that a task could take: what nobody can do without who does it at all.

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/document.hpp"

namespace kelp::bench {

/// Cuts a text at its line feeds and stores each line.
std::vector<std::string> cut_lines(std::string_view text);

/// What is stored of an atom beside its line.
struct StoredAtom {
  std::string label;
  std::array<double, 3> position;
};

/// The lines of a text and the atoms among them.
struct StoredAtoms {
  std::vector<std::string> lines;
  std::vector<StoredAtom> atoms;
};

/// Cuts a text at its line feeds and stores each line; of a word and three numbers stores an atom,
/// too.
StoredAtoms cut_atoms(std::string_view text);

/// Appends each line of a text to one for which there is room.
std::string copy_lines(std::string_view text);

/// Writes the coordinates of atoms in the canonical format into a text for which there is room.
std::string write_coordinates(const std::vector<input::bdf::AtomRecord>& atoms);

}  // namespace kelp::bench
