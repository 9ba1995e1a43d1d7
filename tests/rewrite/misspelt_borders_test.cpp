// Changes in a text of which a line that bounds a part is misspelt: the line stays as it is, and
// the rest is changed as if it were right.

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "rewrite/edit_table.hpp"

namespace kelp::input::bdf {
namespace {

using namespace std::string_view_literals;
using ::testing::IsEmpty;

TEST(MisspeltBorders, StayAsTheyAreInAnEdit) {
  expect_edits({
      {"a value of a module with a misspelt end",
       "$scf\ncharge\n 0\n $edn # c\n$xuanyuan\n$end\n",
       {"scf.charge=1"},
       "$scf\ncharge\n 1\n $edn # c\n$xuanyuan\n$end\n"},
      {"a new entry before a misspelt end",
       "$scf\nrhf\nend\n",
       {"scf.charge=1"},
       "$scf\nrhf\ncharge\n  1\nend\n"},
      {"an entry behind a misspelt end",
       "$scf\nrhf\n$edn\n$tddft\niroot\n 1\n$end\n",
       {"tddft.iroot=4"},
       "$scf\nrhf\n$edn\n$tddft\niroot\n 4\n$end\n"},
      {"an entry of a module without its dollar",
       "SCF\ncharge\n 0\n$end\n",
       {"scf.charge=1"},
       "SCF\ncharge\n 1\n$end\n"},
      {"an entry behind a misspelt end of a block",
       "$compass\nGemoetry\n Ne 0 0 0\nEnd Geom\nbasis\n sto-3g\n$end\n",
       {"compass.basis=cc-pvdz"},
       "$compass\nGemoetry\n Ne 0 0 0\nEnd Geom\nbasis\n cc-pvdz\n$end\n"},
      {"a word of the header above a misspelt geometry",
       "#! job\nhf/sto-3g charge=0\nGemoetry\n Ne 0 0 0\nEndGeometry\n",
       {"easy.charge=1"},
       "#! job\nhf/sto-3g charge=1\nGemoetry\n Ne 0 0 0\nEndGeometry\n"},
  });
}

TEST(MisspeltBorders, StayAsTheyAreInALayout) {
  const std::string before =
      "#! job\nHF/sto-3g\nGemoetry # g\nNe 0 0 0\n End Geom\n$SCF\nCHARGE\n0\n  $Edn # e\n";
  const Rewrite rewrite = format_input(ParsedInput(before, shipped_schema()));
  EXPECT_EQ(messages_of(rewrite), "");
  EXPECT_EQ(rewrite.text,
            "#! job\nhf/sto-3g\nGemoetry # g\n  Ne 0 0 0\n End Geom\n\n$scf\n  charge\n    0\n"
            "  $Edn # e\n");
}

// -- texts thrown together

constexpr std::array fragments = {"$scf"sv,
                                  "$SCF # c"sv,
                                  "scf"sv,
                                  "$sfc"sv,
                                  "$compass"sv,
                                  "compass"sv,
                                  "$xuanyuan"sv,
                                  "xuanyuan"sv,
                                  "$bdfopt"sv,
                                  "$end"sv,
                                  "$edn"sv,
                                  "$ end"sv,
                                  "end"sv,
                                  " End # c"sv,
                                  "edn"sv,
                                  "4end"sv,
                                  "geometry"sv,
                                  "Gemoetry"sv,
                                  "end geometry"sv,
                                  "End Geom"sv,
                                  "EndGeometry"sv,
                                  "H 0 0 0"sv,
                                  "Ne 0 0 1.5"sv,
                                  "basis"sv,
                                  "basis-blcok"sv,
                                  "basis-block"sv,
                                  "end basis"sv,
                                  "end bassis"sv,
                                  "neb-block"sv,
                                  "nimage"sv,
                                  "endneb"sv,
                                  "rhf"sv,
                                  "charge"sv,
                                  "chrage"sv,
                                  "1"sv,
                                  "  2"sv,
                                  "dft"sv,
                                  "b3lyp"sv,
                                  "spinmult"sv,
                                  "def2-svp"sv,
                                  "%ls"sv,
                                  "&database"sv,
                                  "&end"sv,
                                  "End Setting"sv,
                                  "# c"sv,
                                  "* d"sv,
                                  ""sv,
                                  "hf/sto-3g"sv,
                                  "#! job"sv,
                                  "\xEF\xBC\x84scf"sv,
                                  "\xEF\xBC\x84"
                                  "end"sv};

std::string thrown_together(std::mt19937& random) {
  std::string text;
  for (std::size_t lines = random() % 16 + 1; lines > 0; --lines) {
    text += fragments[random() % fragments.size()];
    text += random() % 8 == 0 ? "\r\n" : "\n";
  }
  return text;
}

// Of a line that is there.
bool is_of_frame(const Diagnostic& diagnostic) {
  return diagnostic.code.starts_with("frame.") && !diagnostic.fixes.empty() &&
         diagnostic.code != "frame.missing_header" && diagnostic.code != "frame.missing_opening" &&
         diagnostic.code != "frame.missing_database_end";
}

// The line of each misspelt border.
std::vector<std::string> border_lines(const ParsedInput& input) {
  std::vector<std::string> lines;
  for (const MisspeltBorder& border : input.misspelt_borders()) {
    lines.emplace_back(input.source().text_of(input.source().line_range(border.line)));
  }
  return lines;
}

// What the records of a document say, but for how its borders are written.
std::string outline_of(const BDFData& data) {
  std::string text = std::to_string(data.atoms.size()) + " atoms, " +
                     std::to_string(data.easy_tokens.size()) + " words\n";
  for (const Module& module : data.modules) {
    text += module.name + (module.terminated ? " ends\n" : "\n");
    for (const ModuleEntry& entry : module.entries) {
      text += " " + entry.name + " " + std::to_string(entry.values.size()) + " " +
              std::to_string(entry.children.size()) + (entry.terminated ? " ends\n" : "\n");
    }
  }
  return text;
}

TEST(RandomTexts, AreLaidOutWithoutTouchingAMisspeltBorder) {
  std::mt19937 random(20240607);
  std::size_t borders = 0;
  for (int i = 0; i < 3000; ++i) {
    const std::string text = thrown_together(random);
    const ParsedInput input(text, shipped_schema());
    borders += input.misspelt_borders().size();
    const Rewrite rewrite = format_input(input);
    if (!rewrite.error.empty()) {
      continue;
    }
    EXPECT_EQ(messages_of(rewrite), "") << text;
    const ParsedInput after(rewrite.text, shipped_schema());
    EXPECT_EQ(border_lines(after), border_lines(input)) << text << "--- became\n" << rewrite.text;
  }
  EXPECT_GT(borders, 1000U);
}

TEST(RandomTexts, SayTheSameWhenTheirMisspeltBordersAreMended) {
  std::mt19937 random(7);
  for (int i = 0; i < 3000; ++i) {
    const std::string text = thrown_together(random);
    const ParsedInput input(text, shipped_schema());
    std::vector<TextEdit> edits;
    std::size_t last = 0;
    for (const Diagnostic& diagnostic : diagnose(input)) {
      EXPECT_LE(last, diagnostic.range ? diagnostic.range->begin : 0) << text;
      last = diagnostic.range ? diagnostic.range->begin : 0;
      if (is_of_frame(diagnostic)) {
        edits.push_back(diagnostic.fixes.front().edits.front());
      }
    }
    EXPECT_EQ(edits.size(), input.misspelt_borders().size()) << text;
    const ParsedInput mended(apply_edits(text, edits), shipped_schema());
    EXPECT_EQ(outline_of(mended.data()), outline_of(input.data())) << text;
    EXPECT_THAT(border_lines(mended), IsEmpty()) << text;
  }
}

}  // namespace
}  // namespace kelp::input::bdf
