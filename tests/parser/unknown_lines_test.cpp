// What becomes of a line inside a module that names nothing the schema knows.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "parser/parsing.hpp"

namespace kelp::input::bdf {
namespace {

// In each text the odd line is followed by an indented one, which only a keyword takes for itself.
std::string entries_after(std::string_view odd_line, const ParseOptions& options) {
  const std::string text = "$m\nflag\n" + std::string(odd_line) + "\n  more\nflag\n$end\n";
  return outline(document(text, options).modules.at(0).entries);
}

TEST(UnknownLine, AtTheMarginIsAKeywordWhenValidatingOrUnderACustomPolicy) {
  for (const ParseOptions& kept :
       {options(false, true), options(true, false), options(true, true)}) {
    EXPECT_EQ(entries_after("Odd Line", kept), "flag Flag; odd Raw? <  more>; flag Flag");
    EXPECT_EQ(entries_after("\vOdd", kept), "flag Flag; odd Raw? <  more>; flag Flag");
    EXPECT_EQ(entries_after("\v", kept), "flag Flag;  Raw? <  more>; flag Flag");
  }
}

TEST(UnknownLine, IndentedOrEmptyIsARawEntryWhenValidatingOrUnderACustomPolicy) {
  for (const ParseOptions& kept :
       {options(false, true), options(true, false), options(true, true)}) {
    EXPECT_EQ(entries_after(" Odd Line", kept), "flag Flag; odd Raw?; more Raw?; flag Flag");
    EXPECT_EQ(entries_after("\tOdd", kept), "flag Flag; odd Raw?; more Raw?; flag Flag");
    EXPECT_EQ(entries_after(" ", kept), "flag Flag;  Raw?; more Raw?; flag Flag");
    EXPECT_EQ(entries_after("", kept), "flag Flag;  Raw?; more Raw?; flag Flag");
  }
}

TEST(UnknownLine, IsDroppedWithNeitherValidationNorCustomPolicy) {
  for (const std::string_view line : {"Odd Line", " Odd", "\tOdd", "", " ", "%ls", "&database"}) {
    EXPECT_EQ(entries_after(line, options(false, false)), "flag Flag; flag Flag") << line;
  }
}

TEST(UnknownLine, ThatIsACommentIsKeptEvenWhereOthersAreDropped) {
  EXPECT_EQ(entries_after("# c", options(false, false)), "flag Flag; # Raw?; flag Flag");
}

TEST(UnknownLine, IsDroppedOnlyInsideModules) {
  const BDFData data = document("$odd\nx\n 1\n$end\nx\n\n# c\n", options(false, false));
  EXPECT_EQ(outline(data.modules.at(0).entries), "");
  EXPECT_EQ(outline(data.statements), "Module 0; Raw <x>; Raw <>; Comment <# c>");
}

TEST(UnknownLine, IsNotDroppedFromTheValuesOfAKnownEntry) {
  EXPECT_EQ(
      outline(
          document("$m\nlines\nodd\n\n more\n$end\n", options(false, false)).modules.at(0).entries),
      "lines MultiLine <odd> <> < more>");
}

TEST(UnknownLine, IsNotDroppedFromANestedBlock) {
  EXPECT_EQ(outline(document("$m\nnest\nodd\n more\n\nendnest\n$end\n", options(false, false))
                        .modules.at(0)
                        .entries),
            "nest NestedBlock {odd Raw?; more Raw?;  Raw?}");
}

TEST(UnknownLine, NeitherThePolicyNumberNorTheReportSwitchMatters) {
  for (const std::int32_t policy : {-1, 0, 1, 2, 3}) {
    for (const bool report : {false, true}) {
      ParseOptions dropping = options(false, false);
      dropping.unknown_policy = policy;
      dropping.report_unknown = report;
      EXPECT_EQ(entries_after("odd", dropping), "flag Flag; flag Flag");
      ParseOptions keeping = options(true, true);
      keeping.unknown_policy = policy;
      keeping.report_unknown = report;
      EXPECT_EQ(entries_after("odd", keeping), "flag Flag; odd Raw? <  more>; flag Flag");
    }
  }
}

TEST(UnknownKeyword, KeepsItsLineItsPlaceAndItsFirstWordInLowerCase) {
  const BDFData data = document("$m\nODD=1 Two\n$end\n");
  const ModuleEntry& entry = data.modules.at(0).entries.at(0);
  EXPECT_EQ(entry.name, "odd=1");
  EXPECT_EQ(entry.kind, EntryValueKind::Raw);
  EXPECT_FALSE(entry.known);
  EXPECT_TRUE(entry.terminated);
  EXPECT_EQ(entry.terminator, "");
  EXPECT_EQ(entry.raw_line, "ODD=1 Two");
  EXPECT_EQ(place(entry.location), "2:1+9");
}

TEST(UnknownKeyword, TakesIndentedEmptyAndCommentLinesUpToAnythingElse) {
  const struct {
    std::string_view lines, entries;
  } rows[] = {
      {" a\n\tb", "odd Raw? < a> <\tb>"},
      {"\n a", "odd Raw? <> < a>"},
      {"# c\n* d\n a", "odd Raw? <# c> <* d> < a>"},
      {" a\nnext\n b", "odd Raw? < a>; next Raw? < b>"},
      {" a\nflag", "odd Raw? < a>; flag Flag"},
      {"  flag", "odd Raw?; flag Flag"},
      {"  $other", "odd Raw?"},
      {"\v", "odd Raw?;  Raw?"},
      {"\vx", "odd Raw?; x Raw?"},
      {"\v# c", "odd Raw? <\v# c>"},
      {"   ", "odd Raw? <   >"},
      {"5", "odd Raw?; 5 Raw?"},
  };
  for (const auto& row : rows) {
    const BDFData data = document("$m\nodd\n" + std::string(row.lines) + "\n$end\n");
    EXPECT_EQ(outline(data.modules.at(0).entries), row.entries) << row.lines;
  }
}

}  // namespace
}  // namespace kelp::input::bdf
