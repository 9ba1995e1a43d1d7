// Where records and their parts stand in the text.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/parsed_input.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::ElementsAre;

class Ranges : public ::testing::Test {
 protected:
  static constexpr const char* text =
      "#! job\n"
      "b3lyp / x  TDDFT/b3lyp/def2-SVP charge = 1 # c\n"
      "Geometry # g\n"
      "  H1 0 0 0\n"
      "  R1 2\n"
      "End Geometry\n"
      "$scf\n"
      "  occupied  # o\n"
      "    1, 2 # v\n"
      "# c\n"
      "$end\n"
      "$bdfopt\n"
      "neb-block\n"
      "  nimage\n"
      "  4\n"
      "end neb\n"
      "$end\n"
      "%ls\n"
      "$compass\n";

  std::string_view text_of(const TextRange& range) const { return input.source().text_of(range); }

  std::vector<std::string_view> texts_of(const std::vector<TextRange>& ranges) const {
    std::vector<std::string_view> texts;
    for (const TextRange& range : ranges) {
      texts.push_back(text_of(range));
    }
    return texts;
  }

  RecordId record_at(std::string_view word) const {
    return input.record_at(input.source().text().find(word));
  }

  ParsedInput input = ParsedInput(text, shipped_schema());
};

TEST_F(Ranges, AHeaderTokenHasThoseOfItsParts) {
  const std::vector<EasyToken>& tokens = input.data().easy_tokens;
  ASSERT_GE(tokens.size(), 5U);
  ASSERT_EQ(tokens[3].text, "TDDFT/b3lyp/def2-SVP");
  EXPECT_EQ(text_of(input.token_ranges(3).whole), "TDDFT/b3lyp/def2-SVP");
  const SpecificationRanges parts = input.specification_ranges(3);
  EXPECT_EQ(text_of(parts.method), "TDDFT");
  EXPECT_EQ(text_of(parts.functional), "b3lyp");
  EXPECT_EQ(text_of(parts.basis), "def2-SVP");
  EXPECT_EQ(text_of(input.token_ranges(4).whole), "charge = 1");
  EXPECT_EQ(text_of(input.token_ranges(4).key), "charge");
  EXPECT_EQ(text_of(input.token_ranges(4).value), "1");
  EXPECT_TRUE(input.specification_ranges(4).basis.empty());
  EXPECT_TRUE(input.token_ranges(99).whole.empty());
}

TEST_F(Ranges, AByteNamesTheInnermostRecord) {
  EXPECT_EQ(record_at("= 1"), RecordId::of(RecordKind::EasyToken, 4));
  EXPECT_EQ(record_at("TDDFT"), RecordId::of(RecordKind::EasyToken, 3));
  EXPECT_FALSE(input.record_at(0));
  EXPECT_EQ(record_at("Geometry"), RecordId::of(RecordKind::Geometry, 0));
  EXPECT_EQ(record_at("H1"), RecordId::of(RecordKind::Atom, 0));
  EXPECT_EQ(record_at("R1"), RecordId::of(RecordKind::GeometryLine, 0));
  EXPECT_EQ(record_at("$scf"), RecordId::of_module(0));
  EXPECT_EQ(record_at("1, 2"), RecordId::of_entry(0, 0));
  EXPECT_EQ(record_at("nimage"), RecordId::of_child(1, 0, 0));
  EXPECT_EQ(record_at("end neb"), RecordId::of_entry(1, 0));
  EXPECT_EQ(record_at("%ls"), RecordId::of(RecordKind::Statement, 2));
}

TEST_F(Ranges, ARecordSpansItsLines) {
  EXPECT_EQ(text_of(input.range(RecordId::of_entry(0, 0))), "  occupied  # o\n    1, 2 # v\n");
  EXPECT_EQ(text_of(input.range(RecordId::of_child(1, 0, 0))), "  nimage\n  4\n");
  EXPECT_EQ(text_of(input.range(RecordId::of_entry(1, 0))), "neb-block\n  nimage\n  4\nend neb\n");
  EXPECT_EQ(input.first_line(RecordId::of_module(0)), 7U);
  EXPECT_EQ(input.last_line(RecordId::of_module(0)), 11U);
  EXPECT_EQ(input.last_line(RecordId::of(RecordKind::Geometry, 0)), 6U);
  EXPECT_EQ(input.first_line({}), 0U);
  EXPECT_EQ(input.first_line(RecordId::of_entry(7, 0)), 0U);
}

TEST_F(Ranges, EndLinesAreThoseThatAreThere) {
  EXPECT_EQ(input.end_line(RecordId::of_module(0)), 11U);
  EXPECT_EQ(input.end_line(RecordId::of_module(1)), 17U);
  EXPECT_EQ(input.end_line(RecordId::of_module(2)), 0U);
  EXPECT_EQ(input.end_line(RecordId::of_entry(1, 0)), 16U);
  EXPECT_EQ(input.end_line(RecordId::of_entry(0, 0)), 0U);
  EXPECT_EQ(input.end_line(RecordId::of(RecordKind::Geometry, 0)), 6U);
}

TEST_F(Ranges, KeywordsValuesAndCommentsAreToldApart) {
  const RecordId entry = RecordId::of_entry(0, 0);
  EXPECT_EQ(text_of(input.keyword_range(entry)), "occupied");
  EXPECT_EQ(text_of(input.behind_keyword(entry)), "");
  EXPECT_EQ(text_of(input.comment_range(8)), "# o");
  EXPECT_EQ(text_of(input.value_range(entry, 0)), "1, 2");
  EXPECT_THAT(texts_of(input.value_ranges(entry)), ElementsAre("1, 2"));
  EXPECT_THAT(texts_of(input.fields(entry)), ElementsAre("1", "2"));
  EXPECT_EQ(text_of(input.comment_range(10)), "# c");
  EXPECT_EQ(text_of(input.comment_range(1)), "");
  EXPECT_EQ(text_of(input.keyword_range(RecordId::of_module(0))), "$scf");
  EXPECT_EQ(text_of(input.keyword_range(RecordId::of(RecordKind::Atom, 0))), "H1");
  EXPECT_EQ(text_of(input.keyword_range(RecordId::of(RecordKind::Geometry, 0))), "Geometry");
}

TEST_F(Ranges, AModuleNameMayStandApartFromItsDollar) {
  const ParsedInput apart("$ scf\nrhf\n$end\n", shipped_schema());
  EXPECT_EQ(apart.source().text_of(apart.keyword_range(RecordId::of_module(0))), "$ scf");
}

TEST_F(Ranges, InputsThatWereMovedFromCanStillBeAsked) {
  ParsedInput other = std::move(input);
  EXPECT_EQ(other.data().modules.size(), 3U);
  EXPECT_EQ(input.source().line_count(), other.source().line_count());
}

}  // namespace
}  // namespace kelp::input::bdf
