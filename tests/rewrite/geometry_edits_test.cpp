// Atoms move; their lines stay.

#include "rewrite/edit_table.hpp"

namespace kelp::input::bdf {
namespace {

AtomRecord atom(const std::string& element, double x, double y, double z) {
  AtomRecord made;
  made.element = element;
  made.x = x;
  made.y = y;
  made.z = z;
  return made;
}

Edit geometry(std::vector<AtomRecord> atoms, std::optional<std::string> where = std::nullopt) {
  Edit edit;
  edit.geometry = NewGeometry{std::move(atoms), LengthUnit::Angstrom, std::nullopt};
  if (where) {
    edit.geometry->path = path(*where);
  }
  return edit;
}

std::string text_after(const std::string& before, const Edit& edit) {
  const Rewrite rewrite = edited(before, edit);
  EXPECT_EQ(messages_of(rewrite), "") << before;
  EXPECT_EQ(apply_edits(before, rewrite.edits), rewrite.text);
  return rewrite.text;
}

const std::vector<AtomRecord> water = {atom("O", 0, 0, 0.25), atom("H", 0, 0.757, -0.4),
                                       atom("H", 0, -0.757, -0.4)};

TEST(GeometryEdits, AtomsThatMoveKeepTheirLines) {
  EXPECT_EQ(text_after("#! w\nhf/sto-3g\nGeometry # g\n  O1   0.0   0.0   0.1  # oxygen\n"
                       "# c\n\tH 0 0.757000 -0.4\n  H 0.0 -0.757 -0.4\nEnd Geometry\n",
                       geometry(water)),
            "#! w\nhf/sto-3g\nGeometry # g\n  O1   0.0   0.0 0.2500000000  # oxygen\n"
            "# c\n\tH 0 0.757000 -0.4\n  H 0.0 -0.757 -0.4\nEnd Geometry\n");
}

TEST(GeometryEdits, ColumnsStayAsFarAsThereAreBlanks) {
  EXPECT_EQ(text_after("$compass\ngeometry\n  H        0.5000000000   0.1234567890123   0.0\n"
                       "end geometry\n$end\n",
                       geometry({atom("H", -0.5, 0.5, 0)})),
            "$compass\ngeometry\n  H       -0.5000000000   0.5000000000000   0.0\n"
            "end geometry\n$end\n");
}

TEST(GeometryEdits, WhatIsThereAlreadyChangesNoByte) {
  const std::string before =
      "$compass\ngeometry\n O1 0 0 2.5D-1\n h  0 .757 -4e-1 # x\nH 0 -0.7570 -0.40\nend "
      "geometry\n$end\n";
  EXPECT_EQ(text_after(before, geometry(water)), before);
}

TEST(GeometryEdits, AtomsAreAddedAndTakenOut) {
  const std::string before =
      "$compass\nGeometry\n  He 0 0 0 # first\n# c\n  He 0 0 1\nEnd geometry\nnosymm\n$end\n";
  EXPECT_EQ(text_after(before, geometry({atom("He", 0, 0, 0)})),
            "$compass\nGeometry\n  He 0 0 0 # first\n# c\nEnd geometry\nnosymm\n$end\n");
  EXPECT_EQ(
      text_after(before, geometry({atom("He", 0, 0, 0), atom("He", 0, 0, 1), atom("Ne", 0, 0, 2)})),
      "$compass\nGeometry\n  He 0 0 0 # first\n# c\n  He 0 0 1\n  Ne 0.0000000000 "
      "0.0000000000 2.0000000000\nEnd geometry\nnosymm\n$end\n");
}

TEST(GeometryEdits, InternalCoordinatesMakeWayAsAWhole) {
  EXPECT_EQ(
      text_after(
          "#! w\nhf/sto-3g\nGeometry\n# water\nO\n# angle below\nH 1 0.9\nH 1 0.9 2 109.0\n\nR1 "
          "1.0\nEnd Geometry\n",
          geometry({atom("He", 0, 0, 0)})),
      "#! w\nhf/sto-3g\nGeometry\n# water\nHe 0.0000000000 0.0000000000 "
      "0.0000000000\nEnd Geometry\n");
  EXPECT_EQ(text_after("$compass\ngeometry\n# water\nO # o\n# angle below\nH 1 0.9\nH 1 0.9 2 "
                       "109.0\nend geometry\n$end\n",
                       geometry({atom("He", 0, 0, 0)})),
            "$compass\ngeometry\n# water\nHe 0.0000000000 0.0000000000 0.0000000000\nend "
            "geometry\n$end\n");
}

TEST(GeometryEdits, TheUnitOfTheInputIsKept) {
  EXPECT_EQ(text_after("$compass\ngeometry\n H 0 0 0\nend geometry\nunit\n bohr # b\n$end\n",
                       geometry({atom("H", 0.529177210903, 0, 0)})),
            "$compass\ngeometry\n H 1.0000000000 0 0\nend geometry\nunit\n bohr # b\n$end\n");
}

TEST(GeometryEdits, OfSeveralGeometriesOneIsNamed) {
  const std::string one = "$compass\ngeometry\n H 0 0 0\nend geometry\n$end\n";
  const Rewrite refused = edited(one + one, geometry({atom("H", 1, 0, 0)}));
  EXPECT_THAT(refused.error, ::testing::HasSubstr("compass.geometry, compass#2.geometry"));
  EXPECT_EQ(text_after(one + one, geometry({atom("H", 1, 0, 0)}, "compass#2.geometry")),
            one + "$compass\ngeometry\n H 1.0000000000 0 0\nend geometry\n$end\n");
  EXPECT_THAT(edited(one, geometry(water, "scf.charge")).error,
              ::testing::HasSubstr("no geometry"));
}

TEST(GeometryEdits, CommentsOfAtomsThatAreGoneGoAndAreTold) {
  const Rewrite block = edited(
      "#! w\nhf/sto-3g\nGeometry\n# top\n H 0 0 0 7 # one\n# below\n H 0 0 1 # two\n"
      "End Geometry\n",
      geometry({atom("He", 0, 0, 0), atom("H", 0, 0, 2)}));
  EXPECT_EQ(block.text,
            "#! w\nhf/sto-3g\nGeometry\n# top\n He 0 0 0\n H 0 0 2.0000000000 # two\n"
            "End Geometry\n");
  EXPECT_THAT(block.notes, ::testing::ElementsAre("what was said of the old geometry goes: "
                                                  "'7 # one' (line 5), '# below' (line 6)"));
  const Rewrite entry =
      edited("$compass\ngeometry\n# top\n H 0 0 0 # one\n# below\n H 0 0 1\nend geometry\n$end\n",
             geometry({atom("He", 0, 0, 0)}));
  EXPECT_EQ(entry.text, "$compass\ngeometry\n# top\n He 0 0 0\nend geometry\n$end\n");
  EXPECT_EQ(entry.notes.size(), 1U);
}

TEST(GeometryEdits, AnyEntryThatHoldsAtomsCanBeNamed) {
  const std::string compass = "$compass\ngeometry\n H 0 0 0\nend geometry\nunit\n bohr\n$end\n";
  const std::string start = compass + "$bdfopt\ngeometry2\n H 0 0 ";
  const std::string end = "\nend geometry2\n$end\n";
  const Edit edit = geometry({atom("H", 0, 0, 0.529177210903)}, "bdfopt.geometry2");
  EXPECT_EQ(text_after(start + "2" + end, edit), start + "1.0000000000" + end);
  EXPECT_EQ(text_after(compass + "$bdfopt\n$end\n", edit),
            compass +
                "$bdfopt\ngeometry2\n H 0.0000000000 0.0000000000 1.0000000000\n"
                "end geometry2\n$end\n");
  EXPECT_THAT(edited(compass, edit).error, ::testing::HasSubstr("there is no 'bdfopt'"));
  EXPECT_THAT(edited(start + "2" + end, geometry(water)).error,
              ::testing::HasSubstr("compass.geometry, bdfopt.geometry2"));
  EXPECT_THAT(edited(start + "2" + end, geometry(water, "scf.charge")).error,
              ::testing::HasSubstr("the input has compass.geometry, bdfopt.geometry2"));
}

TEST(GeometryEdits, AMissingGeometryIsAdded) {
  EXPECT_EQ(text_after("#! h\nhf/sto-3g\n", geometry({atom("H", 0, 0, 0)})),
            "#! h\nhf/sto-3g\n\nGeometry\n  H 0.0000000000 0.0000000000 0.0000000000\nEnd "
            "Geometry\n");
  EXPECT_EQ(text_after("$compass\nnosymm\n$end\n", geometry({atom("H", 0, 0, 0)})),
            "$compass\nnosymm\ngeometry\n  H 0.0000000000 0.0000000000 0.0000000000\nend "
            "geometry\n$end\n");
}

}  // namespace
}  // namespace kelp::input::bdf
