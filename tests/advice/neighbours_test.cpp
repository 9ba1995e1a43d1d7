// Atoms in space: the quick question is held against the distances of all pairs.

#include "advice/neighbours.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace kelp::input::bdf {
namespace {

Atoms atoms_at(const std::vector<std::array<double, 3>>& positions) {
  Atoms atoms;
  for (const std::array<double, 3>& position : positions) {
    atoms.centres.push_back(atoms.size());
    atoms.positions.push_back(position);
    atoms.radii.push_back(0.7);
  }
  return atoms;
}

double least_distance(const Atoms& atoms) {
  double least = std::numeric_limits<double>::infinity();
  for (std::size_t i = 0; i < atoms.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      least = std::min(least, square_between(atoms, i, j));
    }
  }
  return std::sqrt(least);
}

TEST(HasPairWithin, TellsWhatTheDistancesOfAllPairsTell) {
  std::mt19937 random(11);
  int near = 0;
  int far = 0;
  for (int round = 0; round < 3000; ++round) {
    const double width = std::uniform_real_distribution(0.5, 20.0)(random);
    std::uniform_real_distribution<double> coordinate(-width, width);
    std::vector<std::array<double, 3>> positions(2 + random() % 12);
    for (auto& position : positions) {
      position = {coordinate(random), coordinate(random), coordinate(random)};
    }
    const Atoms atoms = atoms_at(positions);
    const double least = least_distance(atoms);
    for (const double factor : {0.9, 0.999, 1.001, 1.2}) {
      EXPECT_EQ(has_pair_within(atoms, least * factor), factor > 1) << round;
      ++(factor > 1 ? near : far);
    }
  }
  EXPECT_EQ(near, far);
}

TEST(HasPairWithin, LooksAcrossTheBordersOfCells) {
  for (const double at : {0.0, 0.5, 1.0, -1.0, 2.0, -3.0, 1e6}) {
    for (int axis = 0; axis < 3; ++axis) {
      std::array<double, 3> one = {at, at, at};
      std::array<double, 3> other = one;
      other[static_cast<std::size_t>(axis)] -= 0.49;
      EXPECT_TRUE(has_pair_within(atoms_at({one, other}), 0.5)) << at << ' ' << axis;
      EXPECT_TRUE(has_pair_within(atoms_at({other, one}), 0.5)) << at << ' ' << axis;
      EXPECT_FALSE(has_pair_within(atoms_at({one, other}), 0.48)) << at << ' ' << axis;
    }
  }
}

TEST(HasPairWithin, FindsAtomsThatCoincideAndNoneAmongFewerThanTwo) {
  EXPECT_TRUE(has_pair_within(atoms_at({{1, 2, 3}, {9, 9, 9}, {1, 2, 3}}), 0.5));
  EXPECT_FALSE(has_pair_within(atoms_at({{1, 2, 3}}), 0.5));
  EXPECT_FALSE(has_pair_within(atoms_at({}), 0.5));
}

TEST(HasPairWithin, GivesUpOnACrowdBeyondAllCells) {
  std::vector<std::array<double, 3>> positions;
  for (int i = 0; i < 200; ++i) {
    positions.push_back({1e12 + 1e9 * i, 1e12, 1e12});
  }
  EXPECT_TRUE(has_pair_within(atoms_at(positions), 0.5));
}

}  // namespace
}  // namespace kelp::input::bdf
