// Names the variants of an input and tells how many findings each has: sweep FILE PATTERN
// PATH=VALUE,VALUE...

#include <fstream>
#include <iostream>
#include <sstream>
#include <vector>

#include "kelp/input/bdf.hpp"

int main(int argc, char** argv) {
  using namespace kelp::input::bdf;
  if (argc < 4) {
    return 2;
  }
  std::ifstream file(argv[1], std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  std::vector<SweepAxis> axes;
  for (int i = 3; i < argc; ++i) {
    const SweepAxisResult read = parse_sweep_axis(argv[i]);
    if (!read.axis) {
      std::cerr << read.error << '\n';
      return 2;
    }
    axes.push_back(*read.axis);
  }
  const ParsedInput input(text.str(), default_schema());
  const SweepPlan plan = plan_sweep(axes, argv[2], input.schema());
  for (const SweepVariant& variant : plan.variants) {
    Edit edit;
    edit.assignments = assignments_of(axes, variant);
    const Rewrite made = edit_input(input, edit);
    if (!made.error.empty()) {
      std::cerr << variant.name << ": " << made.error << '\n';
      return 1;
    }
    const ParsedInput changed(made.text, input.schema());
    std::cout << variant.name << ": " << diagnose(changed).size() << " findings\n";
  }
  std::cerr << plan.error;
  return plan.error.empty() ? 0 : 1;
}
