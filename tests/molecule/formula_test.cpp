// Elements of labels, and formulas in Hill's order.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kelp/input/bdf/molecule.hpp"

namespace kelp::input::bdf {
namespace {

std::string formula(const std::vector<std::string>& labels) {
  std::vector<AtomRecord> atoms;
  for (const std::string& label : labels) {
    atoms.emplace_back().element = label;
  }
  return hill_formula(atoms);
}

TEST(Formula, FollowsHillsOrder) {
  struct Row {
    std::vector<std::string> labels;
    const char* formula;
  };
  for (const Row& row : {
           Row{{"O", "H", "H"}, "H2O"},
           Row{{"Br", "C", "H", "Cl", "H"}, "CH2BrCl"},
           Row{{"H", "Cl"}, "ClH"},
           Row{{"c1", "C2", "CL", "h_a", "HO1"}, "C2HClHo"},
           Row{{"ho"}, "Ho"},
           Row{{"Xx", "X"}, "XXx"},
           Row{{"C", "C"}, "C2"},
           Row{{}, ""},
       }) {
    EXPECT_EQ(formula(row.labels), row.formula);
  }
}

TEST(ElementOf, IsTheLongestSymbolThatTheLabelBeginsWith) {
  struct Row {
    const char* label;
    const char* element;
  };
  for (const Row& row :
       {Row{"C", "C"}, Row{"c12", "C"}, Row{"CL1", "Cl"}, Row{"h_a", "H"}, Row{"HO1", "Ho"},
        Row{"og", "Og"}, Row{"x", ""}, Row{"1C", ""}, Row{"", ""}}) {
    EXPECT_EQ(element_of(row.label), row.element) << row.label;
  }
}

}  // namespace
}  // namespace kelp::input::bdf
