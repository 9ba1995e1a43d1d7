// A line that bounds a part of the input and is misspelt: one finding, on the line, and a fix.

#include <ostream>

#include "diagnose/diagnosing.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

struct Row {
  const char* what;
  std::string input;
  std::string code;
  std::string marked;  ///< what it marks
  std::string begin;   ///< what it points at; empty for nothing
  std::string fixed;   ///< the text after its fix
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.what;
}

class MisspeltBorders : public ::testing::TestWithParam<Row> {};

TEST_P(MisspeltBorders, AreMarkedOnceAndMended) {
  const Row& row = GetParam();
  const ParsedInput input(row.input, shipped_schema());
  const auto all = diagnose(input, {UnknownNames::Error});
  ASSERT_EQ(codes_of(all), std::vector<std::string>{row.code});
  const Diagnostic& found = all.front();
  EXPECT_EQ(found.severity, Severity::Error);
  EXPECT_EQ(place_of(found.range.value(), input.source()), row.marked);
  EXPECT_THAT(found.label, ::testing::StartsWith("meant to be '"));
  EXPECT_EQ(found.related.size(), row.begin.empty() ? 0U : 1U);
  for (const RelatedRange& related : found.related) {
    EXPECT_EQ(place_of(related.range, input.source()), row.begin);
    EXPECT_EQ(related.message, "begins here");
  }
  ASSERT_EQ(found.fixes.size(), 1U);
  EXPECT_TRUE(found.fixes[0].is_safe);
  const std::string fixed = apply_edits(row.input, found.fixes[0].edits);
  EXPECT_EQ(fixed, row.fixed);
  EXPECT_THAT(texts_of(ParsedInput(fixed, shipped_schema())), ::testing::IsEmpty());
}

constexpr const char* end_code = "frame.misspelt_end";
constexpr const char* terminator_code = "frame.misspelt_terminator";
constexpr const char* geometry_code = "frame.misspelt_geometry";
constexpr const char* block_code = "frame.misspelt_block";
constexpr const char* dollar_code = "frame.missing_dollar";
constexpr const char* wide_code = "frame.wide_dollar";

const Row ends[] = {
    {"$edn before a known module", "$scf\nrhf\n$edn\n$xuanyuan\n$end\n", end_code, "3:1 '$edn'",
     "1:1 '$scf'", "$scf\nrhf\n$end\n$xuanyuan\n$end\n"},
    {"$edn on the last line", "$scf\nrhf\n  $EDN", end_code, "3:3 '$EDN'", "1:1 '$scf'",
     "$scf\nrhf\n  $end"},
    {"the module's name behind $end", "$scf\nrhf\n$END scf\n", end_code, "3:1 '$END scf'",
     "1:1 '$scf'", "$scf\nrhf\n$end\n"},
    {"$end of a block", "$compass\ngeometry\nH 0 0 0\n$end geometry\n$end\n", terminator_code,
     "4:1 '$end geometry'", "2:1 'geometry'", "$compass\ngeometry\nH 0 0 0\nend geometry\n$end\n"},
    {"$end of the header's geometry", "#! a\nhf/sto-3g\ngeometry\nH 0 0 0\n$end geometry\n",
     terminator_code, "5:1 '$end geometry'", "3:1 'geometry'",
     "#! a\nhf/sto-3g\ngeometry\nH 0 0 0\nEnd Geometry\n"},
    {"end alone", "$scf\nrhf\nend\n$xuanyuan\n$end\n", end_code, "3:1 'end'", "1:1 '$scf'",
     "$scf\nrhf\n$end\n$xuanyuan\n$end\n"},
    {"end behind lines of values", "$scf\ndft\n b3lyp\nend\n$xuanyuan\n$end\n", end_code,
     "4:1 'end'", "1:1 '$scf'", "$scf\ndft\n b3lyp\n$end\n$xuanyuan\n$end\n"},
    {"end before a shell line", "$scf\nrhf\nend\n%ls\n$xuanyuan\n$end\n", end_code, "3:1 'end'",
     "1:1 '$scf'", "$scf\nrhf\n$end\n%ls\n$xuanyuan\n$end\n"},
    {"End before a comment", "$scf # c\r\nrhf\r\nEnd # of scf\r\n", end_code, "3:1 'End'",
     "1:1 '$scf'", "$scf # c\r\nrhf\r\n$end # of scf\r\n"},
    {"the key of the dollar, without shift", "$scf\nrhf\n4end\n", end_code, "3:1 '4end'",
     "1:1 '$scf'", "$scf\nrhf\n$end\n"},
    {"the dollar behind the word", "$scf\nrhf\nend$\n", end_code, "3:1 'end$'", "1:1 '$scf'",
     "$scf\nrhf\n$end\n"},
    {"$ end", "$scf\nrhf\n$ end\n", end_code, "3:1 '$ end'", "1:1 '$scf'", "$scf\nrhf\n$end\n"},
    {"edn on the last line", "$scf\nrhf\nedn\n\n# c\n", end_code, "3:1 'edn'", "1:1 '$scf'",
     "$scf\nrhf\n$end\n\n# c\n"},
    {"a full-width dollar before end",
     "$scf\nrhf\n\xEF\xBC\x84"
     "end\n",
     wide_code,
     "3:1 '\xEF\xBC\x84"
     "end'",
     "1:1 '$scf'", "$scf\nrhf\n$end\n"},
};

