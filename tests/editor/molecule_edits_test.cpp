#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "editor_fixture.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class EasyLayouts : public testing::TestWithParam<InputMode> {
 protected:
  BDFEditor editor_for(const Lines& modules) const {
    return BDFEditor(document_of(modules, GetParam()), small_schema());
  }
};

INSTANTIATE_TEST_SUITE_P(Molecule, EasyLayouts, testing::Values(InputMode::Easy, InputMode::Mixed),
                         [](const auto& mode) {
                           return mode.param == InputMode::Easy ? "EasyInput" : "MixedInput";
                         });

TEST_P(EasyLayouts, SettingTheGeometryReplacesAtomsAndLines) {
  BDFData data;
  data.mode = GetParam();
  data.geometry_terminated = false;
  data.atoms = {atom("O")};
  data.geometry_lines = {"old line"};
  data.geometry_location = SourceSpan{5, 1, 8};
  BDFEditor editor(std::move(data), small_schema());
  AtomRecord given = atom("H1", 1.5, -2.0, 0.25);
  given.line = "as read";
  given.location = SourceSpan{6, 1, 7};
  editor.set_cartesian_geometry({given, atom("Xx")});
  EXPECT_TRUE(editor.data().has_geometry);
  EXPECT_TRUE(editor.data().geometry_terminated);
  EXPECT_THAT(editor.data().geometry_lines, IsEmpty());
  ASSERT_TRUE(editor.data().geometry_location);
  EXPECT_EQ(editor.data().geometry_location->line, 5U);
  ASSERT_EQ(editor.data().atoms.size(), 2U);
  const AtomRecord& stored = editor.data().atoms[0];
  EXPECT_EQ(stored.element, "H1");
  EXPECT_EQ(stored.x, 1.5);
  EXPECT_EQ(stored.y, -2.0);
  EXPECT_EQ(stored.z, 0.25);
  EXPECT_EQ(stored.line, "as read");
  EXPECT_TRUE(stored.location);
}

TEST_P(EasyLayouts, SettingTheGeometryLeavesCompassModulesUntouched) {
  BDFEditor editor = editor_for({"compass"});
  editor.append_module_entry("compass", "geometry", {"H 0 0 0"});
  editor.set_cartesian_geometry({atom("He")});
  EXPECT_THAT(entries_of(editor.data().modules[0]), ElementsAre("geometry=H 0 0 0"));
}

TEST_P(EasyLayouts, AnEmptyGeometryRendersAsAnEmptyBlock) {
  BDFEditor editor = editor_for({});
  editor.set_cartesian_geometry({});
  EXPECT_TRUE(editor.data().has_geometry);
  EXPECT_EQ(editor.render(), "#!job.bdf\n\n\nGeometry\nEnd Geometry\n");
}

TEST_P(EasyLayouts, ChargeAndMultiplicityAreKeywordsAndCreateNoModule) {
  BDFEditor editor = editor_for({"compass"});
  editor.set_charge_and_multiplicity(-1, 2);
  EXPECT_THAT(texts_of(editor.data().easy_tokens), ElementsAre("charge=-1", "spinmulti=2"));
  EXPECT_THAT(names_of(editor.data().modules), ElementsAre("compass"));
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0"));
}

TEST_P(EasyLayouts, ChargeAndMultiplicityAreMirroredIntoAnExistingScfModule) {
  BDFEditor editor = editor_for({"scf", "scf"});
  editor.append_module_entry("scf", "spinmulti", {"9"});
  editor.set_charge_and_multiplicity(2, 3);
  EXPECT_THAT(texts_of(editor.data().easy_tokens), ElementsAre("charge=2", "spinmulti=3"));
  EXPECT_THAT(entries_of(editor.data().modules[0]), ElementsAre("spinmulti=3", "charge=2"));
  EXPECT_THAT(entries_of(editor.data().modules[1]), IsEmpty());
}

TEST_P(EasyLayouts, ASecondChargeReplacesTheFirst) {
  BDFEditor editor = editor_for({"scf"});
  editor.add_easy_token("chg=7");
  editor.add_easy_token("hf/vdz");
  editor.set_charge_and_multiplicity(1, 2);
  editor.set_charge_and_multiplicity(0, 1);
  EXPECT_THAT(texts_of(editor.data().easy_tokens),
              ElementsAre("charge=0", "hf/vdz", "spinmulti=1"));
  EXPECT_THAT(entries_of(editor.data().modules[0]), ElementsAre("charge=0", "spinmulti=1"));
}

// The document's own look-up decides whether there is an scf module; it knows no aliases, so that a
// module stored under one gets no entries.
TEST_P(EasyLayouts, AnScfModuleStoredUnderAnAliasIsNotMirrored) {
  BDFData data;
  data.mode = GetParam();
  data.modules.emplace_back().name = "hfscf";
  BDFEditor editor(std::move(data), small_schema());
  editor.set_charge_and_multiplicity(1, 2);
  EXPECT_THAT(entries_of(editor.data().modules[0]), IsEmpty());
  EXPECT_EQ(editor.data().modules.size(), 1U);
}

TEST_P(EasyLayouts, TheLargestAndSmallestIntegersAreWrittenInFull) {
  BDFEditor editor = editor_for({});
  editor.set_charge_and_multiplicity(std::numeric_limits<int>::min(),
                                     std::numeric_limits<int>::max());
  EXPECT_THAT(texts_of(editor.data().easy_tokens),
              ElementsAre("charge=-2147483648", "spinmulti=2147483647"));
}

}  // namespace
}  // namespace kelp::input::bdf
