// The guess whether a text is a BDF input.

#include <gtest/gtest.h>

#include <string_view>

#include "kelp/input/bdf.hpp"

namespace kelp::input::bdf {
namespace {

TEST(LooksLikeBdfInput, IsTrueForWhatCanStartAnInput) {
  for (const std::string_view text :
       {"$scf", "\n  $SCF\n", "#!", "  #! job", "%ls", "&DataBase", "geometry", "Geometry angstrom",
        "GEOMETRY2", "geometryx", "b3lyp/def2-svp opt", "\n\n# c\n\n#c\n$scf\nrest", "/", "a/b c",
        "$end x", "\r\n\t\r\n$x\r\n", "# c\n#! job"}) {
    EXPECT_TRUE(BDFParser::looks_like_bdf_input(text)) << text;
  }
}

TEST(LooksLikeBdfInput, IsFalseForAnythingElse) {
  for (const std::string_view text :
       {"", "\n\n", " \t\r\n", "# c", "# c\n# d\n", "hello", "hello a/b", "$end", "$", "&end",
        "&database x", "geometr", "end geometry", "* star comment\n$compass\n$end", "opt\nhf/svp",
        "x=1 a/b"}) {
    EXPECT_FALSE(BDFParser::looks_like_bdf_input(text)) << text;
  }
}

TEST(LooksLikeBdfInput, TakesGeometry2ForAGeometryAsTheParserDoesNot) {
  EXPECT_TRUE(BDFParser::looks_like_bdf_input("geometry2"));
  EXPECT_FALSE(
      BDFParser::parse_string("geometry2", InputSchema(), ParseOptions()).data.has_geometry);
}

TEST(LooksLikeBdfInput, SeesTheFirstLineOnlyWhateverFollows) {
  EXPECT_FALSE(BDFParser::looks_like_bdf_input("title\n$scf\n$end\n"));
  EXPECT_TRUE(BDFParser::looks_like_bdf_input("$scf\n\x01\x02"));
}

}  // namespace
}  // namespace kelp::input::bdf
