#pragma once

/// @file
/// Which atoms of a molecule are near each other, for whoever shows an atom.

#include <cstddef>
#include <vector>

#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/molecule.hpp"

namespace kelp::input::bdf {

/// An atom beside another one.
struct AtomDistance {
  std::size_t atom = 0;  ///< its index among the atoms
  double angstrom = 0;   ///< how far away it is, whatever the unit of the input
};

/// Returns the atoms of a molecule that are nearest to one of them, given by its index, the nearest
/// first, of equal ones the earlier; at most `most`. None for an index that is none. May be called
/// from any number of threads at once.
KELP_BDF_INP_EXPORT std::vector<AtomDistance> nearest_atoms(const Molecule& molecule,
                                                            std::size_t atom, std::size_t most);

}  // namespace kelp::input::bdf
