// What the lines of a geometry are, by themselves and by the lines before them.

#include "source/geometry_line.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "source/elements.hpp"

namespace kelp::input::bdf {
namespace {

// A letter for each line, those that are nothing included.
std::string kinds_of(bool is_internal, const std::vector<std::string>& lines) {
  constexpr std::string_view letters = "-.FAIDS!";
  GeometryReader reader(is_internal);
  std::string kinds;
  for (const std::string& line : lines) {
    kinds += letters[static_cast<std::size_t>(reader.take(line))];
  }
  return kinds;
}

TEST(GeometryLines, OfCoordinatesAreAtoms) {
  EXPECT_EQ(kinds_of(false, {"", "# c", " * c", "...", "\xE2\x80\xA6", "file=a", "FILE = a b"}),
            "---..FF");
  EXPECT_EQ(kinds_of(false, {"H 0 0 0", "h1 1.D0 -.5 2e1", "H 0 0 0 B", "6 0 0 0", "X 0 0 0"}),
            "AAAAA");
  EXPECT_EQ(kinds_of(false, {"H 0 0", "H 0 0 0 0", "H", "R1 0.9", "R1=0.9", "6 0 0 0 B", "H 0 0 x",
                             "H 0x1 0 0", "H 0 nan 0", "..x", "files=a"}),
            "!!!!!!!!!!!");
}

TEST(GeometryLines, OfInternalCoordinatesAreRowsVariablesAndScans) {
  EXPECT_EQ(kinds_of(true, {"O", "H 1 R1", "H 1 R1 2 109.", "H 2 -r 1 A1 3 D", "", "R1 = 1.0",
                            "A1 109", "D=1", "r 0.7 0.05 20"}),
            "IIII-DDDS");
  EXPECT_EQ(kinds_of(true, {"O", "H 1 1.0", "H 1 1.0 2"}), "II!");
  EXPECT_EQ(kinds_of(true, {"O", "H 1.0 R1", "R1 x", "=1", "a b=1", "R1=1 2"}), "I!!!!!");
}

// Four fields that could be an atom are a scan where a row names the first of them.
TEST(GeometryLines, AreScansOfVariables) {
  EXPECT_EQ(kinds_of(true, {"O", "H 1 C1", "C1 0.7 0.05 20"}), "IIS");
  EXPECT_EQ(kinds_of(true, {"O", "H 1 R1", "C1 0.7 0.05 20"}), "II!");
}

TEST(GeometryLines, TellInternalCoordinatesByTheFirstTwo) {
  EXPECT_TRUE(begins_internal_coordinates("O", "H 1 R1"));
  EXPECT_TRUE(begins_internal_coordinates(" Or ", ""));
  EXPECT_FALSE(begins_internal_coordinates("O", "H 0 0 1"));
  EXPECT_FALSE(begins_internal_coordinates("O 0 0 0", "H 0 0 1"));
  EXPECT_FALSE(begins_internal_coordinates("3", "water"));
  EXPECT_FALSE(begins_internal_coordinates("file=a.xyz", ""));
}

TEST(ElementSymbols, AreFoundInAnyCaseAndAsAWhole) {
  EXPECT_EQ(element_symbols().size(), 118U);
  EXPECT_EQ(element_symbols()[5], "C");
  EXPECT_EQ(find_element("cL"), "Cl");
  for (const char* const text : {"", "Cl2", "Or", "X"}) {
    EXPECT_EQ(find_element(text), "") << text;
  }
}

TEST(AtomLabels, AreSymbolsWithAMarkBehindThem) {
  for (const char* const label : {"H", "h1", "CL12", "X", "x3", "H_a", "H-2", "C1a"}) {
    EXPECT_TRUE(is_atom_label(label)) << label;
  }
  for (const char* const label : {"", "1", "Or", "H+", "N)", "D", "Xx", "-H"}) {
    EXPECT_FALSE(is_atom_label(label)) << label;
  }
}

}  // namespace
}  // namespace kelp::input::bdf
