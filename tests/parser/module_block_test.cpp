// A module from its header to its end, and the keyword lines in between.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "parser/parsing.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::IsEmpty;

TEST(ModuleBlock, HasACanonicalNameAndItsFirstAndLastLineVerbatim) {
  const BDFData data = document("  $EM \nflag\n\t$End \n");
  ASSERT_EQ(data.modules.size(), 1U);
  const Module& module = data.modules[0];
  EXPECT_EQ(module.name, "m");
  EXPECT_TRUE(module.known);
  EXPECT_TRUE(module.terminated);
  EXPECT_EQ(module.header_line, "  $EM ");
  EXPECT_EQ(module.end_line, "\t$End ");
  EXPECT_EQ(place(module.location), "1:1+6");
  EXPECT_EQ(outline(module.entries), "flag Flag");
  EXPECT_THAT(module.trailing_lines, IsEmpty());
}

TEST(ModuleBlock, IsNamedByItsWholeHeader) {
  const struct {
    std::string_view header, name;
    bool known;
  } rows[] = {
      {"$m", "m", true},        {"$M", "m", true},          {"$em", "m", true},
      {"$ m", "m", true},       {"$$m", "m", true},         {"$$$m", "$m", true},
      {"$odd", "odd", false},   {"$m # x", "m # x", false}, {"$end # x", "end # x", false},
      {"$endx", "endx", false}, {"$ end", "end", false},    {"$a b", "a b", false},
      {"$$", "", false},
  };
  for (const auto& row : rows) {
    const BDFData data = document(std::string(row.header) + "\n$end\n");
    ASSERT_EQ(data.modules.size(), 1U) << row.header;
    EXPECT_EQ(data.modules[0].name, row.name) << row.header;
    EXPECT_EQ(data.modules[0].known, row.known) << row.header;
  }
}

TEST(ModuleBlock, FollowedByTheNextHeaderHasNoEndLine) {
  const BDFData data = document("$m\nflag\n$other\n$end\n");
  ASSERT_EQ(data.modules.size(), 2U);
  EXPECT_FALSE(data.modules[0].terminated);
  EXPECT_EQ(data.modules[0].end_line, "");
  EXPECT_EQ(outline(data.modules[0].entries), "flag Flag");
  EXPECT_EQ(data.modules[1].name, "other");
  EXPECT_TRUE(data.modules[1].terminated);
  EXPECT_EQ(outline(data.statements), "Module 0; Module 1");
}

TEST(ModuleBlock, CutOffByTheEndOfTheInputIsNotTerminated) {
  for (const std::string_view text : {"$m", "$m\n", "$m\nflag", "$m\nscalar\n1\n"}) {
    const BDFData data = document(text);
    EXPECT_FALSE(data.modules.at(0).terminated) << text;
    EXPECT_EQ(data.modules[0].end_line, "") << text;
  }
}

TEST(ModuleBlock, EndsAtEndInAnyCaseAndAtNothingLonger) {
  for (const std::string_view end : {"$end", "$END", "$End", "  $eNd\t"}) {
    const BDFData data = document("$m\nflag\n" + std::string(end) + "\nx\n");
    EXPECT_TRUE(data.modules.at(0).terminated) << end;
    EXPECT_EQ(data.modules[0].end_line, end);
    EXPECT_EQ(outline(data.statements), "Module 0; Raw <x>") << end;
  }
  for (const std::string_view header : {"$endx", "$end # x", "$ end"}) {
    const BDFData data = document("$m\nflag\n" + std::string(header) + "\n$end\n");
    ASSERT_EQ(data.modules.size(), 2U) << header;
    EXPECT_FALSE(data.modules[0].terminated) << header;
    EXPECT_EQ(data.modules[1].header_line, header);
  }
}

TEST(ModuleBlock, ADollarAloneIsNoBorder) {
  EXPECT_EQ(outline(document("$m\n$\n$end\n").modules.at(0).entries), "$ Raw?");
}

TEST(ModuleBlock, ShellAndDatabaseLinesInsideAreItsEntries) {
  const BDFData data = document("$m\n%ls\n&database\n&end\ngeometry\n$end\n");
  EXPECT_EQ(outline(data.modules.at(0).entries),
            "%ls Raw?; &database Raw?; &end Raw?; geometry Raw?");
  EXPECT_EQ(outline(data.statements), "Module 0");
}

TEST(ModuleBlock, ACommentIsARawEntryNamedByItsFirstWord) {
  const BDFData data = document("$m\n# Note this\n\t*Star\n#!x\nflag\n$end\n");
  EXPECT_EQ(outline(data.modules.at(0).entries), "# Raw?; *star Raw?; #!x Raw?; flag Flag");
  const ModuleEntry& comment = data.modules[0].entries[0];
  EXPECT_EQ(comment.raw_line, "# Note this");
  EXPECT_TRUE(comment.terminated);
  EXPECT_EQ(place(comment.location), "2:1+11");
}

