// Reads an input, makes it a cation with more SCF iterations, and prints the new input.

#include <iostream>
#include <kelp/input/bdf.hpp>
#include <string>
#include <vector>

namespace bdf = kelp::input::bdf;

int main(int count, char** arguments) {
  const std::vector<std::string> files(arguments + 1, arguments + count);
  const bdf::InputSchema& schema = bdf::default_schema();

  for (const std::string& file : files) {
    const bdf::ParseResult input = bdf::BDFParser::parse_file(file, schema, {});
    if (!input.ok) {
      std::cerr << file << ": " << input.error << '\n';
      return 1;
    }
    bdf::BDFEditor editor(input.data, schema);
    editor.set_charge_and_multiplicity(1, 2);
    editor.set_module_entry("scf", "maxiter", {"200"});
    std::cout << editor.render();
  }
}
