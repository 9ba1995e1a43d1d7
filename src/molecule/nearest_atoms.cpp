#include <algorithm>
#include <cmath>

#include "kelp/input/bdf/neighbours.hpp"
#include "model/molecule_names.hpp"

namespace kelp::input::bdf {

std::vector<AtomDistance> nearest_atoms(const Molecule& molecule, std::size_t atom,
                                        std::size_t most) {
  std::vector<AtomDistance> others;
  if (atom >= molecule.atoms.size()) {
    return others;
  }
  const double unit = molecule.unit == LengthUnit::Bohr ? angstrom_per_bohr : 1.0;
  const AtomRecord& centre = molecule.atoms[atom];
  others.reserve(molecule.atoms.size());
  for (std::size_t i = 0; i < molecule.atoms.size(); ++i) {
    const AtomRecord& other = molecule.atoms[i];
    if (i != atom) {
      others.push_back(
          {i, unit * std::hypot(other.x - centre.x, other.y - centre.y, other.z - centre.z)});
    }
  }
  const std::size_t count = std::min(most, others.size());
  std::partial_sort(others.begin(), others.begin() + static_cast<std::ptrdiff_t>(count),
                    others.end(), [](const AtomDistance& left, const AtomDistance& right) {
                      return left.angstrom != right.angstrom ? left.angstrom < right.angstrom
                                                             : left.atom < right.atom;
                    });
  others.resize(count);
  return others;
}

}  // namespace kelp::input::bdf
