// The easy section: header lines up to the geometry or the body.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "parser/parsing.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

std::vector<std::string> texts(const BDFData& data) {
  std::vector<std::string> texts;
  for (const EasyToken& token : data.easy_tokens) {
    texts.push_back(token.text);
  }
  return texts;
}

TEST(EasySection, TokensOfSeveralHeaderLinesFollowEachOther) {
  const BDFData data = document("hf/svp q = 1\n\n  maxit\t\nopt\n");
  EXPECT_THAT(texts(data), ElementsAre("hf/svp", "q=1", "maxit", "opt"));
}

TEST(EasySection, APairIsNotJoinedAcrossLines) {
  EXPECT_THAT(texts(document("q =\n1\n")), ElementsAre("q=", "1"));
  EXPECT_THAT(texts(document("q\n= 1\n")), ElementsAre("q", "=", "1"));
}

TEST(EasySection, CommentsBetweenHeaderAndGeometryAreLeadingLines) {
  const BDFData data = document("# a\nhf/svp\n * b\n\n#! c\ngeometry\n# d\nend geometry\n# e\n");
  EXPECT_THAT(data.leading_lines, ElementsAre("# a", " * b", "#! c"));
  EXPECT_THAT(texts(data), ElementsAre("hf/svp"));
  EXPECT_THAT(data.geometry_lines, ElementsAre("# d"));
  EXPECT_THAT(data.free_lines, ElementsAre("# e"));
}

TEST(EasySection, EndsAtTheFirstLineOfTheBody) {
  for (const std::string_view line : {"$m", " $end # x", "%ls", " &DataBase "}) {
    const BDFData data = document("hf/svp\n" + std::string(line) + "\ngeometry\n");
    EXPECT_THAT(texts(data), ElementsAre("hf/svp")) << line;
    EXPECT_FALSE(data.has_geometry) << line;
    EXPECT_THAT(data.statements, Not(IsEmpty())) << line;
  }
}

TEST(EasySection, LinesThatOnlyResembleABodyAreHeaderLines) {
  const BDFData data = document("hf/svp\n$end\n$\n&end\n&database x\ngeometry2\nend geometry\n");
  EXPECT_THAT(texts(data), ElementsAre("hf/svp", "$end", "$", "&end", "&database", "x", "geometry2",
                                       "end", "geometry"));
  EXPECT_FALSE(data.has_geometry);
  EXPECT_THAT(data.statements, IsEmpty());
}

TEST(EasySection, MayBeEmpty) {
  const BDFData data = document("#!\n\n\n%ls\n");
  EXPECT_THAT(data.easy_tokens, IsEmpty());
  EXPECT_EQ(outline(data.statements), "Shell <%ls>");
}

TEST(EasySection, ThatRunsToTheEndHasNoBody) {
  const BDFData data = document("hf/svp\n\nopt\n\n");
  EXPECT_THAT(texts(data), ElementsAre("hf/svp", "opt"));
  EXPECT_THAT(data.free_lines, IsEmpty());
}

TEST(EasySection, ATokenHasItsLineColumnOneAndItsOwnLength) {
  const BDFData data = document("\n  hf/svp   charge = 12\n\nopt\n");
  ASSERT_EQ(data.easy_tokens.size(), 3U);
  EXPECT_EQ(place(data.easy_tokens[0].location), "2:1+6");
  EXPECT_EQ(place(data.easy_tokens[1].location), "2:1+9");
  EXPECT_EQ(place(data.easy_tokens[2].location), "4:1+3");
}

TEST(EasySection, WordsAfterAHashInTheLineAreTokensToo) {
  const BDFData data = document("hf/svp # opt q=1\n");
  EXPECT_THAT(texts(data), ElementsAre("hf/svp", "#", "opt", "q=1"));
  EXPECT_EQ(data.easy_tokens[1].canonical, "");
  EXPECT_EQ(data.easy_tokens[1].category, "unknown");
  EXPECT_FALSE(data.easy_tokens[1].known);
}

}  // namespace
}  // namespace kelp::input::bdf