TEST(ModuleBlock, ACommentGathersNothing) {
  EXPECT_EQ(outline(document("$m\n# c\n indented\n$end\n").modules.at(0).entries),
            "# Raw?; indented Raw?");
}

TEST(ModuleBlock, ACommentIsNoKeywordEvenWhenTheSchemaListsIt) {
  const InputSchema schema = schema_from("modules: {m: {entries: {'#x': {}, '*y': {}}}}");
  const BDFData data = document("$m\n#x\n1\n*y\n$end\n", lenient(), schema);
  EXPECT_EQ(outline(data.modules.at(0).entries), "#x Raw?; 1 Raw?; *y Raw?");
}

TEST(KeywordLine, IsKeptVerbatimWithItsPlaceAndCanonicalName) {
  const BDFData data = document("$m\n  F  with tail # c \nSCALAR = 3\n 4\n$end\n");
  ASSERT_EQ(outline(data.modules.at(0).entries), "flag Flag; scalar Scalar < 4>");
  const auto& entries = data.modules[0].entries;
  EXPECT_EQ(entries[0].raw_line, "  F  with tail # c ");
  EXPECT_EQ(place(entries[0].location), "2:1+19");
  EXPECT_EQ(entries[1].raw_line, "SCALAR = 3");
}

TEST(KeywordLine, HasTheTerminatorOfTheSchemaInLowerCase) {
  const BDFData data = document("$m\nblock\nendblock\nnest\nendnest\nflag\nodd\n$end\n");
  const auto& entries = data.modules.at(0).entries;
  ASSERT_EQ(entries.size(), 4U);
  EXPECT_EQ(entries[0].terminator, "endblock");
  EXPECT_EQ(entries[1].terminator, "endnest");
  EXPECT_EQ(entries[2].terminator, "");
  EXPECT_EQ(entries[3].terminator, "");
}

TEST(KeywordLine, IsToldByItsFirstWordOnly) {
  const struct {
    std::string_view line, entry;
  } rows[] = {
      {"flag", "flag Flag"},     {"\tFLAG\tx", "flag Flag"},  {"flag=1", "flag=1 Raw?"},
      {"flag# c", "flag# Raw?"}, {"flag,1", "flag,1 Raw?"},   {"flags", "flags Raw?"},
      {"x flag", "x Raw?"},      {"flag\vx", "flag\vx Raw?"}, {"\vflag\f", "flag Flag"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(outline(document("$m\n" + std::string(row.line) + "\n$end\n").modules[0].entries),
              row.entry)
        << row.line;
  }
}

TEST(KeywordLine, OfAnUnknownModuleIsNeverKnown) {
  EXPECT_EQ(outline(document("$odd\nflag\n 1\n$end\n").modules.at(0).entries), "flag Raw? < 1>");
}

TEST(KeywordLine, ALookUpOfTheCanonicalNameGoesThroughTheAliasesAgain) {
  // "b" is an alias of "a", whose own name "c" then takes away: the entry is called "a" and laid
  // out as "c".
  const InputSchema schema = schema_from(R"(
modules:
  m: {entries: {a: {kind: flag, aliases: [b]}, c: {kind: multiline, aliases: [a]}}}
)");
  EXPECT_EQ(outline(document("$m\nb\n1\n2\n$end\n", lenient(), schema).modules.at(0).entries),
            "a MultiLine <1> <2>");
}

TEST(KeywordLine, AModuleAliasThatWasTakenOverLeadsToItsNewOwner) {
  const InputSchema schema = schema_from(R"(
modules:
  a: {aliases: [b], entries: {x: {kind: flag}}}
  c: {aliases: [a], entries: {y: {kind: flag}}}
)");
  const BDFData data = document("$b\nx\ny\n$end\n", lenient(), schema);
  EXPECT_EQ(data.modules.at(0).name, "a");
  EXPECT_TRUE(data.modules[0].known);
  EXPECT_EQ(outline(data.modules[0].entries), "x Raw?; y Flag");
}

TEST(KeywordLine, IsKnownEvenWhereItsCanonicalNameLeadsNowhere) {
  // One "$" goes at each look-up, so a name declared with two is found by its alias, and then not
  // by itself.
  const InputSchema schema = schema_from(R"(
modules:
  m:
    entries:
      $$x: {kind: multiline, aliases: [kx]}
      blk:
        kind: nested_block
        terminator: end
        entries: {$$y: {kind: multiline, aliases: [ky]}}
)");
  const BDFData data = document("$m\nkx\nblk\nky\nend\n$end\n", lenient(), schema);
  EXPECT_EQ(outline(data.modules.at(0).entries), "$x Raw; blk NestedBlock {$y Raw}");
}

}  // namespace
}  // namespace kelp::input::bdf
