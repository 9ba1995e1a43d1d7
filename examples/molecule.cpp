// Prints the molecule of each input as XYZ, with its formula and charge for a comment:
//
//     molecule examples/water-easy.inp > water.xyz

#include <fstream>
#include <iostream>
#include <iterator>
#include <kelp/input/bdf.hpp>
#include <string>
#include <vector>

namespace bdf = kelp::input::bdf;

int main(int count, char** arguments) {
  const std::vector<std::string> files(arguments + 1, arguments + count);
  for (const std::string& name : files) {
    std::ifstream file(name, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const bdf::Molecule molecule = bdf::molecule_of(bdf::ParsedInput(text, bdf::default_schema()));

    std::string comment = bdf::hill_formula(molecule.atoms);
    if (molecule.charge) {
      comment += ", charge " + molecule.charge->text;
    }
    std::cout << bdf::write_xyz(molecule, comment);
  }
}
