// Neighbours are looked for in cells of space that are as wide as the reach, so that those of an
// atom stand in its own cell or one of the 26 around it. A table of about as many buckets as there
// are atoms holds the cells.

#include "advice/neighbours.hpp"

#include <algorithm>
#include <cmath>

namespace kelp::input::bdf {
namespace {

using Cell = std::array<std::int64_t, 3>;

std::size_t hash_of(const Cell& cell) {
  std::uint64_t hash = 0;
  for (const std::int64_t index : cell) {
    hash = (hash ^ static_cast<std::uint64_t>(index)) * 0x9e3779b97f4a7c15U;
    hash ^= hash >> 29U;
  }
  return static_cast<std::size_t>(hash);
}

// Returns a power of two that is not less than the number of atoms.
std::size_t buckets_for(std::size_t atoms) {
  std::size_t size = 1;
  while (size < atoms) {
    size *= 2;
  }
  return size;
}

std::int64_t index_of(double coordinate, double edge) {
  constexpr double most = 1e9;
  return static_cast<std::int64_t>(std::clamp(std::floor(coordinate / edge), -most, most));
}

// A bucket with more atoms than this is of no molecule, and some of them are near enough to be
// told.
constexpr int most_in_bucket = 64;

/// Takes atoms one by one, and tells whether one is near to any before it. Cells are twice as wide
/// as what is near, so that this stands in the atom's cell or in one of the seven on the side of
/// its nearest corner.
class PairSearch {
 public:
  PairSearch(const Atoms& atoms, double distance)
      : atoms_(atoms),
        near_(distance * (1 + 1e-6)),
        last_(buckets_for(atoms.size()), none),
        next_(atoms.size(), none) {}

  bool is_near_to_earlier(std::size_t atom) {
    const double edge = 2 * near_;
    const std::array<double, 3>& position = atoms_.positions[atom];
    Cell home{};
    Cell other{};
    for (std::size_t axis = 0; axis < home.size(); ++axis) {
      home[axis] = index_of(position[axis], edge);
      const double within = position[axis] / edge - static_cast<double>(home[axis]);
      other[axis] = within < 0.5 ? home[axis] - 1 : home[axis] + 1;
    }
    for (unsigned code = 0; code < 8; ++code) {
      const Cell cell = {(code & 1U) != 0 ? other[0] : home[0],
                         (code & 2U) != 0 ? other[1] : home[1],
                         (code & 4U) != 0 ? other[2] : home[2]};
      if (has_near(last_[hash_of(cell) & (last_.size() - 1)], atom)) {
        return true;
      }
    }
    std::uint32_t& last = last_[hash_of(home) & (last_.size() - 1)];
    next_[atom] = last;
    last = static_cast<std::uint32_t>(atom);
    return false;
  }

 private:
  static constexpr std::uint32_t none = static_cast<std::uint32_t>(-1);

  bool has_near(std::uint32_t other, std::size_t atom) const {
    int seen = 0;
    for (; other != none && seen < most_in_bucket; ++seen, other = next_[other]) {
      if (square_between(atoms_, atom, other) < near_ * near_) {
        return true;
      }
    }
    return seen == most_in_bucket;
  }

  const Atoms& atoms_;
  double near_;
  std::vector<std::uint32_t> last_;  ///< of each bucket
  std::vector<std::uint32_t> next_;  ///< before an atom in its bucket
};

}  // namespace

Cells::Cells(const Atoms& atoms, double edge)
    : atoms_(atoms), edge_(edge), next_(atoms.size(), Neighbour::none) {
  last_.assign(buckets_for(atoms.size()), Neighbour::none);
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
  Cell cell{};
  for (std::size_t axis = 0; axis < cell.size(); ++axis) {
    cell[axis] = index_of(atoms_.positions[atom][axis], edge_);
  }
  return cell;
}

// Cells that share a bucket cost time only: distances are measured anyway.
std::size_t Cells::bucket_of(const Cell& cell) const {
  return hash_of(cell) & (last_.size() - 1);
}

// Keeps the square of the least distance.
void Cells::look_into(const Cell& cell, std::size_t atom, Neighbour& best) const {
  std::size_t other = last_[bucket_of(cell)];
  for (int seen = 0; other != Neighbour::none && seen < most_in_bucket;
       ++seen, other = next_[other]) {
    const double square = square_between(atoms_, atom, other);
    if (square < best.distance && other != atom) {
      best.atom = other;
      best.distance = square;
    }
  }
}

bool has_pair_within(const Atoms& atoms, double distance) {
  PairSearch search(atoms, distance);
  for (std::size_t i = 0; i < atoms.size(); ++i) {
    if (search.is_near_to_earlier(i)) {
      return true;
    }
  }
  return false;
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
