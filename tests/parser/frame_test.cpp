// The frame: empty inputs, the preamble, the script line, the mode, and what stands between
// modules.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "parser/parsing.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(EmptyInput, ATextWithoutASignificantLineFails) {
  for (const std::string_view text : {"", "\n", "\n\n   \n", " \t\r\n\v\f", "\r\n\r\n",
                                      "# only a comment", "* star\n\n# hash\n"}) {
    for (const bool validate : {false, true}) {
      const ParseResult result = parse(text, options(false, validate));
      EXPECT_FALSE(result.ok) << text;
      EXPECT_EQ(result.error, "BDF input is empty") << text;
      EXPECT_EQ(result.data.mode, InputMode::Easy) << text;
      EXPECT_THAT(result.data.statements, IsEmpty()) << text;
      EXPECT_THAT(result.data.warnings, IsEmpty()) << text;
    }
  }
}

TEST(EmptyInput, ItsCommentsAreKeptWithTheDefaultDocument) {
  const BDFData data = document("# only a comment");
  EXPECT_THAT(data.leading_lines, ElementsAre("# only a comment"));
  EXPECT_EQ(data.script_name, "job.bdf");
  EXPECT_FALSE(data.has_geometry);
  EXPECT_TRUE(data.geometry_terminated);
}

TEST(Preamble, CommentsAreKeptVerbatimAndBlankLinesSkipped) {
  const BDFData data = document("\n  # one \n\n\t* two\n \n$m\n$end\n");
  EXPECT_THAT(data.leading_lines, ElementsAre("  # one ", "\t* two"));
  EXPECT_EQ(data.mode, InputMode::Module);
  EXPECT_EQ(outline(data.statements), "Module 0");
}

TEST(Preamble, EndsAtTheFirstSignificantLine) {
  const BDFData data = document("# before\n$m\n$end\n# after\n");
  EXPECT_THAT(data.leading_lines, ElementsAre("# before"));
  EXPECT_EQ(outline(data.statements), "Module 0; Comment <# after>");
}

TEST(ScriptLine, ItsTrimmedRestIsTheScriptName) {
  const struct {
    std::string_view line, name;
  } rows[] = {{"#!job.sh", "job.sh"}, {"  #! \t my job.sh \t", "my job.sh"}, {"#!", "job.bdf"},
              {"#!   \t", "job.bdf"}, {"#!/bin/sh -e", "/bin/sh -e"},        {"#! #! x", "#! x"},
              {"#!#!x", "#!x"}};
  for (const auto& row : rows) {
    EXPECT_EQ(document(std::string(row.line) + "\nhf/svp\n").script_name, row.name) << row.line;
  }
}

TEST(ScriptLine, AloneMakesAnEasyInputWithoutAnything) {
  const ParseResult result = parse("#!run.sh");
  EXPECT_TRUE(result.ok);
  EXPECT_EQ(result.data.mode, InputMode::Easy);
  EXPECT_EQ(result.data.script_name, "run.sh");
  EXPECT_THAT(result.data.leading_lines, IsEmpty());
  EXPECT_THAT(result.data.statements, IsEmpty());
}

TEST(ScriptLine, AloneIsStillValidated) {
  const ParseResult result = parse("#!run.sh", options(false, true));
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.error, "BDF easy/mixed input requires a method/functional/basis specification.");
}

TEST(ScriptLine, MayFollowComments) {
  const BDFData data = document("# c\n\n#! run.sh\nhf/svp");
  EXPECT_EQ(data.script_name, "run.sh");
  EXPECT_THAT(data.leading_lines, ElementsAre("# c"));
}

TEST(ScriptLine, ASecondOneIsACommentOfTheEasySection) {
  const BDFData data = document("#! one\n#! two\nhf/svp\n");
  EXPECT_EQ(data.script_name, "one");
  EXPECT_THAT(data.leading_lines, ElementsAre("#! two"));
}

TEST(Mode, FollowsFromTheFirstSignificantLineAndTheModulesRead) {
  const struct {
    std::string_view text;
    InputMode mode;
  } rows[] = {
      {"$m\n$end\n", InputMode::Module},
      {"%ls\n", InputMode::Module},
      {"%ls\n$m\n$end\n", InputMode::Module},
      {"&database\n&end\n", InputMode::Module},
      {"&database\n&end\nhf/svp\n$m\n$end\n", InputMode::Module},
      {"# c\n\n * c\n$m\n$end\n", InputMode::Module},
      {"#!job.sh\n$m\n$end\n", InputMode::Mixed},
      {"#!job.sh\n%ls\n", InputMode::Easy},
      {"#!job.sh\n\n&database\n&end\n$m\n$end", InputMode::Mixed},
      {"hf/svp\n", InputMode::Easy},
      {"hf/svp\ngeometry\nH 0 0 0\nend geometry\n", InputMode::Easy},
      {"hf/svp\ngeometry\nH 0 0 0\nend geometry\n$m\n$end\n", InputMode::Mixed},
      {"hf/svp\ngeometry\n$m\n$end\n", InputMode::Easy},
      {"hf/svp\n$m\n", InputMode::Mixed},
      {"hf/svp\n%ls\n", InputMode::Easy},
      {"geometry\nend geometry\n$m\n$end\n", InputMode::Mixed},
      {"$end\n$m\n$end\n", InputMode::Mixed},
      {"$\n", InputMode::Easy},
      {"&end\n", InputMode::Easy},
      {"&database x\n", InputMode::Easy},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(document(row.text).mode, row.mode) << row.text;
  }
}

