// Prints what inputs compute, a line for each SCF and one for the tasks:
//
//     calculation examples/water-easy.inp

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
    const bdf::Calculation calculation =
        bdf::calculation_of(bdf::ParsedInput(text, bdf::default_schema()));

    for (const bdf::Calculation::Scf& scf : calculation.scfs) {
      std::cout << name << ": " << calculation.systems[scf.system].formula;
      if (scf.charge) {
        std::cout << ", charge " << scf.charge->value;
      }
      if (scf.multiplicity) {
        std::cout << ", multiplicity " << scf.multiplicity->value;
      }
      if (scf.reference) {
        std::cout << ", " << scf.reference->name;
      }
      std::cout << '\n';
    }
    for (const bdf::Calculation::Task& task : calculation.tasks) {
      std::cout << "  line " << task.origin.line << ": " << bdf::to_string(task.kind) << '\n';
    }
  }
}
