#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor_fixture.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

BDFEditor editor_for(const Lines& modules) {
  return BDFEditor(document_of(modules), small_schema());
}

TEST(ChargeOfAModuleInput, CreatesTheScfModuleAtTheEnd) {
  BDFEditor editor = editor_for({"compass"});
  editor.append_shell_statement("%date");
  editor.set_charge_and_multiplicity(-1, 2);
  EXPECT_THAT(names_of(editor.data().modules), ElementsAre("compass", "scf"));
  EXPECT_THAT(entries_of(editor.data().modules[1]), ElementsAre("charge=-1", "spinmulti=2"));
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0", "shell(%date)", "1"));
  EXPECT_THAT(editor.data().easy_tokens, IsEmpty());
  EXPECT_EQ(editor.render(),
            "$compass\n$end\n%date\n$scf\n  charge\n    -1\n  spinmulti\n    2\n$end\n");
}

TEST(ChargeOfAModuleInput, ReplacesExistingEntriesInPlace) {
  BDFEditor editor = editor_for({"scf", "scf"});
  for (const char* name : {"spinmulti", "rhf", "charge"}) {
    editor.append_module_entry("scf", name, {"old"});
  }
  editor.set_charge_and_multiplicity(1, 3);
  editor.set_charge_and_multiplicity(0, 1);
  EXPECT_THAT(entries_of(editor.data().modules[0]),
              ElementsAre("spinmulti=1", "rhf=old", "charge=0"));
  EXPECT_THAT(entries_of(editor.data().modules[1]), IsEmpty());
}

TEST(ChargeOfAModuleInput, FindsAnScfModuleStoredUnderAnAlias) {
  BDFData data;
  data.mode = InputMode::Module;
  data.modules.emplace_back().name = "HFSCF";
  BDFEditor editor(std::move(data), small_schema());
  editor.set_charge_and_multiplicity(0, 1);
  EXPECT_THAT(names_of(editor.data().modules), ElementsAre("HFSCF"));
  EXPECT_THAT(entries_of(editor.data().modules[0]), ElementsAre("charge=0", "spinmulti=1"));
}

TEST(GeometryOfAModuleInput, RemovesTheGeometryEntriesOfEveryCompassModule) {
  BDFEditor editor = editor_for({"compass", "scf", "compass"});
  editor.append_module_entry("compass", "title", {"water"}, 0);
  for (const std::size_t module : {0U, 0U, 1U}) {
    editor.append_module_entry("compass", "GEOM", {"O 0 0 0"}, module);
  }
  editor.append_module_entry("scf", "geometry", {"stays"});
  editor.set_cartesian_geometry({atom("He")});
  EXPECT_THAT(entries_of(editor.data().modules[0]), ElementsAre("title=water"));
  EXPECT_THAT(entries_of(editor.data().modules[1]), ElementsAre("geometry=stays"));
  EXPECT_THAT(entries_of(editor.data().modules[2]), IsEmpty());
  EXPECT_EQ(editor.render(),
            "$compass\n"
            "Geometry\n"
            "  He 0.0000000000 0.0000000000 0.0000000000\n"
            "End Geometry\n"
            "  title\n"
            "    water\n"
            "$end\n"
            "$scf\n"
            "stays\n"
            "$end\n"
            "$compass\n"
            "$end\n");
}

TEST(GeometryOfAModuleInput, CreatesNoCompassModule) {
  BDFEditor editor = editor_for({"scf"});
  editor.set_cartesian_geometry({atom("He")});
  EXPECT_THAT(names_of(editor.data().modules), ElementsAre("scf"));
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0"));
}

TEST(GeometryOfAModuleInput, AnEmptyOneIsWrittenIntoTheCompassModule) {
  BDFEditor editor = editor_for({"compass"});
  editor.set_cartesian_geometry({});
  EXPECT_TRUE(editor.data().has_geometry);
  EXPECT_EQ(editor.render(), "$compass\nGeometry\nEnd Geometry\n$end\n");
}

TEST(GeometryOfAModuleInput, AnEmptyOneWithoutCompassModuleGetsABlockOfItsOwn) {
  BDFEditor editor = editor_for({});
  editor.set_cartesian_geometry({});
  EXPECT_EQ(editor.render(), "$compass\nGeometry\nEnd Geometry\n$end\n");
}

TEST(GeometryOfAModuleInput, ReplacesAtomsAndLines) {
  BDFEditor editor = editor_for({"compass"});
  editor.set_cartesian_geometry({atom("O"), atom("H")});
  editor.set_cartesian_geometry({atom("Ne", 1.0)});
  EXPECT_EQ(
      editor.render(),
      "$compass\nGeometry\n  Ne 1.0000000000 0.0000000000 0.0000000000\nEnd Geometry\n$end\n");
}

// The steps count compass modules by the document's look-up, which knows no aliases, and remove by
// the schema's, which does: with one module stored under an alias and one under the name, only the
// first of the two loses its entry.
TEST(GeometryOfAModuleInput, CountsCompassModulesByNameAndRemovesByAlias) {
  BDFData data;
  data.mode = InputMode::Module;
  for (const char* name : {"compas", "compass"}) {
    data.modules.emplace_back().name = name;
    data.modules.back().entries.emplace_back().name = "geometry";
  }
  BDFEditor editor(std::move(data), small_schema());
  editor.set_cartesian_geometry({});
  EXPECT_THAT(editor.data().modules[0].entries, IsEmpty());
  EXPECT_THAT(entries_of(editor.data().modules[1]), ElementsAre("geometry="));
}

}  // namespace
}  // namespace kelp::input::bdf
