#include <cstdlib>

#include "lint_table.hpp"
#include "support/environment.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"

namespace kelp::input::bdf {
namespace {

std::string knowledge(const std::string& rest) {
  return "schema_version: 1\nschema_kind: knowledge\n" + rest;
}

TEST(KnowledgeLint, TheFileThatComesWithTheLibraryHasNoProblem) {
  const auto path =
      std::filesystem::path(test::shipped_schema_file()).parent_path() / "bdf-knowledge.yaml";
  EXPECT_EQ(problems_of(test::file_bytes(path)), std::vector<std::string>{});
}

TEST(KnowledgeLint, FindsKeysFormsAndNames) {
  expect_problems({
      {__LINE__, "schema_kind: knowledge\n", {"1:1 schema.missing_version"}},
      {__LINE__, knowledge("modules: []\n"), {"3:10 schema.wrong_type"}},
      {__LINE__, knowledge("radii: {}\n"), {"3:1 schema.unknown_key"}},
      {__LINE__, knowledge("covalent_radii: {H: big}\n"), {"3:21 schema.invalid_scalar"}},
      {__LINE__, knowledge("basis_sets:\n- {names: [6-31G], elements: 1-36}\n"), {}},
      {__LINE__,
       knowledge("basis_sets:\n- {names: [6-31G], elements: 36-1, kind: big}\n"),
       {"4:30 schema.invalid_scalar", "4:42 schema.unknown_kind"}},
      {__LINE__, knowledge("basis_sets:\n- {names: [6-31G]}\n"), {"4:3 schema.unreadable"}},
      {__LINE__,
       knowledge("basis_sets:\n- {names: [6-32G, 6-31G*], elements: 1}\n"),
       {"4:12 schema.unknown_name", "4:19 schema.unknown_name"}},
      {__LINE__,
       knowledge("functional_classes: {gga: [PBE, PBF]}\n"
                 "functional_uses: {nmr: {can: [gga, ggb], never: [PBE]}}\n"),
       {"3:33 schema.unknown_name", "4:42 schema.unknown_key"}},
      {__LINE__,
       knowledge("functional_classes: {gga: [PBE]}\nfunctional_uses: {nmr: {can: [gga, ggb]}}\n"),
       {"4:36 schema.unknown_name"}},
      {__LINE__, knowledge("point_groups: {C(1): {}}\n"), {"3:22 schema.wrong_type"}},
      {__LINE__, knowledge("axial_groups: {C(nv): {old: [A]}}\n"), {"3:24 schema.unknown_key"}},
      {__LINE__,
       knowledge("modules: {scff: {needs: [compas]}}\n"),
       {"3:11 schema.unknown_name", "3:26 schema.unknown_name"}},
  });
}

}  // namespace
}  // namespace kelp::input::bdf
