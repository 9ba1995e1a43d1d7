// XYZ texts: what is read, what is said about a malformed one, and what is written.

#include <gtest/gtest.h>

#include <string>

#include "kelp/input/bdf/molecule.hpp"

namespace kelp::input::bdf {
namespace {

AtomRecord atom(const char* element, double x, double y, double z) {
  AtomRecord made;
  made.element = element;
  made.x = x;
  made.y = y;
  made.z = z;
  return made;
}

TEST(ReadXyz, ReadsSymbolsCoordinatesAndTheComment) {
  const XyzResult result = read_xyz("2\nany text 1 2 3\n O 0 -0.5 1.25D-1\nh_a\t1e1  2. +3\n");
  EXPECT_EQ(result.error, "");
  EXPECT_EQ(result.line, 0U);
  EXPECT_EQ(result.comment, "any text 1 2 3");
  ASSERT_EQ(result.atoms.size(), 2U);
  EXPECT_EQ(result.atoms[0].element, "O");
  EXPECT_EQ(result.atoms[0].x, 0.0);
  EXPECT_EQ(result.atoms[0].y, -0.5);
  EXPECT_EQ(result.atoms[0].z, 0.125);
  EXPECT_EQ(result.atoms[1].element, "h_a");
  EXPECT_EQ(result.atoms[1].x, 10.0);
  EXPECT_EQ(result.atoms[1].y, 2.0);
  EXPECT_EQ(result.atoms[1].z, 3.0);
}

TEST(ReadXyz, MoreColumnsEmptyLinesAtTheEndAndWindowsLineEndsAreFine) {
  EXPECT_EQ(read_xyz("1\r\n\r\nO 0 0 0 0.1 0.2 0.3 x\r\n\r\n\n").atoms.size(), 1U);
  EXPECT_EQ(read_xyz("1\n\nO 0 0 0").atoms.size(), 1U);
  EXPECT_EQ(read_xyz("\xEF\xBB\xBF"
                     "1\n\nO 0 0 0")
                .atoms.size(),
            1U);
  EXPECT_EQ(read_xyz("1\r\nwater\r\nO 0 0 0").comment, "water");
}

TEST(ReadXyz, SaysWhatIsWrongOnWhichLine) {
  struct Row {
    const char* text;
    std::size_t line;
    const char* error;
  };
  for (const Row& row : {
           Row{"", 1, "'' is no number of atoms"},
           Row{"two\n\nO 0 0 0\n", 1, "'two' is no number of atoms"},
           Row{"0\n\n", 1, "'0' is no number of atoms"},
           Row{"-1\n\n", 1, "'-1' is no number of atoms"},
           Row{"1 atom\n\nO 0 0 0\n", 1, "'1 atom' is no number of atoms"},
           Row{"2\n\nO 0 0 0\n", 4, "there are 1 rows, but line 1 announces 2"},
           Row{"3\n\nO 0 0 0\n\nH 0 0 0\n", 4, "there are 1 rows, but line 1 announces 3"},
           Row{"9223372036854775807\n\n", 3,
               "there are 0 rows, but line 1 announces 9223372036854775807"},
           Row{"1\n\nO 0 0 0\nH 0 0 1\n", 4,
               "there are more rows than the 1 that line 1 announces"},
           Row{"1\n\nO 0 0\n", 3, "an atom needs three coordinates"},
           Row{"1\n\nO 0 0 z\n", 3, "'z' is no coordinate"},
           Row{"1\n\nO z 0\n", 3, "'z' is no coordinate"},
           Row{"1\n\nO 0 0 nan\n", 3, "'nan' is no coordinate"},
           Row{"1\n\nO 0 inf 0\n", 3, "'inf' is no coordinate"},
           Row{"1\n\nO nan 0 x\n", 3, "'nan' is no coordinate"},
           Row{"1\n\nO 0 0 1e999\n", 3, "'1e999' is no coordinate"},
           Row{"1\n\n8 0 0 0\n", 3, "'8' is no symbol of an element"},
           Row{"1\n\n#O 0 0 0\n", 3, "'#O' is no symbol of an element"},
           Row{"1\n\nO$ 0 0 0\n", 3, "'O$' is no symbol of an element"},
       }) {
    const XyzResult result = read_xyz(row.text);
    EXPECT_EQ(result.error, row.error) << row.text;
    EXPECT_EQ(result.line, row.line) << row.text;
    EXPECT_TRUE(result.atoms.empty()) << row.text;
  }
}

TEST(WriteXyz, WritesElementsAndTheShortestNumbers) {
  Molecule molecule;
  molecule.atoms = {atom("o1", 0.0, -0.5, 1e-5), atom("Xx", 1.0 / 3.0, 12345678.0, 1e300)};
  EXPECT_EQ(write_xyz(molecule, "two\nlines\r\n"),
            "2\ntwo lines  \nO 0 -0.5 1e-05\nXx 0.3333333333333333 12345678 1e+300\n");
  EXPECT_EQ(write_xyz(Molecule()), "0\n\n");
}

TEST(WriteXyz, ReadsBackAsTheSameNumbers) {
  Molecule molecule;
  for (int i = 1; i < 200; ++i) {
    const double x = 1.0 / i;
    molecule.atoms.push_back(atom("C", x, -x * 1e-7, x * 1e12));
  }
  const XyzResult result = read_xyz(write_xyz(molecule, "c"));
  ASSERT_EQ(result.error, "");
  ASSERT_EQ(result.atoms.size(), molecule.atoms.size());
  for (std::size_t i = 0; i < result.atoms.size(); ++i) {
    EXPECT_EQ(result.atoms[i].x, molecule.atoms[i].x);
    EXPECT_EQ(result.atoms[i].y, molecule.atoms[i].y);
    EXPECT_EQ(result.atoms[i].z, molecule.atoms[i].z);
  }
}

TEST(WriteXyz, TurnsBohrIntoAngstrom) {
  Molecule molecule;
  molecule.unit = LengthUnit::Bohr;
  molecule.atoms = {atom("H", 1.0, 0.0, -2.0)};
  EXPECT_EQ(write_xyz(molecule), "1\n\nH 0.529177210903 0 -1.058354421806\n");
}

}  // namespace
}  // namespace kelp::input::bdf
