// Paths as users write them.

#include "kelp/input/bdf/value_path.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace kelp::input::bdf {
namespace {

using Kind = PathKind;

struct Row {
  const char* text;
  ValuePath path;
  const char* written_back;
};

const Row rows[] = {
    {"scf.charge", {Kind::Entry, "scf", 0, "charge", ""}, "scf.charge"},
    {"scf#1.charge", {Kind::Entry, "scf", 0, "charge", ""}, "scf.charge"},
    {"scf#12.charge", {Kind::Entry, "scf", 11, "charge", ""}, "scf#12.charge"},
    {"$SCF.Charge", {Kind::Entry, "SCF", 0, "Charge", ""}, "SCF.Charge"},
    {"easy.charge", {Kind::EasyKeyword, "", 0, "charge", ""}, "easy.charge"},
    {"Easy.Charge", {Kind::EasyKeyword, "", 0, "Charge", ""}, "easy.Charge"},
    {"geometry", {Kind::Geometry, "", 0, "", ""}, "geometry"},
    {"Geometry", {Kind::Geometry, "", 0, "", ""}, "geometry"},
    {"compass.geometry", {Kind::Entry, "compass", 0, "geometry", ""}, "compass.geometry"},
    {"compass#2.geometry", {Kind::Entry, "compass", 1, "geometry", ""}, "compass#2.geometry"},
    {"tddft", {Kind::Module, "tddft", 0, "", ""}, "tddft"},
    {"tddft#2", {Kind::Module, "tddft", 1, "", ""}, "tddft#2"},
    {"easy", {Kind::Module, "easy", 0, "", ""}, "easy"},
    {"scf#2.block.keyword", {Kind::Child, "scf", 1, "block", "keyword"}, "scf#2.block.keyword"},
};

TEST(ParsePath, ReadsWhatToStringWrites) {
  for (const Row& row : rows) {
    const PathResult result = parse_path(row.text);
    ASSERT_TRUE(result.path) << row.text << ": " << result.error;
    EXPECT_EQ(*result.path, row.path) << row.text;
    EXPECT_EQ(result.error, "") << row.text;
    EXPECT_EQ(result.range, TextRange{}) << row.text;
    EXPECT_EQ(to_string(*result.path), row.written_back);
    EXPECT_EQ(parse_path(row.written_back).path, result.path) << row.text;
  }
}

TEST(ParsePath, SaysWhatIsWrongAndWhere) {
  struct BadRow {
    std::string_view text;
    const char* reason;
    TextRange range;
  };
  for (const BadRow& row : {
           BadRow{"", "it has no module", {0, 0}},
           BadRow{"$", "it has no module", {1, 1}},
           BadRow{".charge", "it has no module", {0, 0}},
           BadRow{"scf.", "it has no entry", {4, 4}},
           BadRow{"scf..charge", "it has no entry", {4, 4}},
           BadRow{"scf.block.", "it has no entry", {10, 10}},
           BadRow{"easy.", "it has no keyword", {5, 5}},
           BadRow{"a.b.c.d", "it has more than three parts", {6, 7}},
           BadRow{"a.b.c.d.e", "it has more than three parts", {6, 9}},
           BadRow{"scf#.charge", "'' is no number of a module, counted from 1", {4, 4}},
           BadRow{"scf#0.charge", "'0' is no number of a module, counted from 1", {4, 5}},
           BadRow{"scf#-1.charge", "'-1' is no number of a module, counted from 1", {4, 6}},
           BadRow{"scf#x.charge", "'x' is no number of a module, counted from 1", {4, 5}},
           BadRow{"scf#2 .charge", "'2 ' is no number of a module, counted from 1", {4, 6}},
           BadRow{"scf#99999999999999999999.charge",
                  "'99999999999999999999' is no number of a module, counted from 1",
                  {4, 24}},
           BadRow{"scf.two words", "'two words' cannot be the name of an entry", {4, 13}},
           BadRow{"my module.charge", "'my module' cannot be the name of a module", {0, 9}},
           BadRow{"easy.a#b", "'a#b' cannot be the name of a keyword", {5, 8}},
       }) {
    const PathResult result = parse_path(row.text);
    EXPECT_FALSE(result.path) << row.text;
    EXPECT_EQ(result.error, "'" + std::string(row.text) + "' is no path: " + row.reason +
                                "; paths look like scf.charge, scf#2.charge, easy.charge or "
                                "geometry");
    EXPECT_EQ(result.range, row.range)
        << row.text << ": " << result.range.begin << " to " << result.range.end;
  }
}

// Every byte a user can type, in each part: an answer, and never an exception.
TEST(ParsePath, NeverThrows) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string odd(1, static_cast<char>(byte));
    for (const std::string& text :
         {odd, odd + ".a", "a#" + odd, "a#1" + odd + ".b", "a." + odd, "a.b." + odd}) {
      PathResult result;
      ASSERT_NO_THROW(result = parse_path(text)) << byte;
      EXPECT_NE(result.path.has_value(), !result.error.empty()) << byte;
      EXPECT_LE(result.range.end, text.size()) << byte;
    }
  }
}

}  // namespace
}  // namespace kelp::input::bdf
