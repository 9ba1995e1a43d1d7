// The children of a nested block and the lines that belong to each.

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>

#include "parser/parsing.hpp"

namespace kelp::input::bdf {
namespace {

std::string entries_of(std::string_view lines, const ParseOptions& options) {
  const BDFData data = document("$m\n" + std::string(lines) + "\n$end\n$other\n", options);
  return data.modules.empty() ? "no module" : outline(data.modules[0].entries);
}

struct Row {
  std::string_view children;  ///< what stands between `nest` and `endnest`
  std::string_view outlined;  ///< outline of what comes of it
};

/// Nobody reads a child otherwise for being validated; a custom policy only changes unknown ones.
void expect_children(std::initializer_list<Row> rows, const ParseOptions& options) {
  for (const Row& row : rows) {
    const std::string lines = "nest\n" + std::string(row.children) + "\nendnest\nflag";
    EXPECT_EQ(entries_of(lines, options),
              "nest NestedBlock {" + std::string(row.outlined) + "}; flag Flag")
        << row.children;
  }
}

void expect_children_whatever_the_policy(std::initializer_list<Row> rows) {
  for (const bool custom : {false, true}) {
    for (const bool validate : {false, true}) {
      expect_children(rows, options(custom, validate));
    }
  }
}

TEST(NestedBlock, EndsAtItsTerminatorInAnyCase) {
  for (const std::string_view line : {"endnest", "ENDNEST", " \tEndNest "}) {
    EXPECT_EQ(entries_of("nest\ncflag\n" + std::string(line) + "\nflag", lenient()),
              "nest NestedBlock {cflag Flag}; flag Flag");
  }
  EXPECT_EQ(entries_of("nest\nendnest x\nendnests\n$end", options(false, true)),
            "nest NestedBlock! {endnest Raw?; endnests Raw?}");
}

TEST(NestedBlock, WithoutItsTerminatorEndsAtABorderOfTheModule) {
  EXPECT_EQ(entries_of("nest\ncflag", lenient()), "nest NestedBlock! {cflag Flag}");
  EXPECT_EQ(entries_of("nest\ncflag\n$odd\nendnest", lenient()), "nest NestedBlock! {cflag Flag}");
  EXPECT_EQ(entries_of("nest", lenient()), "nest NestedBlock!");
  EXPECT_EQ(outline(document("$m\nnest\ncflag").modules.at(0).entries),
            "nest NestedBlock! {cflag Flag}");
}

TEST(NestedBlock, MayBeEmpty) {
  EXPECT_EQ(entries_of("nest\nendnest\nflag", lenient()), "nest NestedBlock; flag Flag");
}

TEST(NestedBlock, WithoutATerminatorInTheSchemaTakesTheRestOfTheModule) {
  EXPECT_EQ(
      entries_of("open\ncflag\n\n  \n# c\nscalar\n1\nendnest", options(false, true)),
      "open NestedBlock! {cflag Flag;  Raw?;  Raw?; # Raw?; scalar Raw?; 1 Raw?; endnest Raw?}");
}

TEST(NestedBlock, WithoutATerminatorKeepsEachBlankLineByItselfUnderACustomPolicyToo) {
  EXPECT_EQ(entries_of("open\n\n x\ncflag\n  \n y", lenient()),
            "open NestedBlock! { Raw?; x Raw?; cflag Flag;  Raw?; y Raw?}");
}

TEST(NestedBlock, DoesNotKnowTheKeywordsOfTheModule) {
  expect_children({{"flag\nscalar\nrows", "flag Raw?; scalar Raw?; rows Raw?"}},
                  options(false, true));
}

TEST(NestedBlock, ACommentIsAChildOfItsOwn) {
  expect_children_whatever_the_policy({{"# c x\n * d\n#!e", "# Raw?; * Raw?; #!e Raw?"}});
  expect_children({{"# c\n  more", "# Raw?; more Raw?"}}, lenient());
}

TEST(NestedBlock, TheModuleReadsOnBehindIt) {
  EXPECT_EQ(entries_of("nest\ncflag\nendnest\nscalar\n 1\nodd\n x", lenient()),
            "nest NestedBlock {cflag Flag}; scalar Scalar < 1>; odd Raw? < x>");
}

TEST(NestedChild, HasItsLineItsPlaceItsCanonicalNameAndItsTerminator) {
  const BDFData data = document("$m\nnest\n CF x # c\nCBlock\nendcblock\nendnest\n$end\n");
  const auto& children = data.modules.at(0).entries.at(0).children;
  ASSERT_EQ(children.size(), 2U);
  EXPECT_EQ(children[0].name, "cflag");
  EXPECT_TRUE(children[0].known);
  EXPECT_EQ(children[0].raw_line, " CF x # c");
  EXPECT_EQ(place(children[0].location), "3:1+9");
  EXPECT_EQ(children[0].terminator, "");
  EXPECT_EQ(children[1].name, "cblock");
  EXPECT_EQ(children[1].terminator, "endcblock");
}

TEST(NestedChild, OfUnknownNameIsNamedByItsFirstWordInLowerCase) {
  const BDFData data = document("$m\nnest\n ODD Line\nendnest\n$end\n", options(false, true));
  const ModuleEntry& child = data.modules.at(0).entries.at(0).children.at(0);
  EXPECT_EQ(child.name, "odd");
  EXPECT_EQ(child.kind, EntryValueKind::Raw);
  EXPECT_FALSE(child.known);
  EXPECT_EQ(child.raw_line, " ODD Line");
  EXPECT_EQ(place(child.location), "3:1+9");
}

TEST(NestedChild, AFlagTakesNoLine) {
  expect_children_whatever_the_policy(
      {{"cflag\ncf\nCFLAG 1", "cflag Flag; cflag Flag; cflag Flag"}});
}

TEST(NestedChild, AScalarOrTupleTakesAtMostOneLine) {
  expect_children_whatever_the_policy(
      {{"cscalar\n 1\ncflag", "cscalar Scalar < 1>; cflag Flag"},
       {"cscalar\ncflag", "cscalar Scalar; cflag Flag"},
       {"cscalar\n# c\ncflag", "cscalar Scalar <# c>; cflag Flag"},
       {"cscalar\n\ncflag", "cscalar Scalar <>; cflag Flag"},
       {"cscalar\nflag\ncflag", "cscalar Scalar <flag>; cflag Flag"},
       {"ctuple\n1 2\ncflag", "ctuple Tuple <1 2>; cflag Flag"}});
}

TEST(NestedChild, MultipleLinesRunUpToTheNextChild) {
  expect_children_whatever_the_policy({{"clines\n1\n\n# c\nodd\nflag\ncflag",
                                        "clines MultiLine <1> <> <# c> <odd> <flag>; cflag Flag"}});
}

TEST(NestedChild, ItsValuesRunOverTheTerminatorOfTheBlock) {
  // The terminator is looked for between children only.
  EXPECT_EQ(entries_of("nest\ncscalar\nendnest\nflag", options(false, true)),
            "nest NestedBlock! {cscalar Scalar <endnest>; flag Raw?}");
  EXPECT_EQ(entries_of("nest\nclines\nendnest\nflag", lenient()),
            "nest NestedBlock! {clines MultiLine <endnest> <flag>}");
  EXPECT_EQ(entries_of("nest\ncscalar\nendnest\nendnest\nflag", lenient()),
            "nest NestedBlock {cscalar Scalar <endnest>}; flag Flag");
}

TEST(NestedChild, CountedRowsAreAsManyAsTheirFirstLineSays) {
  expect_children_whatever_the_policy(
      {{"crows\n2\ncflag\nendnest\ncflag", "crows CountedRows <2> <cflag> <endnest>; cflag Flag"},
       {"crows\n-1\na\ncflag", "crows CountedRows <-1> <a>; cflag Flag"},
       {"crows\ncflag", "crows CountedRows; cflag Flag"},
       {"crows\n0\ncflag", "crows CountedRows <0>; cflag Flag"}});
}

TEST(NestedChild, ATerminatedBlockRunsUpToItsOwnTerminator) {
  expect_children_whatever_the_policy(
      {{"cblock\ncflag\nendnest\n\nENDCBLOCK\ncflag",
        "cblock TerminatedBlock <cflag> <endnest> <>; cflag Flag"}});
  EXPECT_EQ(entries_of("nest\ncblock\n1\nendnest", lenient()),
            "nest NestedBlock! {cblock TerminatedBlock! <1> <endnest>}");
}

TEST(NestedChild, ABlockWithinABlockKeepsItsLinesAsValues) {
  expect_children_whatever_the_policy(
      {{"cnest\ndeep\n1\nendcnest\ncflag", "cnest NestedBlock <deep> <1> <endcnest>; cflag Flag"}});
}

TEST(NestedChild, KnownAsRawTakesFurtherLinesUnderACustomPolicyOnly) {
  expect_children({{"craw\n a\n\ncflag", "craw Raw < a> <>; cflag Flag"},
                   {"craw\n# c\nodd", "craw Raw <# c>; odd Raw?"}},
                  lenient());
  expect_children({{"craw\n a\n\ncflag", "craw Raw; a Raw?;  Raw?; cflag Flag"}},
                  options(false, true));
}

TEST(NestedChild, OfUnknownNameTakesFurtherLinesUnderACustomPolicyOnly) {
  const std::initializer_list<Row> kept = {
      {"odd\n a\n\n# c\n* d\n\tb", "odd Raw? < a> <> <# c> <* d> <\tb>"},
      {"odd\n a\nother\n b", "odd Raw? < a>; other Raw? < b>"},
      {"odd\n cflag\n b", "odd Raw?; cflag Flag; b Raw?"},
      {"odd\n flag", "odd Raw? < flag>"}};
  expect_children(kept, options(true, false));
  expect_children(kept, options(true, true));
  const std::initializer_list<Row> alone = {{"odd\n a\n\n# c", "odd Raw?; a Raw?;  Raw?; # Raw?"}};
  expect_children(alone, options(false, false));
  expect_children(alone, options(false, true));
}

TEST(NestedChild, ABlankLineTakesFurtherLinesUnderACustomPolicyOnly) {
  expect_children({{"\n a\n\n b\ncflag", " Raw? < a> <> < b>; cflag Flag"}}, lenient());
  expect_children({{"\n a\n\ncflag", " Raw?; a Raw?;  Raw?; cflag Flag"}}, options(false, true));
}

TEST(NestedChild, AnIndentedTerminatorBelongsToAnUnknownChildUnderACustomPolicy) {
  EXPECT_EQ(entries_of("nest\nodd\n  endnest\nendnest\nflag", lenient()),
            "nest NestedBlock {odd Raw? <  endnest>}; flag Flag");
}

TEST(NestedChild, ALookUpOfTheCanonicalNameGoesThroughTheAliasesAgain) {
  const InputSchema schema = schema_from(R"(
modules:
  m:
    entries:
      nest:
        kind: nested_block
        terminator: end
        entries:
          a: {kind: flag, aliases: [b]}
          c: {kind: multiline, terminator: x, aliases: [a]}
)");
  const BDFData data = document("$m\nnest\nb\n1\n$end\n", lenient(), schema);
  const ModuleEntry& block = data.modules.at(0).entries.at(0);
  EXPECT_EQ(outline(block.children), "a MultiLine <1>");
  EXPECT_EQ(block.children.at(0).terminator, "x");
}

}  // namespace
}  // namespace kelp::input::bdf