const Row terminators[] = {
    {"EndGeometry", "#! job\nhf/sto-3g\nGeometry\n Ne 0 0 0\nEndGeometry\n\n$scf\n$end\n",
     terminator_code, "5:1 'EndGeometry'", "3:1 'Geometry'",
     "#! job\nhf/sto-3g\nGeometry\n Ne 0 0 0\nEnd Geometry\n\n$scf\n$end\n"},
    {"End Geom", "#! job\nhf/sto-3g\nGeometry # g\n Ne 0 0 0\n End Geom # g\n", terminator_code,
     "5:2 'End Geom'", "3:1 'Geometry'",
     "#! job\nhf/sto-3g\nGeometry # g\n Ne 0 0 0\n End Geometry # g\n"},
    {"end alone behind atoms", "#! job\nhf/sto-3g\nGeometry\n Ne 0 0 0\nend\n$scf\n$end\n",
     terminator_code, "5:1 'end'", "3:1 'Geometry'",
     "#! job\nhf/sto-3g\nGeometry\n Ne 0 0 0\nEnd Geometry\n$scf\n$end\n"},
    {"end geometri in compass",
     "$compass\nbasis\n sto-3g\ngeometry\n Ne 0 0 0\nend geometri\n$end\n", terminator_code,
     "6:1 'end geometri'", "4:1 'geometry'",
     "$compass\nbasis\n sto-3g\ngeometry\n Ne 0 0 0\nend geometry\n$end\n"},
    {"end before another keyword", "$compass\ngeometry\n Ne 0 0 0\nend\nbasis\n sto-3g\n$end\n",
     terminator_code, "4:1 'end'", "2:1 'geometry'",
     "$compass\ngeometry\n Ne 0 0 0\nend geometry\nbasis\n sto-3g\n$end\n"},
    {"end bassis", "$compass\nbasis-block\n Ne=sto-3g\nEnd Bassis\n$end\n", terminator_code,
     "4:1 'End Bassis'", "2:1 'basis-block'",
     "$compass\nbasis-block\n Ne=sto-3g\nend basis\n$end\n"},
    {"the block's own keyword", "$scf\ncosxngrid\n 1 2\nend cosxngrid\n$end\n", terminator_code,
     "4:1 'end cosxngrid'", "2:1 'cosxngrid'", "$scf\ncosxngrid\n 1 2\nend grid\n$end\n"},
    {"the end of a block of entries", "$bdfopt\nneb-block\n nimage\n 4\nendneb\n$end\n",
     terminator_code, "5:1 'endneb'", "2:1 'neb-block'",
     "$bdfopt\nneb-block\n nimage\n 4\nend neb\n$end\n"},
};

