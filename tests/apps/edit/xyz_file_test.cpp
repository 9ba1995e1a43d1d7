// XYZ files: what is read, and what is said about a malformed one.

#include "xyz_file.hpp"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace kelp::app {
namespace {

TEST(ReadXyz, ReadsSymbolsAndCoordinates) {
  const auto atoms = read_xyz("a.xyz", "2\nany text 1 2 3\n O 0 -0.5 1.25D-1\nh_a\t1e1  2. +3\n");
  ASSERT_EQ(atoms.size(), 2U);
  EXPECT_EQ(atoms[0].element, "O");
  EXPECT_EQ(atoms[0].x, 0.0);
  EXPECT_EQ(atoms[0].y, -0.5);
  EXPECT_EQ(atoms[0].z, 0.125);
  EXPECT_EQ(atoms[1].element, "h_a");
  EXPECT_EQ(atoms[1].x, 10.0);
  EXPECT_EQ(atoms[1].y, 2.0);
  EXPECT_EQ(atoms[1].z, 3.0);
}

TEST(ReadXyz, MoreColumnsEmptyLinesAtTheEndAndWindowsLineEndsAreFine) {
  EXPECT_EQ(read_xyz("a.xyz", "1\r\n\r\nO 0 0 0 0.1 0.2 0.3 x\r\n\r\n\n").size(), 1U);
  EXPECT_EQ(read_xyz("a.xyz", "1\n\nO 0 0 0").size(), 1U);
}

TEST(ReadXyz, NamesTheFileAndTheLineOfAMistake) {
  struct Row {
    const char* text;
    const char* message;
  };
  for (const Row& row : {
           Row{"", "a.xyz:1: '' is no number of atoms"},
           Row{"two\n\nO 0 0 0\n", "a.xyz:1: 'two' is no number of atoms"},
           Row{"0\n\n", "a.xyz:1: '0' is no number of atoms"},
           Row{"-1\n\n", "a.xyz:1: '-1' is no number of atoms"},
           Row{"1 atom\n\nO 0 0 0\n", "a.xyz:1: '1 atom' is no number of atoms"},
           Row{"2\n\nO 0 0 0\n", "a.xyz:4: there are 1 rows, but line 1 announces 2"},
           Row{"3\n\nO 0 0 0\n\nH 0 0 0\n", "a.xyz:4: there are 1 rows, but line 1 announces 3"},
           Row{"9223372036854775807\n\n",
               "a.xyz:3: there are 0 rows, but line 1 announces 9223372036854775807"},
           Row{"1\n\nO 0 0 0\nH 0 0 1\n",
               "a.xyz:4: there are more rows than the 1 that line 1 announces"},
           Row{"1\n\nO 0 0\n", "a.xyz:3: an atom needs three coordinates"},
           Row{"1\n\nO 0 0 z\n", "a.xyz:3: 'z' is no coordinate"},
           Row{"1\n\nO 0 0 nan\n", "a.xyz:3: 'nan' is no coordinate"},
           Row{"1\n\nO 0 inf 0\n", "a.xyz:3: 'inf' is no coordinate"},
           Row{"1\n\nO 0 0 1e999\n", "a.xyz:3: '1e999' is no coordinate"},
           Row{"1\n\n8 0 0 0\n", "a.xyz:3: '8' is no symbol of an element"},
           Row{"1\n\n#O 0 0 0\n", "a.xyz:3: '#O' is no symbol of an element"},
           Row{"1\n\nO$ 0 0 0\n", "a.xyz:3: 'O$' is no symbol of an element"},
       }) {
    try {
      read_xyz("a.xyz", row.text);
      ADD_FAILURE() << row.text << " was accepted";
    } catch (const std::runtime_error& error) {
      EXPECT_EQ(std::string(error.what()), row.message);
    }
  }
}

}  // namespace
}  // namespace kelp::app
