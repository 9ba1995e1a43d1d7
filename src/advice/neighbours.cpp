// Neighbours are looked for in cells of space that are as wide as the reach, so that those of an
// atom stand in its own cell or one of the 26 around it. A table of about as many buckets as there
// are atoms holds the cells.

#include "advice/neighbours.hpp"

#include <algorithm>
#include <cmath>

namespace kelp::input::bdf {

Cells::Cells(const Atoms& atoms, double edge)
    : atoms_(atoms), edge_(edge), next_(atoms.size(), Neighbour::none) {
  std::size_t size = 1;
  while (size < atoms.size()) {
    size *= 2;
  }
  last_.assign(size, Neighbour::none);
  for (std::size_t i = 0; i < atoms.size(); ++i) {
    std::size_t& last = last_[bucket_of(cell_of(i))];
    next_[i] = last;
    last = i;
  }
}

Neighbour Cells::nearest(std::size_t atom) const {
  Neighbour best;
  best.distance = edge_ * edge_;
  const Cell home = cell_of(atom);
  for (std::int64_t x = home[0] - 1; x <= home[0] + 1; ++x) {
    for (std::int64_t y = home[1] - 1; y <= home[1] + 1; ++y) {
      for (std::int64_t z = home[2] - 1; z <= home[2] + 1; ++z) {
        look_into({x, y, z}, atom, best);
      }
    }
  }
  best.distance = std::sqrt(best.distance);
  if (best.atom != Neighbour::none) {
    best.ratio = best.distance / (atoms_.radii[atom] + atoms_.radii[best.atom]);
  }
  return best;
}

Cells::Cell Cells::cell_of(std::size_t atom) const {
  constexpr double most = 1e9;
  Cell cell{};
  for (std::size_t axis = 0; axis < cell.size(); ++axis) {
    const double index = std::floor(atoms_.positions[atom][axis] / edge_);
    cell[axis] = static_cast<std::int64_t>(std::clamp(index, -most, most));
  }
  return cell;
}

// Cells that share a bucket cost time only: distances are measured anyway.
std::size_t Cells::bucket_of(const Cell& cell) const {
  std::uint64_t hash = 0;
  for (const std::int64_t index : cell) {
    hash = (hash ^ static_cast<std::uint64_t>(index)) * 0x9e3779b97f4a7c15U;
    hash ^= hash >> 29U;
  }
  return static_cast<std::size_t>(hash) & (last_.size() - 1);
}

// Keeps the square of the least distance. A bucket with more atoms than this is of no molecule,
// and some of them are near enough to be told.
void Cells::look_into(const Cell& cell, std::size_t atom, Neighbour& best) const {
  constexpr int most = 64;
  std::size_t other = last_[bucket_of(cell)];
  for (int seen = 0; other != Neighbour::none && seen < most; ++seen, other = next_[other]) {
    double square = 0;
    for (std::size_t axis = 0; axis < cell.size(); ++axis) {
      const double apart = atoms_.positions[atom][axis] - atoms_.positions[other][axis];
      square += apart * apart;
    }
    if (square < best.distance && other != atom) {
      best.atom = other;
      best.distance = square;
    }
  }
}

std::vector<Neighbour> neighbours_of(const Atoms& atoms, double reach) {
  const Cells cells(atoms, reach);
  std::vector<Neighbour> all(atoms.size());
  for (std::size_t i = 0; i < atoms.size(); ++i) {
    all[i] = cells.nearest(i);
  }
  return all;
}

}  // namespace kelp::input::bdf
