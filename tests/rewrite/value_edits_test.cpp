// One value is changed, and one value only.

#include "rewrite/edit_table.hpp"

namespace kelp::input::bdf {
namespace {

TEST(ValueEdits, AValueKeepsTheLayoutOfItsLine) {
  expect_edits({
      {"indentation and comment",
       "$scf\n  charge\n\t0   # neutral\n$end\n",
       {"scf.charge=1"},
       "$scf\n  charge\n\t1   # neutral\n$end\n"},
      {"CR LF",
       "$scf\r\ncharge\r\n0\r\n$end\r\n",
       {"scf.charge=1"},
       "$scf\r\ncharge\r\n1\r\n$end\r\n"},
      {"no line end at the end",
       "$scf\ncharge\n0\n$end",
       {"scf.charge=1"},
       "$scf\ncharge\n1\n$end"},
      {"the case of keywords",
       "$SCF\n Charge\n  0\n$END\n",
       {"scf.charge=1"},
       "$SCF\n Charge\n  1\n$END\n"},
      {"mixed line ends",
       "$scf\ncharge\r\n0\r\n$end\n",
       {"scf.charge=-2"},
       "$scf\ncharge\r\n-2\r\n$end\n"},
  });
}

TEST(ValueEdits, WhatIsThereAlreadyChangesNoByte) {
  for (const std::string assignment :
       {"scf.charge=1", "scf.charge=+1", "xuanyuan.rs=0.3", "scf.dft=b3lyp", "scf.dft=B3LYP"}) {
    const std::string before =
        "$xuanyuan\nRSOmega\n 3.0D-1\n$end\n$scf\n charge\n  1 # c\ndft functional\n b3LYP\n"
        "$end\n";
    const Rewrite rewrite = edited(before, edit_of({assignment}));
    EXPECT_EQ(rewrite.text, before) << assignment;
    EXPECT_TRUE(rewrite.edits.empty()) << assignment;
  }
}

TEST(ValueEdits, AValueBehindItsKeywordStaysThere) {
  expect_edits({
      {"one word",
       "$tddft\niroot -4  # c\n$end\n",
       {"tddft.iroot=6"},
       "$tddft\niroot 6  # c\n$end\n"},
      {"a value of two words",
       "$scf\ngrid\n ultra fine\n$end\n",
       {"scf.grid=medium"},
       "$scf\ngrid\n medium\n$end\n"},
      {"a word that is no value",
       "$scf\ndft functional\n b3lyp\n$end\n",
       {"scf.dft=pbe0"},
       "$scf\ndft functional\n pbe0\n$end\n"},
  });
}

TEST(ValueEdits, ACommentWithAStarIsNoValue) {
  const std::string before = "$scf\nrhf\nmaxiter\n* was 50\n 150\n* below\n$end\n";
  expect_edits({
      {"a value below it",
       before,
       {"scf.maxiter=77"},
       "$scf\nrhf\nmaxiter\n* was 50\n 77\n* below\n$end\n"},
      {"the value that is there", before, {"scf.maxiter=150"}, before},
      {"an entry that goes", before, {"-scf.maxiter"}, "$scf\nrhf\n* below\n$end\n"},
      {"of an entry of any number of lines",
       "$compass\nbasis\n* sto-3g\n cc-pvdz\n$end\n",
       {"compass.basis=cc-pvtz"},
       "$compass\nbasis\n* sto-3g\n cc-pvtz\n$end\n"},
      {"of rows",
       "$compass\natommass\n2\n* heavy\n 1 18\n 2 2\n$end\n",
       {"compass.atommass=2\\n1 18\\n2 3"},
       "$compass\natommass\n2\n* heavy\n 1 18\n 2 3\n$end\n"},
      {"a star that is a value",
       "$autofrag\nfragdef\n* * 0 1\n1\n2\n$end\n",
       {"autofrag.fragdef=0 1 0 1\\n1\\n2"},
       "$autofrag\nfragdef\n0 1 0 1\n1\n2\n$end\n"},
  });
}

TEST(ValueEdits, ACountBehindItsKeywordStaysThere) {
  const std::string before = "$compass\natommass 1 # n\n 1 18\n$end\n";
  expect_edits({
      {"a row", before, {"compass.atommass=1\\n1 17"}, "$compass\natommass 1 # n\n 1 17\n$end\n"},
      {"one more",
       before,
       {"compass.atommass=2\\n1 18\\n2 2"},
       "$compass\natommass 2 # n\n 1 18\n 2 2\n$end\n"},
      {"the same", before, {"compass.atommass=1\\n1 18"}, before},
  });
}

TEST(ValueEdits, AnEntryThatIsThereTwiceIsChangedTwice) {
  const Rewrite rewrite = edited("$scf\nrhf\nmaxiter\n 50\ncharge\n 0\nmaxiter\n 60 # c\n$end\n",
                                 edit_of({"scf.maxiter=70"}));
  EXPECT_EQ(rewrite.text, "$scf\nrhf\nmaxiter\n 70\ncharge\n 0\nmaxiter\n 70 # c\n$end\n");
  EXPECT_THAT(rewrite.notes,
              ::testing::ElementsAre("'scf.maxiter' is there 2 times; all of them are changed"));
}

TEST(ValueEdits, OfSeveralAssignmentsOfOneValueTheLastCountsAndThatIsTold) {
  const Rewrite rewrite =
      edited("$scf\nrhf\n$end\n", edit_of({"scf.maxiter=50", "scf.maxiter=60"}));
  EXPECT_EQ(rewrite.text, "$scf\nrhf\nmaxiter\n  60\n$end\n");
  EXPECT_THAT(rewrite.notes,
              ::testing::ElementsAre("'scf.maxiter' is set more than once; the last one counts"));
}

TEST(ValueEdits, ACalculationThatMakesNoSenseNowIsTold) {
  const std::string before =
      "$compass\nbasis\n cc-pvdz\ngeometry\n Ne 0 0 0\nend geometry\n$end\n$xuanyuan\n$end\n"
      "$scf\nrhf\ncharge\n 0\n$end\n";
  EXPECT_THAT(edited(before, edit_of({"scf.charge=1"})).notes,
              ::testing::ElementsAre(::testing::HasSubstr("[electrons.restricted_odd_electrons]")));
  EXPECT_THAT(edited(before, edit_of({"scf.charge=2"})).notes, ::testing::IsEmpty());
}

TEST(ValueEdits, AnUnknownEntryKeepsTheValueThatItHas) {
  for (const std::string line : {"oddity 3\n", "oddity\n3\n", "oddity\n  3\n"}) {
    const std::string before = "$scf\nrhf\n" + line + "$end\n";
    const Rewrite rewrite = edited(before, edit_of({"scf.oddity=3"}));
    EXPECT_EQ(rewrite.text, before);
    EXPECT_EQ(messages_of(rewrite), "") << line;
  }
}

TEST(ValueEdits, RowsAreAddedAndTakenOutAtTheirPlace) {
  expect_edits({
      {"one line",
       "$tddft\nnroot\n 1 2\nitda\n 1\n$end\n",
       {"tddft.nroot=3 2"},
       "$tddft\nnroot\n 3 2\nitda\n 1\n$end\n"},
      {"more lines",
       "$tddft\nnroot\n 1 # x\n 2\n 3\n$end\n",
       {"tddft.nroot=1\\n4\\n5\\n3"},
       "$tddft\nnroot\n 1 # x\n 4\n 5\n 3\n$end\n"},
      {"fewer lines",
       "$tddft\nnroot\n 1 # x\n 2\n 3\n$end\n",
       {"tddft.nroot=1\\n3"},
       "$tddft\nnroot\n 1 # x\n 3\n$end\n"},
  });
}

TEST(ValueEdits, ANewEntryFollowsTheOthersAndIsIndentedLikeThem) {
  expect_edits({
      {"at the margin",
       "$scf\nrhf\nspinmulti\n1\n# end\n$end\n",
       {"scf.charge=1"},
       "$scf\nrhf\nspinmulti\n1\ncharge\n1\n# end\n$end\n"},
      {"with a tab",
       "$scf\n\trhf\n\tspinmulti\n\t\t1\n\n$end\n",
       {"scf.charge=1"},
       "$scf\n\trhf\n\tspinmulti\n\t\t1\n\tcharge\n\t\t1\n\n$end\n"},
      {"in an empty module", "$scf\n$end\n", {"scf.charge=1"}, "$scf\n  charge\n    1\n$end\n"},
      {"without a value", "$scf\nrhf\n$end", {"scf.d3="}, "$scf\nrhf\nd3\n$end"},
      {"in a module without an end", "$scf\nrhf", {"scf.charge=1"}, "$scf\nrhf\ncharge\n  1"},
      {"CR LF", "$scf\r\nrhf\r\n$end\r\n", {"scf.d3="}, "$scf\r\nrhf\r\nd3\r\n$end\r\n"},
  });
}

TEST(ValueEdits, WhatIsTakenOutTakesItsLinesAndTheCommentAboveAlong) {
  expect_edits({
      {"an entry",
       "$scf\nrhf\n# c\ncharge\n1\n\n# d\nd3\n$end\n",
       {"-scf.charge"},
       "$scf\nrhf\n\n# d\nd3\n$end\n"},
      {"a comment that the values above have swallowed",
       "$compass\nbasis\n a\n# c\nnosymm\n$end\n",
       {"-compass.nosymm"},
       "$compass\nbasis\n a\n$end\n"},
      {"the last line", "$scf\nrhf\nd3", {"-scf.d3"}, "$scf\nrhf"},
      {"an entry with a comment for the next one below",
       "$compass\nbasis\n a\n# c\nnosymm\n$end\n",
       {"-compass.basis"},
       "$compass\n# c\nnosymm\n$end\n"},
      {"a module",
       "# top\n$compass\n$end\n\n# c\n$scf\nrhf\n$end\n%ls\n",
       {"-scf"},
       "# top\n$compass\n$end\n\n%ls\n"},
  });
}

TEST(ValueEdits, EntriesOfBlocksAreSetToo) {
  expect_edits({
      {"there",
       "$bdfopt\nneb-block\n nimage # n\n  4\nend neb\n$end\n",
       {"bdfopt.neb-block.nimage=5"},
       "$bdfopt\nneb-block\n nimage # n\n  5\nend neb\n$end\n"},
      {"not there",
       "$bdfopt\nneb-block\n nimage\n  4\nend neb\n$end\n",
       {"bdfopt.neb-block.crude="},
       "$bdfopt\nneb-block\n nimage\n  4\n crude\nend neb\n$end\n"},
      {"no block",
       "$bdfopt\nsolver\n 1\n$end\n",
       {"bdfopt.neb-block.nimage=5"},
       "$bdfopt\nsolver\n 1\nneb-block\n  nimage\n    5\nend neb\n$end\n"},
      {"taken out",
       "$bdfopt\nneb-block\n nimage\n  4\n crude\nend neb\n$end\n",
       {"-bdfopt.neb-block.nimage"},
       "$bdfopt\nneb-block\n crude\nend neb\n$end\n"},
  });
}

TEST(ValueEdits, AModuleWithACommentBehindItsNameIsThatModule) {
  expect_edits({
      {"comment",
       "$scf   # ground state\nrhf\n$end\n",
       {"scf.charge=1"},
       "$scf   # ground state\nrhf\ncharge\n  1\n$end\n"},
      {"byte order mark",
       "\xEF\xBB\xBF$scf\nrhf\n$end\n",
       {"scf.d3="},
       "\xEF\xBB\xBF$scf\nrhf\nd3\n$end\n"},
  });
}

TEST(ValueEdits, TheNthModuleIsItsOwn) {
  expect_edits({
      {"second",
       "$scf\ncharge\n0\n$end\n$scf\ncharge\n0\n$end\n",
       {"scf#2.charge=1"},
       "$scf\ncharge\n0\n$end\n$scf\ncharge\n1\n$end\n"},
      {"a new one",
       "$scf\nrhf\n$end\n\n%ls\n",
       {"scf#2.uhf="},
       "$scf\nrhf\n$end\n\n$scf\nuhf\n$end\n\n%ls\n"},
  });
}

TEST(ModuleOrder, ANewModuleGoesWhereItRuns) {
  const std::string job = "$compass\n$end\n\n$xuanyuan\n$end\n\n$scf\nrhf\n$end\n";
  expect_edits({
      {"behind the others", job, {"tddft.iroot=4"}, job + "\n$tddft\niroot\n  4\n$end\n"},
      {"excited states before their gradients",
       job + "$resp\ngeom\n$end\n",
       {"tddft.iroot=4"},
       job + "\n$tddft\niroot\n  4\n$end\n$resp\ngeom\n$end\n"},
      {"not behind the optimiser",
       job + "\n$bdfopt\nsolver\n 1\n$end\n",
       {"tddft.iroot=4"},
       job + "\n$tddft\niroot\n 4\n$end\n\n$bdfopt\nsolver\n 1\n$end\n"},
      {"in its order",
       "$compass\n$end\n$scf\nrhf\n$end\n",
       {"xuanyuan.rsomega=0.33"},
       "$compass\n$end\n\n$xuanyuan\nrsomega\n  0.33\n$end\n$scf\nrhf\n$end\n"},
      {"among those that the optimiser calls",
       "$compass\n$end\n\n$bdfopt\nsolver\n 1\n$end\n\n$xuanyuan\n$end\n",
       {"scf.rhf="},
       "$compass\n$end\n\n$bdfopt\nsolver\n 1\n$end\n\n$xuanyuan\n$end\n\n$scf\nrhf\n$end\n"},
  });
}

TEST(ModuleOrder, WhatStandsBelowAModuleStaysThere) {
  const std::string job = "$compass\n$end\n\n$scf\nrhf\n$end\n";
  const std::string nmr = "\n$nmr\nigiao\n  1\n$end\n";
  expect_edits({
      {"a command", job + "%cp a b\n# done\n", {"nmr.igiao=1"}, job + "%cp a b\n# done\n" + nmr},
      {"the comment of the next module",
       job + "%ls\n# move\n$grad\n$end\n",
       {"tddft.iroot=1"},
       job + "%ls\n\n$tddft\niroot\n  1\n$end\n# move\n$grad\n$end\n"},
      {"below an empty line", job + "\n%ls\n", {"nmr.igiao=1"}, job + nmr + "\n%ls\n"},
  });
}

TEST(ModuleOrder, AModuleInFrontOfAllIsSetApart) {
  expect_edits({
      {"at the top",
       "$scf\nrhf\n$end\n",
       {"compass.nosymm="},
       "$compass\nnosymm\n$end\n\n$scf\nrhf\n$end\n"},
      {"below a comment",
       "# job\n$scf\nrhf\n$end\n",
       {"compass.nosymm="},
       "# job\n\n$compass\nnosymm\n$end\n\n$scf\nrhf\n$end\n"},
      {"two of them",
       "$scf\nrhf\n$end\n",
       {"xuanyuan.direct=", "compass.nosymm="},
       "$compass\nnosymm\n$end\n\n$xuanyuan\ndirect\n$end\n\n$scf\nrhf\n$end\n"},
  });
}

TEST(ModuleOrder, AModuleThatGoesLeavesOneEmptyLine) {
  const std::string compass = "$compass\n$end\n";
  const std::string scf = "$scf\nrhf\n$end\n";
  expect_edits({
      {"the last", compass + "\n" + scf, {"-scf"}, compass},
      {"the first", compass + "\n" + scf, {"-compass"}, scf},
      {"one between", compass + "\n$tddft\n$end\n\n" + scf, {"-tddft"}, compass + "\n" + scf},
      {"without an empty line", compass + scf + scf, {"-scf#2"}, compass + scf},
      {"without an end of line", compass + "\n$scf\n$end", {"-scf"}, "$compass\n$end"},
  });
}

TEST(ModuleOrder, AnEasyInputGetsItsModulesBehindTheGeometry) {
  const std::string job = "#! j\nhf/sto-3g\nGeometry\nH 0 0 0\nEnd Geometry";
  expect_edits({
      {"bare", job, {"scf.d3="}, job + "\n\n$scf\n  d3\n$end"},
      {"in the wrapper",
       job + "\nModule Setting\nEnd Setting\n",
       {"scf.d3="},
       job + "\nModule Setting\n\n$scf\n  d3\n$end\nEnd Setting\n"},
  });
}

TEST(RefusedEdits, NameWhatIsWrongAndChangeNothing) {
  struct Row {
    std::string before;
    std::string assignment;
    std::string reason;
  };
  const std::string job = "$scf\nrhf\n$end\n";
  for (const Row& row :
       std::vector<Row>{{job, "scf.maxitre=77", "did you mean 'maxiter'?"},
                        {job, "foo.bar=1", "there is no module 'foo'"},
                        {job, "scf#3.charge=1", "there is 1 $scf, so that the next one is scf#2"},
                        {"$sfc\nrhf\n$end\n", "scf.charge=1", "line 1"},
                        {job, "scf=1", "it names a module"},
                        {job, "charge=1", "did you mean 'scf.charge'?"},
                        {job, "iroot=1", "'tddft.iroot'"},
                        {job, "nosuch=1", "there is no module 'nosuch'"},
                        {job, "scf.spinmulti=0", "at least 1"},
                        {job, "geometry=1", "atoms come from a file"},
                        {job, "scf.rhf=1", "it takes no value"},
                        {job, "easy.charge=1", "no header"},
                        {job, "scf.charge=", "it needs a value"},
                        {job, "scf.charge= # c", "it needs a value"},
                        {"3\nwater\nO 0 0 0\n", "easy.charge=1", "is it a BDF input?"},
                        {job, "compass.geometry=1", "--geometry compass.geometry=FILE.xyz"},
                        {"$scf\rrhf\r$end\r", "scf.charge=1", "carriage returns alone"},
                        {"", "scf.charge=1", "empty"}}) {
    const Rewrite rewrite = edited(row.before, edit_of({row.assignment}));
    EXPECT_THAT(rewrite.error, ::testing::HasSubstr(row.reason)) << row.assignment;
    EXPECT_EQ(rewrite.text, row.before);
    EXPECT_TRUE(rewrite.edits.empty());
  }
}

TEST(RefusedEdits, NameTheLineThatSaysMoreThanItsValue) {
  struct Row {
    std::string lines;
    std::string reason;
  };
  for (const Row& row : std::vector<Row>{{"maxiter\n 50 $end\n", "'50 $end'"},
                                         {"maxiter\n 50 ! most\n", "'50 ! most'"},
                                         {"maxiter = 50\n", "'= 50'"},
                                         {"maxiter 50\n 60\n", "line 3"},
                                         {"maxiter\n 50\n 60\n", "'60' on line 5"},
                                         {"maxiter=50\n", "'maxiter=50' on line 3"},
                                         {"maxiter: 50\n", "'maxiter: 50' on line 3"},
                                         {"maxiter\xE3\x80\x80\n 50\n", "on line 3"},
                                         {"\xC2\xA0maxiter\n 50\n", "on line 3"}}) {
    const std::string before = "$scf\nrhf\n" + row.lines + "$end\n";
    Edit edit = edit_of({"scf.maxiter=77"});
    const Rewrite rewrite = edited(before, edit);
    EXPECT_THAT(rewrite.error, ::testing::HasSubstr(row.reason)) << row.lines;
    EXPECT_EQ(rewrite.text, before);
    edit.allow_unknown_names = true;
    EXPECT_THAT(edited(before, edit).text, ::testing::HasSubstr("77")) << row.lines;
  }
}

TEST(RefusedEdits, NameTheLineOfAValueThatIsNotReadAsOne) {
  const auto error = [](const std::string& lines) {
    return edited("$scf\nrhf\n" + lines + "$end\n", edit_of({"scf.oddity=4"})).error;
  };
  EXPECT_THAT(error("oddity 3\n"), ::testing::HasSubstr("line 3; change it there"));
  EXPECT_THAT(error("  oddity\n    3\n"), ::testing::HasSubstr("line 4 is not read with it"));
  EXPECT_THAT(error("oddity\n3\n"), ::testing::HasSubstr("line 4 is not read with it"));
}

TEST(RefusedEdits, UnknownNamesAreWrittenWhenAllowed) {
  Edit edit = edit_of({"scf.oddity=77"});
  edit.allow_unknown_names = true;
  EXPECT_EQ(edited("$scf\nrhf\n$end\n", edit).text, "$scf\nrhf\noddity\n    77\n$end\n");
}

TEST(RefusedEdits, TellWhatAValueWouldBeReadAs) {
  const auto message = [](const std::string& assignment) {
    return messages_of(edited("$scf\nrhf\n$end\n", edit_of({assignment})));
  };
  EXPECT_THAT(message("scf.charge=uhf"),
              ::testing::HasSubstr("'scf.charge' would be read without 'uhf'"));
  EXPECT_THAT(message("compass.basis=$end"),
              ::testing::HasSubstr("'compass.basis' would be read without '$end'"));
}

TEST(Edits, LeaveAnInputThatIsMovedInEmpty) {
  ParsedInput input("$scf\nrhf\n$end\n", shipped_schema());
  const ParsedInput copy = input;
  const Rewrite rewrite = edit_input(std::move(input), edit_of({"scf.charge=1"}));
  EXPECT_EQ(rewrite.text, edit_input(copy, edit_of({"scf.charge=1"})).text);
  // NOLINTNEXTLINE(bugprone-use-after-move): as promised.
  EXPECT_TRUE(input.is_empty());
  EXPECT_FALSE(copy.is_empty());
}

}  // namespace
}  // namespace kelp::input::bdf