const Row openings[] = {
    {"Gemoetry in the header", "#! job\nhf/sto-3g\nGemoetry\n Ne 0 0 0\nEnd Geometry\n",
     geometry_code, "3:1 'Gemoetry'", "", "#! job\nhf/sto-3g\nGeometry\n Ne 0 0 0\nEnd Geometry\n"},
    {"Geom before internal coordinates",
     "#! job\nhf/sto-3g\nGeom\nO\nH 1 R1\n\nR1 1.0\nEnd Geometry\n", geometry_code, "3:1 'Geom'",
     "", "#! job\nhf/sto-3g\nGeometry\nO\nH 1 R1\n\nR1 1.0\nEnd Geometry\n"},
    {"Gemoetry in compass", "$compass\nGemoetry\n Ne 0 0 0\nend geometry\n$end\n", geometry_code,
     "2:1 'Gemoetry'", "", "$compass\ngeometry\n Ne 0 0 0\nend geometry\n$end\n"},
    {"another block", "$compass\nbasis-blcok\n Ne=sto-3g\nend basis\n$end\n", block_code,
     "2:1 'basis-blcok'", "", "$compass\nbasis-block\n Ne=sto-3g\nend basis\n$end\n"},
    {"a header without its dollar", "$localmo\n$end\nscf\nrhf\n$end\n", dollar_code, "3:1 'scf'",
     "", "$localmo\n$end\n$scf\nrhf\n$end\n"},
    {"the first header without its dollar", "# c\nSCF # c\nrhf\n$end\n", dollar_code, "2:1 'SCF'",
     "", "# c\n$SCF # c\nrhf\n$end\n"},
    {"an empty module without its dollar", "xuanyuan\n\n$end\n", dollar_code, "1:1 'xuanyuan'", "",
     "$xuanyuan\n\n$end\n"},
    {"a module's name that the header knows", "irc\nircpts\n 5\n$end\n", dollar_code, "1:1 'irc'",
     "", "$irc\nircpts\n 5\n$end\n"},
    {"a full-width dollar", "\xEF\xBC\x84scf\nrhf\n$end\n", wide_code, "1:1 '\xEF\xBC\x84scf'", "",
     "$scf\nrhf\n$end\n"},
    {"a small dollar", "$localmo\n$end\n \xEF\xB9\xA9 scf\nrhf\n$end\n", wide_code,
     "3:2 '\xEF\xB9\xA9 scf'", "", "$localmo\n$end\n $scf\nrhf\n$end\n"},
};

INSTANTIATE_TEST_SUITE_P(Ends, MisspeltBorders, ::testing::ValuesIn(ends));
INSTANTIATE_TEST_SUITE_P(Terminators, MisspeltBorders, ::testing::ValuesIn(terminators));
INSTANTIATE_TEST_SUITE_P(Openings, MisspeltBorders, ::testing::ValuesIn(openings));

struct OtherLine {
  const char* what;
  std::string input;
};

void PrintTo(const OtherLine& row, std::ostream* stream) {
  *stream << row.what;
}

class NoMisspeltBorder : public ::testing::TestWithParam<OtherLine> {};

TEST_P(NoMisspeltBorder, IsSeenInOtherLines) {
  const ParsedInput input(GetParam().input, shipped_schema());
  EXPECT_THAT(input.misspelt_borders(), ::testing::IsEmpty());
  for (const std::string& code : codes_of(diagnose(input))) {
    EXPECT_THAT(code, ::testing::AnyOf("frame.stray_line",
                                       ::testing::Not(::testing::StartsWith("frame."))));
  }
}

