// The one syntax of atoms: of geometry blocks, of $compass, of XYZ files.

#include "source/atom_line.hpp"

#include <gtest/gtest.h>

#include <array>
#include <string_view>

namespace kelp::input::bdf {
namespace {

TEST(AtomLine, IsALabelAndThreeNumbers) {
  struct Row {
    std::string_view line;
    bool is_atom;
    std::string_view label;
    std::size_t numbers;
  };
  for (const Row& row : {
           Row{"C 0.0 0.0 1.2D-1", true, "C", 3},
           Row{"\tH_a\v1\f2 3\r", true, "H_a", 3},
           Row{"#C 0 0 0 more 1", true, "#C", 3},
           Row{"C 0 0 0x10 # a", true, "C", 3},
           Row{"C nan inf 1", true, "C", 3},
           Row{"C 0 0", false, "C", 2},
           Row{"C 0 x 1", false, "C", 1},
           Row{"C 0 1e999 1", false, "C", 1},
           Row{"C 0,0 0 0", false, "C", 0},
           Row{"file=x.xyz", false, "file=x.xyz", 0},
           Row{" ", false, "", 0},
           Row{"", false, "", 0},
       }) {
    const AtomLine read = read_atom_line(row.line);
    EXPECT_EQ(read.is_atom(), row.is_atom) << row.line;
    EXPECT_EQ(read.label, row.label) << row.line;
    EXPECT_EQ(read.numbers, row.numbers) << row.line;
  }
}

TEST(AtomLine, KeepsItsFieldsAndTheirValues) {
  const AtomLine read = read_atom_line("Cl 1 -2.5d0 .5 7");
  EXPECT_EQ(read.fields, (std::array<std::string_view, 3>{"1", "-2.5d0", ".5"}));
  EXPECT_EQ(read.position, (std::array<double, 3>{1.0, -2.5, 0.5}));
  const AtomRecord atom = atom_of(read);
  EXPECT_EQ(atom.element, "Cl");
  EXPECT_EQ(atom.x, 1.0);
  EXPECT_EQ(atom.y, -2.5);
  EXPECT_EQ(atom.z, 0.5);
  EXPECT_EQ(atom.line, "");
  EXPECT_FALSE(atom.location);
  EXPECT_EQ(read_atom_line("C 1").fields, (std::array<std::string_view, 3>{"1", "", ""}));
}

}  // namespace
}  // namespace kelp::input::bdf
