// The questions asked about single lines. Each looks at the line without the white space around it.

#include "source/lines.hpp"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>

namespace kelp::input::bdf {
namespace {

Lines split_lines(std::string_view text) {
  Lines lines;
  while (!text.empty()) {
    lines.push_back(take_line(text));
  }
  return lines;
}

using namespace std::string_view_literals;

void expect_yes(bool (*classifier)(std::string_view),
                std::initializer_list<std::string_view> lines) {
  for (const std::string_view line : lines) {
    EXPECT_TRUE(classifier(line)) << "\"" << line << "\"";
  }
}

void expect_no(bool (*classifier)(std::string_view),
               std::initializer_list<std::string_view> lines) {
  for (const std::string_view line : lines) {
    EXPECT_FALSE(classifier(line)) << "\"" << line << "\"";
  }
}

TEST(Lines, AModuleHeaderIsADollarAndSomethingOtherThanEnd) {
  expect_yes(is_module_header, {"$scf", " \t$scf \r", "$a", "$$", "$endx", "$end # x", "$ end",
                                "$ scf", "$\x80", "$#", "\v$x\f", "$\0"sv});
  expect_no(is_module_header,
            {"", " ", "$", " $ ", "$end", "$END", "\t$End ", "scf", "x $scf", "%$", "&end"});
}

TEST(Lines, AModuleEndIsExactlyDollarEndInAnyCase) {
  expect_yes(is_module_end, {"$end", "$END", "$eNd", "  $end\t", "\v$end\r"});
  expect_no(is_module_end, {"", "$", "$endx", "$end # x", "$ end", "$$end", "end", "&end", "$en"});
}

TEST(Lines, BothHeaderAndEndAreBordersOfAModule) {
  expect_yes(is_module_border, {"$scf", "$end", " $END ", "$end # x", "$$"});
  expect_no(is_module_border, {"", "$", " $ ", "scf", "&end"});
}

TEST(Lines, AShellLineBeginsWithAPercentSign) {
  expect_yes(is_shell_line, {"%", "%ls", " \t% ls", "%$scf", "\v%"});
  expect_no(is_shell_line, {"", " ", "ls %", "$%", "#%"});
}

TEST(Lines, ADatabaseBeginsWithExactlyItsNameInAnyCase) {
  expect_yes(is_database_start, {"&database", "&DataBase", "\t&database \r"});
  expect_no(is_database_start,
            {"", "&", "&database x", "&databases", "database", "& database", "&end"});
}

TEST(Lines, ADatabaseEndsWithExactlyAmpersandEndInAnyCase) {
  expect_yes(is_database_end, {"&end", "&END", " &End\t"});
  expect_no(is_database_end, {"", "&", "& end", "&end x", "&endx", "end", "$end", "&database"});
}

TEST(Lines, ARemarkBeginsWithAHashOrAStar) {
  expect_yes(is_remark, {"#", "*", " # x", "\t* x", "#!", "**", "\v#"});
  expect_no(is_remark, {"", " ", "x # y", "!", "$#", "%*"});
}

TEST(Lines, AScriptLineBeginsWithHashAndExclamationMark) {
  expect_yes(is_script_line, {"#!", "#!job.sh", "  #! job", "#!!"});
  expect_no(is_script_line, {"", "#", "# !", "!#", "x #!", "*!"});
}

TEST(Lines, AGeometryStartsWithTheWordFollowedByNothingSpaceOrHash) {
  expect_yes(is_geometry_start,
             {"geometry", "GEOMETRY", "  Geometry\t", "geometry angstrom", "geometry\tx",
              "geometry#x", "geometry # x", "geometry\vx", "geometry\fx", "geometry\rx"});
  expect_no(is_geometry_start, {"", "geometr", "geometry2", "geometry=x", "geometry*",
                                "end geometry", "xgeometry", "geometry\0"sv, "geo metry"});
}

TEST(Lines, AGeometryEndsWithTheTwoWordsWhateverFollows) {
  expect_yes(is_geometry_end, {"end geometry", "END GEOMETRY", " \tEnd Geometry ",
                               "end geometry extra", "end geometryx", "end geometry # x"});
  expect_no(is_geometry_end, {"", "end", "end geometr", "endgeometry", "end  geometry",
                              "end\tgeometry", "geometry", "$end geometry", "the end geometry"});
}

TEST(Lines, WhatStartsTheBodyIsAHeaderAShellLineOrADatabase) {
  expect_yes(starts_body, {"$scf", "%ls", "&database", " &DATABASE "});
  expect_no(starts_body, {"", "$end", "$", "&end", "# x", "* x", "geometry", "hf/svp", "#!x"});
}

TEST(Lines, ABlankLineHoldsOnlyWhiteSpace) {
  expect_yes(is_blank, {"", " ", "\t", "\r", "\v", "\f", " \t\r\v\f "});
  expect_no(is_blank, {"x", " x ", "\0"sv, "\x80", "\xa0"});
}

TEST(Lines, OnlyABlankOrATabIndents) {
  expect_yes(is_indented, {" ", "\t", " x", "\tx"});
  expect_no(is_indented, {"", "x", "\vx", "\rx", "\fx", "x "});
}

TEST(Lines, TheFirstWordEndsAtABlankTabReturnOrLineFeedOnly) {
  const struct {
    std::string_view line, word;
  } rows[] = {
      {"", ""},
      {"  \t", ""},
      {"word", "word"},
      {" word two", "word"},
      {"word\ttwo", "word"},
      {"word\rtwo", "word"},
      {"word\ntwo", "word"},
      {"word\vtwo", "word\vtwo"},
      {"word\ftwo", "word\ftwo"},
      {"\vword\v", "word"},
      {"\v \f", ""},
      {"Key=1 x", "Key=1"},
      {"a,b c", "a,b"},
      {"# note", "#"},
      {"#note", "#note"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(first_word(row.line), row.word) << "\"" << row.line << "\"";
  }
}

TEST(Lines, ATextIsCutAtLineFeedsAndOneReturnBeforeEachGoesToo) {
  const struct {
    std::string_view text;
    Lines lines;
  } rows[] = {
      {"", {}},
      {"a", {"a"}},
      {"a\n", {"a"}},
      {"\n", {""}},
      {"a\nb", {"a", "b"}},
      {"a\n\n", {"a", ""}},
      {"\n\na", {"", "", "a"}},
      {"a\r\nb\r\n", {"a", "b"}},
      {"a\r\r\nb", {"a\r", "b"}},
      {"a\rb\rc", {"a\rb\rc"}},
      {"a\r", {"a"}},
      {"\r", {""}},
      {"\r\n", {""}},
      {"a\n\r", {"a", ""}},
      {"a\n\rb", {"a", "\rb"}},
      {" a \n\tb\t", {" a ", "\tb\t"}},
      {"a\0b\n\0"sv, {"a\0b"sv, "\0"sv}},
      {"a\vb\fc\x85z\n", {"a\vb\fc\x85z"}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(split_lines(row.text), row.lines) << "\"" << row.text << "\"";
  }
}

TEST(Lines, APlaceSpansTheWholeLineFromColumnOne) {
  const SourceSpan span = span_of_line(4, "  abc ");
  EXPECT_EQ(span.line, 5U);
  EXPECT_EQ(span.column, 1U);
  EXPECT_EQ(span.length, 6U);
}

// The plain way: what is cut is the line without the white space around it.
std::string_view first_word_of_trimmed(std::string_view line) {
  return up_to_blank(core::text::trim_view(line));
}

TEST(Lines, TheFirstWordIsThatOfTheTrimmedLine) {
  constexpr std::string_view bytes = "a$ \t\v\f\r\n"sv;
  std::string line;
  // All lines of up to five of these bytes.
  for (std::size_t length = 0; length <= 5; ++length) {
    std::size_t count = 1;
    for (std::size_t i = 0; i < length; ++i) {
      count *= bytes.size();
    }
    for (std::size_t code = 0; code < count; ++code) {
      line.clear();
      for (std::size_t i = 0, rest = code; i < length; ++i, rest /= bytes.size()) {
        line += bytes[rest % bytes.size()];
      }
      ASSERT_EQ(first_word(line), first_word_of_trimmed(line)) << code;
    }
  }
}

}  // namespace
}  // namespace kelp::input::bdf
