// Prints an input with another charge and one value changed, and nothing else: change FILE
// PATH=VALUE

#include <fstream>
#include <iostream>
#include <sstream>

#include "kelp/input/bdf.hpp"

int main(int argc, char** argv) {
  using namespace kelp::input::bdf;
  if (argc != 3) {
    return 2;
  }
  std::ifstream file(argv[1], std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  const AssignmentResult read = parse_assignment(argv[2]);
  if (!read.assignment) {
    std::cerr << read.error << '\n';
    return 2;
  }
  Edit edit;
  edit.charge = 1;
  edit.assignments.push_back(*read.assignment);
  const Rewrite result = edit_input(ParsedInput(text.str(), default_schema()), edit);
  for (const Diagnostic& loss : result.losses) {
    std::cerr << loss.message << '\n';
  }
  std::cerr << result.error;
  std::cout << result.text;
  return result.error.empty() && result.losses.empty() ? 0 : 1;
}
