#include <gtest/gtest.h>

#include "editor_fixture.hpp"

namespace kelp::input::bdf {
namespace {

const std::string block = "Geometry\n  He 0.0000000000 0.0000000000 0.0000000000\nEnd Geometry\n";

BDFData with_helium(const Lines& modules) {
  BDFData data = document_of(modules);
  data.has_geometry = true;
  data.atoms = {atom("He")};
  return data;
}

void add_geometry_entry(Module& module) {
  module.entries.emplace_back().name = "Geometry";
  module.entries.back().raw_line = "own geometry";
}

std::string rendered(BDFData data, const InputSchema& schema = small_schema()) {
  return BDFEditor(std::move(data), schema).render();
}

TEST(GeometryInModuleInput, GetsACompassBlockWhenThereIsNone) {
  EXPECT_EQ(rendered(with_helium({})), "$compass\n" + block + "$end\n");
}

TEST(GeometryInModuleInput, AnEmptyLineFollowsThatBlockWhenThereIsMore) {
  EXPECT_EQ(rendered(with_helium({"scf"})), "$compass\n" + block + "$end\n\n$scf\n$end\n");
  BDFData data = with_helium({});
  data.free_lines = {"%date"};
  EXPECT_EQ(rendered(data), "$compass\n" + block + "$end\n\n%date\n");
}

TEST(GeometryInModuleInput, ThatBlockFollowsTheLeadingLines) {
  BDFData data = with_helium({});
  data.leading_lines = {"# about"};
  EXPECT_EQ(rendered(data), "# about\n$compass\n" + block + "$end\n");
}

TEST(GeometryInModuleInput, ThatBlockIsWrittenForASchemaThatKnowsNoCompass) {
  EXPECT_EQ(rendered(with_helium({}), InputSchema()), "$compass\n" + block + "$end\n");
}

TEST(GeometryInModuleInput, ThatBlockIsWrittenForASchemaToWhichCompassIsAnAlias) {
  const InputSchema schema =
      InputSchema::from_yaml("{schema_version: 1, modules: {newcompass: {aliases: [compass]}}}");
  BDFData data;
  data.mode = InputMode::Module;
  data.has_geometry = true;
  data.atoms = {atom("He")};
  EXPECT_EQ(rendered(data, schema), "$compass\n" + block + "$end\n");
  data.modules.emplace_back().name = "newcompass";
  EXPECT_EQ(rendered(data, schema), "$compass\n" + block + "$end\n\n$newcompass\n$end\n");
}

TEST(GeometryInModuleInput, StandsBeforeTheEntriesOfTheCompassModule) {
  BDFData data = with_helium({"scf", "compass"});
  data.geometry_lines = {" more "};
  data.modules[1].entries.emplace_back().name = "title";
  data.modules[1].entries[0].known = true;
  EXPECT_EQ(rendered(data),
            "$scf\n$end\n$compass\nGeometry\n  He 0.0000000000 0.0000000000 0.0000000000\n more \n"
            "End Geometry\n  title\n$end\n");
}

TEST(GeometryInModuleInput, IsNotWrittenWithoutTheFlag) {
  BDFData data = with_helium({"compass"});
  data.has_geometry = false;
  EXPECT_EQ(rendered(data), "$compass\n$end\n");
  data.modules.clear();
  EXPECT_EQ(rendered(data), "\n");
}

TEST(GeometryInModuleInput, IsNotWrittenWhenTheOnlyCompassModuleHasItsOwn) {
  BDFData data = with_helium({"compass"});
  add_geometry_entry(data.modules[0]);
  EXPECT_EQ(rendered(data), "$compass\nown geometry\n$end\n");
}

TEST(GeometryInModuleInput, GoesIntoTheFirstCompassModuleWithoutItsOwn) {
  BDFData data = with_helium({"compass", "compass", "compass"});
  add_geometry_entry(data.modules[0]);
  EXPECT_EQ(rendered(data),
            "$compass\nown geometry\n$end\n$compass\n" + block + "$end\n$compass\n$end\n");
}

TEST(GeometryInModuleInput, FirstMeansFirstInTheOrderOfStatements) {
  BDFData data = with_helium({"compass", "compass"});
  data.modules[0].trailing_lines = {"stored first"};
  data.statements = {module_statement(1), module_statement(0)};
  EXPECT_EQ(rendered(data), "$compass\n" + block + "$end\n$compass\nstored first\n$end\n");
}

TEST(GeometryInModuleInput, IsLostWhenNoStatementNamesTheCompassModule) {
  BDFData data = with_helium({"compass", "scf"});
  data.statements = {module_statement(1)};
  EXPECT_EQ(rendered(data), "$scf\n$end\n");
}

TEST(GeometryInModuleInput, IsWrittenOnceWhenTwoStatementsNameTheModule) {
  BDFData data = with_helium({"compass"});
  data.statements = {module_statement(0), module_statement(0)};
  EXPECT_EQ(rendered(data), "$compass\n" + block + "$end\n$compass\n$end\n");
}

TEST(GeometryInModuleInput, GoesIntoAModuleStoredUnderAnAliasOnlyWhenOneBearsTheName) {
  BDFData data = with_helium({});
  data.modules.emplace_back().name = "compas";
  EXPECT_EQ(rendered(data), "$compass\n" + block + "$end\n\n$compas\n$end\n");
  data.modules.emplace_back().name = "compass";
  EXPECT_EQ(rendered(data), "$compas\n" + block + "$end\n$compass\n$end\n");
}

TEST(GeometryInModuleInput, AGeometryEntryOfAnotherModuleDoesNotMatter) {
  BDFData data = with_helium({"scf", "compass"});
  add_geometry_entry(data.modules[0]);
  EXPECT_EQ(rendered(data), "$scf\nown geometry\n$end\n$compass\n" + block + "$end\n");
}

// The search for a geometry of its own is the document's, which knows no aliases.
TEST(GeometryInModuleInput, AGeometryEntryStoredUnderAnAliasDoesNotCount) {
  BDFData data = with_helium({"compass"});
  add_geometry_entry(data.modules[0]);
  data.modules[0].entries[0].name = "geom";
  EXPECT_EQ(rendered(data), "$compass\n" + block + "own geometry\n$end\n");
}

TEST(GeometryInModuleInput, IsPlacedAnewByEachRendering) {
  const BDFEditor editor(with_helium({"compass"}), small_schema());
  const std::string first = editor.render();
  EXPECT_EQ(editor.render(), first);
}

}  // namespace
}  // namespace kelp::input::bdf
