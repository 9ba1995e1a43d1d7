// The layout of an input.

#include "rewrite/edit_table.hpp"

namespace kelp::input::bdf {
namespace {

std::string laid_out(const std::string& before) {
  const Rewrite rewrite = format_input(ParsedInput(before, shipped_schema()));
  EXPECT_EQ(messages_of(rewrite), "") << before;
  EXPECT_EQ(apply_edits(before, rewrite.edits), rewrite.text);
  const Rewrite again = format_input(ParsedInput(rewrite.text, shipped_schema()));
  EXPECT_EQ(again.text, rewrite.text) << before;
  return rewrite.text;
}

TEST(Format, KeywordsStandAtTwoBlanksAndValuesAtFour) {
  EXPECT_EQ(laid_out("$SCF  # first\nRHF\n\tCharge # c\n0   \n  $END\n"),
            "$scf  # first\n  rhf\n  charge # c\n    0\n$end\n");
}

TEST(Format, AValueBehindItsKeywordGetsALineOfItsOwn) {
  EXPECT_EQ(laid_out("$tddft\niroot -4  # c\n$end\n"), "$tddft\n  iroot\n    -4  # c\n$end\n");
  EXPECT_EQ(laid_out("$tddft\r\niroot 4\r\n$end"), "$tddft\r\n  iroot\r\n    4\r\n$end");
}

TEST(Format, WhatIsNoValueStaysBehindItsKeyword) {
  EXPECT_EQ(laid_out("$scf\ndft functional\nb3LYP\n$end\n"),
            "$scf\n  dft functional\n    b3LYP\n$end\n");
}

TEST(Format, CommentsAndUnknownLinesStayAsTheyAre) {
  const std::string text =
      "# top\n$scf\n# c\n* d\noddity  1\n   x\n$end\n% cp  a b  \n&database\n fragment 1\n&end\n";
  EXPECT_EQ(laid_out(text), text);
}

TEST(Format, OneBlankLineSeparatesModules) {
  EXPECT_EQ(laid_out("\n\n$compass\n\nnosymm\n\n$end\n$scf\nrhf\n$end\n\n\n\n$tddft\n$end\n\n\n"),
            "$compass\n  nosymm\n$end\n\n$scf\n  rhf\n$end\n\n$tddft\n$end\n");
}

TEST(Format, TheHeaderKeepsItsLinesAndUnknownNamesTheirCase) {
  EXPECT_EQ(laid_out("#!  Job.SH\nB3LYP/My-Basis  OPT # C\n  Charge = 1\n\nGEOMETRY # g\nO 0 0 "
                     "0.10\nend geometry\n"),
            "#!  Job.SH\nb3lyp/My-Basis  opt # C\ncharge = 1\n\nGeometry # g\n  O 0 0 0.10\nEnd "
            "Geometry\n");
}

TEST(Format, AGeometryKeepsItsOrderItsBlankLinesAndItsDigits) {
  EXPECT_EQ(laid_out("#! w\nhf/sto-3g\nGeometry\nO\nH 1 R1 # r\nH 1 0.90 2 109.0\n\nR1 0.9\nEnd "
                     "Geometry"),
            "#! w\nhf/sto-3g\nGeometry\n  O\n  H 1 R1 # r\n  H 1 0.90 2 109.0\n\n  R1 0.9\nEnd "
            "Geometry");
}

TEST(Format, NothingIsAddedThatIsMissing) {
  EXPECT_EQ(laid_out("$scf\nrhf"), "$scf\n  rhf");
  EXPECT_EQ(laid_out("$bdfopt\nNEB-block\ncrude\n"), "$bdfopt\n  neb-block\n    crude\n");
}

TEST(Format, AnEmptyInputIsRefused) {
  EXPECT_THAT(format_input(ParsedInput("# c\n\n", shipped_schema())).error,
              ::testing::HasSubstr("nothing to lay out"));
}

}  // namespace
}  // namespace kelp::input::bdf