TEST(Body, KeepsEachLineBetweenModulesAsAStatementOfItsKind) {
  const struct {
    std::string_view line, statement;
  } rows[] = {
      {"%ls -l", "Shell <%ls -l>"},
      {" \t% x ", "Shell < \t% x >"},
      {"# c", "Comment <# c>"},
      {" * c ", "Comment < * c >"},
      {"#! late", "Comment <#! late>"},
      {"", "Raw <>"},
      {"  ", "Raw <  >"},
      {"loose", "Raw <loose>"},
      {"$end", "Raw <$end>"},
      {"$", "Raw <$>"},
      {"&end", "Raw <&end>"},
      {"&database x", "Raw <&database x>"},
      {"geometry", "Raw <geometry>"},
      {"end geometry", "Raw <end geometry>"},
      {"H 0 0 0", "Raw <H 0 0 0>"},
      {"hf/svp", "Raw <hf/svp>"},
  };
  for (const auto& row : rows) {
    const BDFData data = document("$m\n$end\n" + std::string(row.line) + "\n$m\n$end\n");
    EXPECT_EQ(outline(data.statements), "Module 0; " + std::string(row.statement) + "; Module 1");
    EXPECT_THAT(data.free_lines, ElementsAre(row.line));
    EXPECT_THAT(data.leading_lines, IsEmpty()) << row.line;
  }
}

TEST(Database, RunsThroughItsEndLine) {
  const BDFData data = document(" &Database\n$m\n%ls\n\n  &END \n$m\n$end\n");
  EXPECT_EQ(outline(data.statements), "Database < &Database> <$m> <%ls> <> <  &END >; Module 0");
  EXPECT_THAT(data.free_lines, ElementsAre(" &Database", "$m", "%ls", "", "  &END "));
}

TEST(Database, WithoutAnEndSwallowsTheRestSilently) {
  const ParseResult result = parse("$m\n$end\n&database\n$m\n$end\n& end\n", options(false, true));
  EXPECT_TRUE(result.ok);
  EXPECT_EQ(outline(result.data.statements), "Module 0; Database <&database> <$m> <$end> <& end>");
}

TEST(Database, ASecondStartLineIsPartOfTheFirstBlock) {
  EXPECT_EQ(outline(document("&database\n&database\n&end\n&end\n").statements),
            "Database <&database> <&database> <&end>; Raw <&end>");
}

TEST(Statements, HaveThePlaceOfTheirFirstLine) {
  const BDFData data = document("\n  $m \n$end\n&database\nxyz\n&end\n %ls\n\n");
  ASSERT_EQ(data.statements.size(), 4U);
  EXPECT_EQ(place(data.statements[0].location), "2:1+5");
  EXPECT_EQ(place(data.modules[0].location), "2:1+5");
  EXPECT_EQ(place(data.statements[1].location), "4:1+9");
  EXPECT_EQ(place(data.statements[2].location), "7:1+4");
  EXPECT_EQ(place(data.statements[3].location), "8:1+0");
}

TEST(Statements, OfSideLinesNameNoModule) {
  const BDFData data = document("%ls\n$m\n$end\n");
  EXPECT_EQ(data.statements[0].module_index, static_cast<std::size_t>(-1));
  EXPECT_EQ(data.statements[1].module_index, 0U);
}

TEST(LineEnds, ReturnsBeforeLineFeedsChangeNothing) {
  const std::string lf =
      "# c\n#! job.sh\nhf/svp q=1\ngeometry\nH 0 0 0\nx\nend geometry\n%ls\n$m\nscalar\n "
      "1\nodd\n$end\n";
  std::string crlf;
  for (const char byte : lf) {
    crlf += byte == '\n' ? "\r\n" : std::string(1, byte);
  }
  const BDFData data = document(crlf);
  const BDFData wanted = document(lf);
  EXPECT_EQ(outline(data.statements), outline(wanted.statements));
  EXPECT_EQ(outline(data.modules.at(0).entries), "scalar Scalar < 1>; odd Raw?");
  EXPECT_EQ(data.modules[0].header_line, "$m");
  EXPECT_EQ(data.modules[0].end_line, "$end");
  EXPECT_EQ(data.modules[0].entries[0].raw_line, "scalar");
  EXPECT_EQ(data.script_name, "job.sh");
  EXPECT_EQ(data.atoms.at(0).line, "H 0 0 0");
  EXPECT_THAT(data.geometry_lines, ElementsAre("x"));
  EXPECT_THAT(data.leading_lines, ElementsAre("# c"));
}

TEST(LineEnds, ReturnsAloneEndNoLine) {
  const BDFData data = document("$m\rscalar\r1\r$end\r");
  ASSERT_EQ(data.modules.size(), 1U);
  EXPECT_EQ(data.modules[0].header_line, "$m\rscalar\r1\r$end");
  EXPECT_FALSE(data.modules[0].terminated);
}

}  // namespace
}  // namespace kelp::input::bdf
