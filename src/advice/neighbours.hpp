#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace kelp::input::bdf {

/// The nearest other atom within reach.
struct Neighbour {
  static constexpr std::size_t none = static_cast<std::size_t>(-1);

  std::size_t atom = none;  ///< unset: none
  double distance = 0;      ///< in angstrom
  double ratio = 0;         ///< of the distance to the sum of the covalent radii
};

/// The atoms of a Cartesian geometry, in angstrom. No ghosts: they may stand where they like.
struct Atoms {
  std::vector<std::size_t> centres;  ///< of each, its index among the centres
  std::vector<std::array<double, 3>> positions;
  std::vector<double> radii;

  std::size_t size() const { return centres.size(); }
  void reserve(std::size_t count) {
    centres.reserve(count);
    positions.reserve(count);
    radii.reserve(count);
  }
};

/// Returns the square of the distance between two atoms.
inline double square_between(const Atoms& atoms, std::size_t one, std::size_t other) {
  double square = 0;
  for (std::size_t axis = 0; axis < 3; ++axis) {
    const double apart = atoms.positions[one][axis] - atoms.positions[other][axis];
    square += apart * apart;
  }
  return square;
}

/// Atoms whose distance is less than this times the sum of their covalent radii are too close.
inline constexpr double close_ratio = 0.40;

/// The atoms of one system in space.
struct Surroundings {
  Atoms atoms;                   ///< none when anything about them is not certain
  bool has_close_atoms = false;  ///< unset when no two of them are too close or coincide
};

/// Atoms in cells of space, to look for neighbours nearer than the edge of a cell. Making it, and
/// looking for the neighbours of all atoms, takes a time that grows with their number alone.
class Cells {
 public:
  /// Sorts atoms, which must outlive this, into cells of an edge in angstrom.
  Cells(const Atoms& atoms, double edge);
  /// Returns the nearest neighbour of an atom, by its index, within the edge of a cell.
  Neighbour nearest(std::size_t atom) const;

 private:
  using Cell = std::array<std::int64_t, 3>;

  Cell cell_of(std::size_t atom) const;
  std::size_t bucket_of(const Cell& cell) const;
  void look_into(const Cell& cell, std::size_t atom, Neighbour& best) const;

  const Atoms& atoms_;
  double edge_;
  std::vector<std::size_t> last_;  ///< of each bucket
  std::vector<std::size_t> next_;  ///< before an atom in its bucket
};

/// Tells whether any two atoms are as near to each other as this, in angstrom; it may say so of a
/// crowd of atoms that are not. Takes a fraction of the time of looking for neighbours.
bool has_pair_within(const Atoms& atoms, double distance);

/// Returns the nearest neighbours of all atoms within reach, in angstrom.
std::vector<Neighbour> neighbours_of(const Atoms& atoms, double reach);

}  // namespace kelp::input::bdf
