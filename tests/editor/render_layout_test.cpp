#include <gtest/gtest.h>

#include "editor_fixture.hpp"

namespace kelp::input::bdf {
namespace {

std::string rendered(BDFData data) {
  return BDFEditor(std::move(data), small_schema()).render();
}

EasyToken token(std::string text, std::string canonical) {
  EasyToken made;
  made.text = std::move(text);
  made.canonical = std::move(canonical);
  return made;
}

TEST(EasyLayout, HasScriptLineTokensAndGeometry) {
  BDFData data;
  data.script_name = "  #! run.sh ";
  data.easy_tokens = {token("HF", "hf"), token("VDZ", "cc-pvdz")};
  data.has_geometry = true;
  data.atoms = {atom("He")};
  EXPECT_EQ(rendered(data),
            "#!run.sh\nhf cc-pvdz\n\nGeometry\n"
            "  He 0.0000000000 0.0000000000 0.0000000000\nEnd Geometry\n");
}

TEST(EasyLayout, AnEmptyDocumentStillHasEveryPart) {
  EXPECT_EQ(rendered({}), "#!job.bdf\n\n\nGeometry\nEnd Geometry\n");
}

TEST(EasyLayout, AnEmptyScriptNameIsReplacedByTheUsualOne) {
  BDFData data;
  for (const char* name : {"", "  ", "#!", " #! "}) {
    data.script_name = name;
    EXPECT_EQ(rendered(data), "#!job.bdf\n\n\nGeometry\nEnd Geometry\n") << name;
  }
}

TEST(EasyLayout, LeadingLinesStandBetweenScriptLineAndTokens) {
  BDFData data;
  data.leading_lines = {"# one", "  * two ", ""};
  data.easy_tokens = {token("hf", "hf")};
  EXPECT_EQ(rendered(data), "#!job.bdf\n# one\n  * two \n\nhf\n\nGeometry\nEnd Geometry\n");
}

TEST(EasyLayout, ATokenWithoutCanonicalTextIsWrittenAsItStood) {
  BDFData data;
  data.easy_tokens = {token("As Is", ""), token("HF", "hf"), token("", ""), token("X", "x")};
  EXPECT_EQ(rendered(data), "#!job.bdf\nAs Is hf  x\n\nGeometry\nEnd Geometry\n");
}

TEST(EasyLayout, TheGeometryIsWrittenWhateverTheFlagSays) {
  BDFData data;
  data.has_geometry = false;
  data.geometry_terminated = false;
  data.atoms = {atom("H", 1.0, 2.0, -3.0)};
  data.geometry_lines = {"  file=a.xyz ", "", "# note"};
  EXPECT_EQ(rendered(data),
            "#!job.bdf\n\n\nGeometry\n  H 1.0000000000 2.0000000000 -3.0000000000\n"
            "  file=a.xyz \n\n# note\nEnd Geometry\n");
}

TEST(EasyLayout, AnEmptyLineSeparatesTheGeometryFromTheBody) {
  for (const InputMode mode : {InputMode::Easy, InputMode::Mixed}) {
    EXPECT_EQ(rendered(document_of({"scf", "extra"}, mode)),
              "#!job.bdf\n\n\nGeometry\nEnd Geometry\n\n$scf\n$end\n$extra\n$end\n");
  }
}

TEST(EasyLayout, AnEmptyLineSeparatesTheGeometryFromALoneSideStatement) {
  BDFData data;
  data.free_lines = {"%date"};
  EXPECT_EQ(rendered(data), "#!job.bdf\n\n\nGeometry\nEnd Geometry\n\n%date\n");
}

TEST(EasyLayout, ACompassModuleGetsNoGeometry) {
  BDFData data = document_of({"compass"}, InputMode::Mixed);
  data.has_geometry = true;
  EXPECT_EQ(rendered(data), "#!job.bdf\n\n\nGeometry\nEnd Geometry\n\n$compass\n$end\n");
}

TEST(ModuleLayout, WritesNeitherScriptLineNorTokens) {
  BDFData data = document_of({"scf"});
  data.script_name = "run.sh";
  data.easy_tokens = {token("hf", "hf")};
  data.leading_lines = {"# about"};
  EXPECT_EQ(rendered(data), "# about\n$scf\n$end\n");
}

TEST(ModuleLayout, AnEmptyDocumentIsOneLineFeed) {
  EXPECT_EQ(rendered(document_of({})), "\n");
}

TEST(TheBody, FollowsTheStatementOrderAndNotTheModules) {
  BDFData data = document_of({"compass", "scf", "extra"});
  data.free_lines = {"not written: the statements decide"};
  data.statements = {module_statement(2),
                     side_statement(StatementKind::Comment, {"# between"}),
                     module_statement(0),
                     side_statement(StatementKind::Shell, {" %date "}),
                     side_statement(StatementKind::Database, {"&database", "", " x", "&end"}),
                     side_statement(StatementKind::Raw, {"other"}),
                     module_statement(1)};
  EXPECT_EQ(rendered(data),
            "$extra\n$end\n# between\n$compass\n$end\n %date \n&database\n\n x\n&end\nother\n"
            "$scf\n$end\n");
}

TEST(TheBody, SkipsAModuleStatementWithoutAModule) {
  BDFData data = document_of({"scf"});
  data.statements = {module_statement(1), module_statement(Statement::no_module),
                     module_statement(0)};
  EXPECT_EQ(rendered(data), "$scf\n$end\n");
}

TEST(TheBody, WritesAModuleTwiceWhenTwoStatementsNameIt) {
  BDFData data = document_of({"scf"});
  data.statements = {module_statement(0), module_statement(0)};
  EXPECT_EQ(rendered(data), "$scf\n$end\n$scf\n$end\n");
}

TEST(TheBody, IgnoresTheLinesOfAModuleStatement) {
  BDFData data = document_of({"scf"});
  data.statements = {module_statement(0)};
  data.statements[0].lines = {"stray"};
  EXPECT_EQ(rendered(data), "$scf\n$end\n");
}

TEST(TheBody, OfAnEditorWhoseStatementsWereAllErasedFallsBackToModulesAndFreeLines) {
  BDFData data = document_of({"scf", "extra"});
  data.free_lines = {"free"};
  data.statements = {module_statement(7)};
  BDFEditor editor(std::move(data), small_schema());
  editor.rebuild_statement_module_indices_after_erase(7);
  ASSERT_TRUE(editor.data().statements.empty());
  EXPECT_EQ(editor.render(), "$scf\n$end\n$extra\n$end\nfree\n");
}

TEST(TheEndOfTheText, IsExactlyOneLineFeed) {
  const struct {
    Lines free_lines;
    const char* text;
  } rows[] = {
      {{"a", "", ""}, "a\n"},         {{"", "", ""}, "\n"},
      {{"a", "\r", "\r\n\n"}, "a\n"}, {{"a\r"}, "a\n"},
      {{"", "a"}, "\na\n"},           {{"a", " "}, "a\n \n"},
      {{"a", "\t", ""}, "a\n\t\n"},   {{"a\r", "b"}, "a\r\nb\n"},
  };
  for (const auto& row : rows) {
    BDFData data = document_of({});
    data.free_lines = row.free_lines;
    EXPECT_EQ(rendered(data), row.text) << testing::PrintToString(row.free_lines);
  }
}

TEST(TheText, KeepsBytesThatAreNoText) {
  BDFData data = document_of({});
  data.free_lines = {std::string("a\0b\xFF\x80", 5), "\xC3\xA4"};
  EXPECT_EQ(rendered(data), std::string("a\0b\xFF\x80\n\xC3\xA4\n", 9));
}

TEST(TheText, IsTheSameEveryTimeAndLeavesTheDocumentAlone) {
  const BDFEditor editor(document_of({"compass", "scf"}), small_schema());
  const std::string first = editor.render();
  EXPECT_EQ(editor.render(), first);
  EXPECT_EQ(editor.data().modules.size(), 2U);
}

}  // namespace
}  // namespace kelp::input::bdf
