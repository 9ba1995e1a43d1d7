#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "kelp/input/bdf/neighbours.hpp"

namespace kelp::input::bdf {
namespace {

Molecule row_of_atoms(LengthUnit unit) {
  Molecule molecule;
  molecule.unit = unit;
  for (const double x : {0.0, 5.0, 1.0, -1.0, 2.0}) {
    AtomRecord atom;
    atom.x = x;
    molecule.atoms.push_back(atom);
  }
  return molecule;
}

std::vector<std::size_t> indices(const std::vector<AtomDistance>& atoms) {
  std::vector<std::size_t> list;
  for (const AtomDistance& item : atoms) {
    list.push_back(item.atom);
  }
  return list;
}

TEST(NearestAtoms, ComeInTheOrderOfTheirDistanceAndOfTheirIndex) {
  const Molecule molecule = row_of_atoms(LengthUnit::Angstrom);
  EXPECT_THAT(indices(nearest_atoms(molecule, 0, 3)), testing::ElementsAre(2, 3, 4));
  EXPECT_THAT(indices(nearest_atoms(molecule, 0, 99)), testing::ElementsAre(2, 3, 4, 1));
  EXPECT_DOUBLE_EQ(nearest_atoms(molecule, 1, 1).front().angstrom, 3.0);
}

TEST(NearestAtoms, AreToldInAngstromWhateverTheUnit) {
  EXPECT_NEAR(nearest_atoms(row_of_atoms(LengthUnit::Bohr), 0, 1).front().angstrom, 0.529177, 1e-6);
}

TEST(NearestAtoms, OfAnAtomThatIsNotThereAreNone) {
  EXPECT_TRUE(nearest_atoms(row_of_atoms(LengthUnit::Angstrom), 5, 9).empty());
  EXPECT_TRUE(nearest_atoms(Molecule(), 0, 9).empty());
}

}  // namespace
}  // namespace kelp::input::bdf
