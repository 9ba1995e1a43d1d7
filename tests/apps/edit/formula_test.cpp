// Formulas in Hill's order.

#include "formula.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelp::app {
namespace {

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
           Row{{}, ""},
       }) {
    EXPECT_EQ(formula(row.labels), row.formula);
  }
}

}  // namespace
}  // namespace kelp::app
