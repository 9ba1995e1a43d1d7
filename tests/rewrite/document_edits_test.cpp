// A host changes the document with an editor, and gets the text edits of that.

#include <functional>

#include "kelp/input/bdf/editor.hpp"
#include "rewrite/edit_table.hpp"

namespace kelp::input::bdf {
namespace {

std::string text_after(const std::string& before, const std::function<void(BDFEditor&)>& change) {
  const ParsedInput input(before, shipped_schema());
  BDFEditor editor(input.data(), shipped_schema());
  change(editor);
  const Rewrite rewrite = text_edits(input, editor.data());
  EXPECT_EQ(messages_of(rewrite), "") << before;
  EXPECT_EQ(apply_edits(before, rewrite.edits), rewrite.text);
  return rewrite.text;
}

const std::string job =
    "# top\n$COMPASS\n geometry\n  H1 0 0 0 # a\n  H 0 0 0.70\n end geometry\n$END\n\n%ls\n$scf # "
    "s\n"
    " RHF\n$end";

TEST(DocumentEdits, WithoutAChangeThereIsNoEdit) {
  EXPECT_EQ(text_after(job, [](BDFEditor&) {}), job);
}

TEST(DocumentEdits, AnEditorsValuesAndModulesArePatchedIn) {
  EXPECT_EQ(text_after(job, [](BDFEditor& editor) { editor.set_charge_and_multiplicity(1, 2); }),
            "# top\n$COMPASS\n geometry\n  H1 0 0 0 # a\n  H 0 0 0.70\n end geometry\n$END\n\n%ls\n"
            "$scf # s\n RHF\n charge\n  1\n spinmulti\n  2\n$end");
  EXPECT_EQ(text_after(job,
                       [](BDFEditor& editor) {
                         editor.remove_module("compass");
                         editor.append_shell_statement("% date");
                       }),
            "# top\n\n%ls\n$scf # s\n RHF\n$end\n% date");
}

TEST(DocumentEdits, AnEditorsGeometryTakesTheLinesOfTheOldOne) {
  EXPECT_EQ(text_after(job,
                       [](BDFEditor& editor) {
                         AtomRecord first;
                         first.element = "H";
                         AtomRecord second = first;
                         second.z = 0.75;
                         editor.set_cartesian_geometry({first, second});
                       }),
            "# top\n$COMPASS\n geometry\n  H1 0 0 0 # a\n  H 0 0 0.7500000000\n end "
            "geometry\n$END\n\n%ls\n$scf # s\n RHF\n$end");
}

TEST(DocumentEdits, AtomsThatKeepTheirLocationKeepTheirLines) {
  const std::string before = "#! w\nhf/sto-3g\nGeometry\n O 0 0 0\n H 0 0 1.0 # h\nEnd Geometry\n";
  const ParsedInput input(before, shipped_schema());
  BDFData data = input.data();
  data.atoms.erase(data.atoms.begin());
  data.atoms[0].z = 2;
  EXPECT_EQ(text_edits(input, data).text,
            "#! w\nhf/sto-3g\nGeometry\n H 0 0 2.0000000000 # h\nEnd Geometry\n");
}

TEST(DocumentEdits, ModulesThatChangePlacesAreMoved) {
  const ParsedInput input("$compass\n$end\n$scf\nrhf\n$end\n", shipped_schema());
  BDFData data = input.data();
  std::swap(data.statements[0], data.statements[1]);
  std::swap(data.modules[0], data.modules[1]);
  std::swap(data.statements[0].module_index, data.statements[1].module_index);
  const Rewrite rewrite = text_edits(input, data);
  EXPECT_EQ(messages_of(rewrite), "");
  EXPECT_LT(rewrite.text.find("$scf"), rewrite.text.find("$compass"));
}

}  // namespace
}  // namespace kelp::input::bdf
