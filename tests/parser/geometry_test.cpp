// The geometry block of an easy input and its atom lines.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "parser/parsing.hpp"

namespace kelp::input::bdf {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

BDFData with_geometry_line(const std::string& line) {
  return document("hf/svp\ngeometry\n" + line + "\nend geometry\n");
}

TEST(Geometry, HoldsAtomsAndOtherLinesApart) {
  const BDFData data =
      document("hf/svp\n  Geometry # x\nC 0 0 0\n\n# c\nH 1 2 3\n  zmat\nEnd Geometry\n%ls\n");
  EXPECT_TRUE(data.has_geometry);
  EXPECT_TRUE(data.geometry_terminated);
  EXPECT_EQ(place(data.geometry_location), "2:1+14");
  ASSERT_EQ(data.atoms.size(), 2U);
  EXPECT_EQ(data.atoms[1].element, "H");
  EXPECT_EQ(data.atoms[1].x, 1.0);
  EXPECT_EQ(data.atoms[1].y, 2.0);
  EXPECT_EQ(data.atoms[1].z, 3.0);
  EXPECT_EQ(data.atoms[1].line, "H 1 2 3");
  EXPECT_EQ(place(data.atoms[1].location), "6:1+7");
  EXPECT_THAT(data.geometry_lines, ElementsAre("", "# c", "  zmat"));
  EXPECT_EQ(outline(data.statements), "Shell <%ls>");
}

TEST(Geometry, EndsAtAnyLineThatBeginsWithTheTwoWords) {
  for (const std::string_view line : {"End Geometry extra", "END GEOMETRY", " end geometryx"}) {
    EXPECT_TRUE(document("geometry\nH 0 0 0\n" + std::string(line)).geometry_terminated) << line;
  }
  for (const std::string_view line : {"EndGeometry", "end  geometry", "$end", "geometry"}) {
    const BDFData data = document("geometry\nH 0 0 0\n" + std::string(line));
    EXPECT_FALSE(data.geometry_terminated) << line;
    EXPECT_THAT(data.geometry_lines, ElementsAre(line));
  }
}

TEST(Geometry, WithoutAnEndSwallowsTheRest) {
  const BDFData data = document("hf/svp\ngeometry\nH 0 0 0\n$m\n%ls\n&database\n$end\n");
  EXPECT_TRUE(data.has_geometry);
  EXPECT_FALSE(data.geometry_terminated);
  EXPECT_THAT(data.modules, IsEmpty());
  EXPECT_THAT(data.geometry_lines, ElementsAre("$m", "%ls", "&database", "$end"));
}

TEST(Geometry, AtTheVeryEndIsEmptyAndOpen) {
  const BDFData data = document("hf/svp\ngeometry");
  EXPECT_TRUE(data.has_geometry);
  EXPECT_FALSE(data.geometry_terminated);
  EXPECT_THAT(data.geometry_lines, IsEmpty());
}

TEST(Geometry, OnlyTheFirstOneOpensABlock) {
  const BDFData data = document("geometry\nend geometry\ngeometry\nH 0 0 0\nend geometry\n");
  EXPECT_THAT(data.atoms, IsEmpty());
  EXPECT_EQ(outline(data.statements), "Raw <geometry>; Raw <H 0 0 0>; Raw <end geometry>");
}

TEST(Geometry, AModuleInputHasNone) {
  const BDFData data = document("$m\n$end\ngeometry\nH 0 0 0\nend geometry\n");
  EXPECT_FALSE(data.has_geometry);
  EXPECT_THAT(data.atoms, IsEmpty());
  EXPECT_EQ(place(data.geometry_location), "nowhere");
}

TEST(AtomLine, NeedsALabelAndThreeNumbers) {
  const struct {
    std::string line;
    double x, y, z;
  } rows[] = {
      {"C 0.0 0.0 0.12", 0, 0, 0.12},
      {"  C\t1\t-2\v+3  ", 1, -2, 3},
      {"C  0.0  0.0  1.2D-1", 0, 0, 0.12},
      {"C 1d1 1E1 1e+1", 10, 10, 10},
      {"C .5 5. 0x10", 0.5, 5, 16},
      {"C 1 2 3 4 x", 1, 2, 3},
      {"1 2 3 4", 2, 3, 4},
      {"# 1 2 3", 1, 2, 3},
      {"* 1 2 3", 1, 2, 3},
      {"\xc3\x84 1 2 3", 1, 2, 3},
  };
  for (const auto& row : rows) {
    const BDFData data = with_geometry_line(row.line);
    ASSERT_EQ(data.atoms.size(), 1U) << row.line;
    EXPECT_EQ(data.atoms[0].x, row.x) << row.line;
    EXPECT_EQ(data.atoms[0].y, row.y) << row.line;
    EXPECT_EQ(data.atoms[0].z, row.z) << row.line;
    EXPECT_EQ(data.atoms[0].line, row.line);
    EXPECT_THAT(data.geometry_lines, IsEmpty()) << row.line;
  }
}

TEST(AtomLine, KeepsItsLabelAsWritten) {
  EXPECT_EQ(with_geometry_line(" Cl-1(fragment=2) 0 0 0").atoms.at(0).element, "Cl-1(fragment=2)");
}

TEST(AtomLine, AnythingElseIsKeptVerbatim) {
  const std::string rows[] = {
      "",          "   ",        "C",           "C 0.0 0.0",   "C 0.0 x 1.0",  "C 0 0 1e",
      "C 0,0 0 0", "C 0 0 0,",   "C 1_0 0 0",   "C 1e400 0 0", "C 0 -1e400 0", "C 0 0 1e-320",
      "C +-1 0 0", "C 0 0 1\0"s, "C 1.0F0 0 0", "C 0 0 0#c",   "0 0 0",        "C = 0 0",
  };
  for (const std::string& line : rows) {
    const BDFData data = with_geometry_line(line);
    EXPECT_THAT(data.atoms, IsEmpty()) << line;
    EXPECT_THAT(data.geometry_lines, ElementsAre(line));
  }
}

}  // namespace
}  // namespace kelp::input::bdf