const OtherLine other_lines[] = {
    {"no line at all", "$scf\nrhf\n"},
    {"end in a module that has its end", "$scf\nrhf\nend\n$end\n"},
    {"$edn before an end of its own", "$scf\nrhf\n$edn\nuhf\n$end\n"},
    {"end before a keyword", "$scf\nend\nrhf\n"},
    {"edn before another line", "$scf\nedn\nodd\n"},
    {"the end of a block that has its own",
     "$compass\nbasis\n sto-3g\ngeometry\n Ne 0 0 0\nend geometry\n"},
    {"a line like an end in a block that has its own",
     "$compass\ngeometry\n Ne 0 0 0\nend geomtry\nend geometry\n$end\n"},
    {"a comment", "$scf\nrhf\n# end\n* $edn\n"},
    {"a comment behind a keyword", "$scf\nrhf # end\n"},
    {"a misspelt module", "$scf\nrhf\n$xuanyuna\n$end\n"},
    {"a value that begins like an end", "$scf\nguess\n ended\n"},
    {"an atom", "#! job\nhf/sto-3g\nGeometry\n Nd 0 0 0\n"},
    {"the end of a module behind an open geometry",
     "#! job\nhf/sto-3g\nGeometry\n Ne 0 0 0\n$scf\n$end\n"},
    {"the end of the module in an open block", "$compass\ngeometry\n Ne 0 0 0\n$end\n"},
    {"a module's name among other words", "$xuanyuan\n$end\nscf was here\nrhf\n"},
    {"a module's name before no entry of it", "$xuanyuan\n$end\nscf\nhello\n"},
    {"a word like the geometry's before no atom", "#! job\nhf/sto-3g\ngeom\ncharge=0\n"},
};

INSTANTIATE_TEST_SUITE_P(Rows, NoMisspeltBorder, ::testing::ValuesIn(other_lines));

// By the letter, a misspelt line is what it says.
TEST(MisspeltBorder, IsReadAsItStandsByThePublishedParser) {
  const auto read =
      BDFParser::parse_string("$scf\nrhf\n$edn\n$xuanyuan\n$end\n", shipped_schema(), {});
  ASSERT_EQ(read.data.modules.size(), 3U);
  EXPECT_FALSE(read.data.modules[0].terminated);
  EXPECT_EQ(read.data.modules[1].name, "edn");
}

TEST(MisspeltBorder, KeepsItsLineInTheDocument) {
  const ParsedInput input("scf\nrhf\n$edn\n", shipped_schema());
  ASSERT_EQ(input.data().modules.size(), 1U);
  const Module& module = input.data().modules.front();
  EXPECT_EQ(module.header_line, "scf");
  EXPECT_EQ(module.end_line, "$edn");
  EXPECT_TRUE(module.known);
  EXPECT_TRUE(module.terminated);
  const auto& borders = input.misspelt_borders();
  ASSERT_EQ(borders.size(), 2U);
  EXPECT_EQ(borders[0].line, 1U);
  EXPECT_EQ(borders[0].fault, BorderFault::MissingDollar);
  EXPECT_EQ(borders[0].meant, "$scf");
  EXPECT_EQ(borders[1].fault, BorderFault::MisspeltEnd);
  EXPECT_EQ(borders[1].record, RecordId::of_module(0));
  EXPECT_TRUE(input.is_misspelt_border(3));
  EXPECT_FALSE(input.is_misspelt_border(2));
}

TEST(MisspeltBorder, IsToldOnceEachWhereThereAreSeveral) {
  const std::string text =
      "$compass\nbasis\n sto-3g\nGemoetry\n Ne 0 0 0\nend geom\n$edn\nxuanyuan\n$end\n"
      "$scf\nrhf\nend\n";
  const auto found = diagnose(ParsedInput(text, shipped_schema()));
  EXPECT_EQ(codes_of(found), (std::vector<std::string>{geometry_code, terminator_code, end_code,
                                                       dollar_code, end_code}));
  std::vector<TextEdit> edits;
  for (const Diagnostic& diagnostic : found) {
    edits.push_back(diagnostic.fixes.at(0).edits.at(0));
  }
  EXPECT_EQ(apply_edits(text, edits),
            "$compass\nbasis\n sto-3g\ngeometry\n Ne 0 0 0\nend geometry\n$end\n$xuanyuan\n"
            "$end\n$scf\nrhf\n$end\n");
}

TEST(MisspeltBorder, LetsTheRestBeChecked) {
  const ParsedInput input("$scf\ncharge\n one\n$edn\n$tddft\niroot\n two\n$end\n",
                          shipped_schema());
  EXPECT_EQ(codes_of(diagnose(input)),
            (std::vector<std::string>{"bdf.invalid_module_value", "frame.misspelt_end",
                                      "bdf.invalid_module_value"}));
}

}  // namespace
}  // namespace kelp::input::bdf
