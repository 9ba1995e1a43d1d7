// Prints the value at a path of an input, and the line that it begins on:
//
//     values scf.maxiter examples/water-mixed.inp

#include <fstream>
#include <iostream>
#include <iterator>
#include <kelp/input/bdf.hpp>
#include <string>

namespace bdf = kelp::input::bdf;

int main(int count, char** arguments) {
  if (count != 3) {
    std::cerr << "values PATH FILE\n";
    return 2;
  }
  const bdf::PathResult path = bdf::parse_path(arguments[1]);
  if (!path.path) {
    std::cerr << path.error << '\n';
    return 2;
  }
  std::ifstream file(arguments[2], std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  const bdf::ParsedInput input(text, bdf::default_schema());

  const auto lines = bdf::find_value(input, *path.path);
  if (!lines) {
    std::cerr << "nothing at '" << bdf::to_string(*path.path) << "'\n";
    for (const std::string& name : bdf::path_hint(input.schema(), *path.path)) {
      std::cerr << "did you mean " << name << "?\n";
    }
    return 1;
  }
  const bdf::RecordId record = bdf::find_record(input, *path.path);
  std::cout << bdf::path_of(input.data(), record) << ", line " << input.first_line(record) << '\n';
  for (const std::string& line : *lines) {
    std::cout << "  " << line << '\n';
  }
}
