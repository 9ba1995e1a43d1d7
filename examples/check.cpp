// Prints what is wrong with each input, a line for each finding.

#include <fstream>
#include <iostream>
#include <iterator>
#include <kelp/input/bdf.hpp>
#include <string>

namespace bdf = kelp::input::bdf;

int main(int count, char** arguments) {
  for (int i = 1; i < count; ++i) {
    std::ifstream file(arguments[i], std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const bdf::ParsedInput input(text, bdf::default_schema());
    bdf::DiagnoseOptions options;
    options.folder = bdf::input_folder_of(arguments[i]);
    bdf::diagnose(input, options, [&](const bdf::Diagnostic& diagnostic) {
      std::cout << bdf::concise_text(diagnostic, input.source(), arguments[i]) << '\n';
    });
  }
}
