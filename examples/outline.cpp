// Prints what stands where in an input, as a tree beside an editor would show it:
//
//     outline examples/water-mixed.inp

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
    const bdf::Outline outline = bdf::outline_of(bdf::ParsedInput(text, bdf::default_schema()));

    std::cout << name << ": " << bdf::to_string(outline.mode) << " input\n";
    if (outline.geometry) {
      std::cout << outline.geometry->line << ": " << outline.geometry->formula << '\n';
    }
    for (const bdf::Outline::Module& module : outline.modules) {
      std::cout << module.line << ": $" << module.name << '\n';
      for (const bdf::Outline::Entry& entry : module.entries) {
        std::cout << entry.line << ":   " << entry.path << '\n';
      }
    }
  }
}
