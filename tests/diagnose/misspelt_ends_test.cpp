// A line that was meant to end a module, a block or the geometry, but does not.

#include <algorithm>
#include <ostream>

#include "diagnose/diagnosing.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

struct Row {
  const char* what;
  std::string input;
  std::string code;    ///< of the finding that marks the line
  std::string marked;  ///< what it marks
  std::string begin;   ///< what it points at
  std::string fixed;   ///< the text after its fix
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.what;
}

class MisspeltEnds : public ::testing::TestWithParam<Row> {};

TEST_P(MisspeltEnds, AreMarkedAndMended) {
  const Row& row = GetParam();
  const ParsedInput input(row.input, shipped_schema());
  const auto all = diagnose(input);
  const auto found = std::find_if(all.begin(), all.end(),
                                  [&](const Diagnostic& it) { return it.code == row.code; });
  ASSERT_NE(found, all.end());
  EXPECT_EQ(place_of(found->range.value(), input.source()), row.marked);
  EXPECT_THAT(found->label, ::testing::StartsWith("meant to be '"));
  ASSERT_EQ(found->related.size(), 1U);
  EXPECT_EQ(place_of(found->related[0].range, input.source()), row.begin);
  EXPECT_EQ(found->related[0].message, "begins here");
  ASSERT_EQ(found->fixes.size(), 1U);
  EXPECT_TRUE(found->fixes[0].is_safe);
  const std::string fixed = apply_edits(row.input, found->fixes[0].edits);
  EXPECT_EQ(fixed, row.fixed);
  EXPECT_THAT(texts_of(ParsedInput(fixed, shipped_schema())), ::testing::IsEmpty());
}

constexpr const char* module_code = "bdf.unterminated_module";
constexpr const char* block_code = "bdf.unterminated_entry_block";
constexpr const char* geometry_code = "bdf.unterminated_geometry";

const Row rows[] = {
    {"$edn before a known module", "$scf\nrhf\n$edn\n$xuanyuan\n$end\n", module_code, "3:1 '$edn'",
     "1:1 '$scf'", "$scf\nrhf\n$end\n$xuanyuan\n$end\n"},
    {"$edn on the last line", "$scf\nrhf\n  $EDN", module_code, "3:3 '$EDN'", "1:1 '$scf'",
     "$scf\nrhf\n  $end"},
    {"end alone", "$scf\nrhf\nend\n$xuanyuan\n$end\n", module_code, "3:1 'end'", "1:1 '$scf'",
     "$scf\nrhf\n$end\n$xuanyuan\n$end\n"},
    {"End before a comment", "$scf # c\r\nrhf\r\nEnd # of scf\r\n", module_code, "3:1 'End'",
     "1:1 '$scf'", "$scf # c\r\nrhf\r\n$end # of scf\r\n"},
    {"$ end", "$scf\nrhf\n$ end\n", module_code, "3:1 '$ end'", "1:1 '$scf'", "$scf\nrhf\n$end\n"},
    {"EndGeometry", "#! job\nhf/sto-3g\nGeometry\n Ne 0 0 0\nEndGeometry\n\n$scf\n$end\n",
     geometry_code, "5:1 'EndGeometry'", "3:1 'Geometry'",
     "#! job\nhf/sto-3g\nGeometry\n Ne 0 0 0\nEnd Geometry\n\n$scf\n$end\n"},
    {"End Geom", "#! job\nhf/sto-3g\nGeometry # g\n Ne 0 0 0\n End Geom # g\n", geometry_code,
     "5:2 'End Geom'", "3:1 'Geometry'",
     "#! job\nhf/sto-3g\nGeometry # g\n Ne 0 0 0\n End Geometry # g\n"},
    {"end geometri in compass",
     "$compass\nbasis\n sto-3g\ngeometry\n Ne 0 0 0\nend geometri\n$end\n", block_code,
     "6:1 'end geometri'", "4:1 'geometry'",
     "$compass\nbasis\n sto-3g\ngeometry\n Ne 0 0 0\nend geometry\n$end\n"},
    {"end bassis", "$compass\nbasis-block\n Ne sto-3g\nEnd Bassis\n$end\n", block_code,
     "4:1 'End Bassis'", "2:1 'basis-block'",
     "$compass\nbasis-block\n Ne sto-3g\nend basis\n$end\n"},
    {"the end of a block of entries", "$bdfopt\nneb-block\n nimage\n 4\nendneb\n$end\n", block_code,
     "5:1 'endneb'", "2:1 'neb-block'", "$bdfopt\nneb-block\n nimage\n 4\nend neb\n$end\n"},
};

INSTANTIATE_TEST_SUITE_P(Rows, MisspeltEnds, ::testing::ValuesIn(rows));

struct OtherLine {
  const char* what;
  std::string input;
};

void PrintTo(const OtherLine& row, std::ostream* stream) {
  *stream << row.what;
}

class NoMisspeltEnd : public ::testing::TestWithParam<OtherLine> {};

TEST_P(NoMisspeltEnd, IsSeenInOtherLines) {
  const ParsedInput input(GetParam().input, shipped_schema());
  const auto found = diagnose(input);
  ASSERT_FALSE(found.empty());
  EXPECT_EQ(found[0].label, "begins here");
  ASSERT_FALSE(found[0].fixes.empty());
  EXPECT_FALSE(found[0].fixes[0].is_safe);
}

const OtherLine other_lines[] = {
    {"no line at all", "$scf\nrhf\n"},
    {"the end of a block that has its own",
     "$compass\nbasis\n sto-3g\ngeometry\n Ne 0 0 0\nend geometry\n"},
    {"a comment", "$scf\nrhf\n# end\n* $edn\n"},
    {"a comment behind a keyword", "$scf\nrhf # end\n"},
    {"the end of the next module, misspelt", "$scf\nrhf\n$xuanyuan\nend\n"},
    {"a misspelt module", "$scf\nrhf\n$xuanyuna\n$end\n"},
    {"a value that begins like an end", "$scf\nguess\n ended\n"},
    {"an atom", "#! job\nhf/sto-3g\nGeometry\n Nd 0 0 0\n"},
    {"the end of a module in an open geometry",
     "#! job\nhf/sto-3g\nGeometry\n Ne 0 0 0\n$scf\n$end\n"},
    {"the end of the module in an open block", "$compass\ngeometry\n Ne 0 0 0\n$end\n"},
};

INSTANTIATE_TEST_SUITE_P(Rows, NoMisspeltEnd, ::testing::ValuesIn(other_lines));

}  // namespace
}  // namespace kelp::input::bdf
