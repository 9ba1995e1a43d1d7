// Which lines belong to a keyword, for each kind of value.

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "parser/parsing.hpp"

namespace kelp::input::bdf {
namespace {

struct Row {
  std::string_view lines;    ///< what stands between header and `$end`
  std::string_view entries;  ///< outline of what comes of it
};

void expect_entries(std::initializer_list<Row> rows) {
  for (const Row& row : rows) {
    const BDFData data = document("$m\n" + std::string(row.lines) + "\n$end\n$other\n");
    ASSERT_FALSE(data.modules.empty());
    EXPECT_EQ(outline(data.modules[0].entries), row.entries) << row.lines;
  }
}

TEST(Gather, AFlagTakesNoLine) {
  expect_entries({{"flag\n 1\n", "flag Flag; 1 Raw?;  Raw?"}, {"flag 1", "flag Flag"}});
}

TEST(Gather, AScalarOrTupleTakesAtMostOneLine) {
  for (const auto& [keyword, outlined] :
       {std::pair("scalar", "scalar Scalar"), std::pair("tuple", "tuple Tuple")}) {
    const std::string head = keyword;
    const std::string entry = outlined;
    const struct {
      std::string_view rest, entries;
    } rows[] = {
        {"\n 1 2\n 3", " < 1 2>; 3 Raw?"},
        {"\n", " <>"},
        {"\n\n1", " <>; 1 Raw?"},
        {"", ""},
        {"\nflag", "; flag Flag"},
        {"\n  FLAG x", "; flag Flag"},
        {"\nf", "; flag Flag"},
        {"\n$odd\n1", ""},
        {"\n# c\n1", " <# c>; 1 Raw?"},
        {"\n* c", " <* c>"},
        {"\nodd\n 1", " <odd>; 1 Raw?"},
    };
    for (const auto& row : rows) {
      const BDFData data = document("$m\n" + head + std::string(row.rest) + "\n$end\n");
      EXPECT_EQ(outline(data.modules.at(0).entries), entry + std::string(row.entries)) << row.rest;
    }
  }
}

TEST(Gather, AScalarKeepsACommentLineForItsValue) {
  const BDFData data = document("$m\nscalar\n# the value\n2\n$end\n", options(false, false));
  EXPECT_EQ(outline(data.modules.at(0).entries), "scalar Scalar <# the value>");
}

TEST(Gather, MultipleLinesRunUpToTheNextKeyword) {
  expect_entries(
      {{"lines\n 1\n\n# c\nodd\n\tx\nflag", "lines MultiLine < 1> <> <# c> <odd> <\tx>; flag Flag"},
       {"lines\nflag", "lines MultiLine; flag Flag"},
       {"lines\n f 1", "lines MultiLine; flag Flag"},
       {"lines\n1 flag\n#flag", "lines MultiLine <1 flag> <#flag>"},
       {"lines\n1\n $odd # x", "lines MultiLine <1>"},
       {"lines\n%ls\n&database", "lines MultiLine <%ls> <&database>"}});
}

TEST(Gather, CountedRowsAreAsManyAsTheirFirstLineSays) {
  expect_entries({{"rows\n2\na\nb\nc", "rows CountedRows <2> <a> <b>; c Raw?"},
                  {"rows\n \t2 \na\nb\nflag", "rows CountedRows < \t2 > <a> <b>; flag Flag"},
                  {"rows\n+1\na\nflag", "rows CountedRows <+1> <a>; flag Flag"},
                  {"rows\n0\nflag", "rows CountedRows <0>; flag Flag"},
                  {"rows\n-0\nodd", "rows CountedRows <-0>; odd Raw?"},
                  {"rows\n007\n1\n2\n3\n4\n5\n6\n7\n8",
                   "rows CountedRows <007> <1> <2> <3> <4> <5> <6> <7>; 8 Raw?"}});
}

TEST(Gather, CountedRowsMayLookLikeKeywordsCommentsOrBlanks) {
  expect_entries({{"rows\n4\nflag\n# c\n\nscalar\n1",
                   "rows CountedRows <4> <flag> <# c> <> <scalar>; 1 Raw?"}});
}

TEST(Gather, CountedRowsStopEarlyOnlyAtABorderOfTheModule) {
  expect_entries(
      {{"rows\n3\na\n  $END ", "rows CountedRows <3> <a>"},
       {"rows\n3\na\n$odd\nb", "rows CountedRows <3> <a>"},
       {"rows\n9223372036854775807\nflag", "rows CountedRows <9223372036854775807> <flag>"}});
  EXPECT_EQ(outline(document("$m\nrows\n3\nflag").modules.at(0).entries),
            "rows CountedRows <3> <flag>");
}

TEST(Gather, ACountLineThatIsNoCountMakesTheRowsRunUpToTheNextKeyword) {
  for (const std::string_view count : {"-1", "2 # rows", "2.0", "two", "2,", "1 2", "0x2", "", "  ",
                                       "# 2", "9223372036854775808"}) {
    const std::string line(count);
    expect_entries({{"rows\n" + line + "\na\nb\n\nflag",
                     "rows CountedRows <" + line + "> <a> <b> <>; flag Flag"}});
  }
}

TEST(Gather, AKeywordInPlaceOfTheCountLineLeavesTheRowsEmpty) {
  expect_entries({{"rows\nflag\n1", "rows CountedRows; flag Flag; 1 Raw?"},
                  {"rows\n$odd", "rows CountedRows"}});
  EXPECT_EQ(outline(document("$m\nrows").modules.at(0).entries), "rows CountedRows");
}

TEST(Gather, ATerminatedBlockTakesEveryLineUpToItsTerminator) {
  expect_entries({{"block\nflag\n\n# c\n*\n x\nendblock\nflag",
                   "block TerminatedBlock <flag> <> <# c> <*> < x>; flag Flag"},
                  {"block\n\t ENDBlock \n1", "block TerminatedBlock; 1 Raw?"},
                  {"block\nendblock x\nendblocks\nend block\nendblock",
                   "block TerminatedBlock <endblock x> <endblocks> <end block>"}});
}

TEST(Gather, ATerminatedBlockWithoutItsTerminatorKeepsTheRestOfTheModule) {
  expect_entries({{"block\nflag\n1", "block TerminatedBlock! <flag> <1>"},
                  {"block", "block TerminatedBlock!"},
                  {"block\n1\n$odd\nendblock", "block TerminatedBlock! <1>"}});
  EXPECT_EQ(outline(document("$m\nblock\nx\n").modules.at(0).entries),
            "block TerminatedBlock! <x>");
}

TEST(Gather, ATerminatedBlockWithAnEmptyTerminatorEndsAtABlankLine) {
  expect_entries({{"upto_blank\n1\n#\n\t\nflag", "upto_blank TerminatedBlock <1> <#>; flag Flag"},
                  {"upto_blank\n\n1", "upto_blank TerminatedBlock; 1 Raw?"}});
}

TEST(Gather, ATerminatorThatReadsLikeTheModulesEndComesFirst) {
  // A schema drops one "$" of a name, so "$$end" closes the block with a line "$end".
  const BDFData data = document("$m\ndollar\n1\n$End\nflag\n$end\n");
  EXPECT_EQ(outline(data.modules.at(0).entries), "dollar TerminatedBlock <1>; flag Flag");
  EXPECT_TRUE(data.modules[0].terminated);
}

TEST(Gather, AnEntryKnownAsRawTakesWhatAnUnknownKeywordTakes) {
  expect_entries({{"raw\n a\n\n# c\n* d\nodd", "raw Raw < a> <> <# c> <* d>; odd Raw?"},
                  {"raw\n a\n flag", "raw Raw < a>; flag Flag"},
                  {"raw\n$odd", "raw Raw"}});
}

TEST(Gather, ValuesAreKeptAsTheyStand) {
  const BDFData data = document("$m\nlines\n \t a , b \t\n\v\n$x\n");
  EXPECT_EQ(outline(data.modules.at(0).entries), "lines MultiLine < \t a , b \t> <\v>");
}

}  // namespace
}  // namespace kelp::input::bdf
