// Where the comment goes that allows a finding.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "kelp/input/bdf/allowance.hpp"
#include "support/files.hpp"
#include "support/published_inputs.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

std::string allowed(const std::string& text, std::string_view code) {
  const ParsedInput input(text, shipped_schema());
  const auto findings = diagnose(input);
  const auto found = std::find_if(findings.begin(), findings.end(),
                                  [code](const Diagnostic& item) { return item.code == code; });
  if (found == findings.end()) {
    return "no such finding";
  }
  const auto edit = allowing_edit(input, *found);
  return edit ? apply_edits(text, {*edit}) : "none";
}

TEST(AllowingEdit, StandsBehindTheLineAtFault) {
  EXPECT_EQ(allowed("$scf\r\n  nosuch\r\n$end\r\n", "bdf.unknown_entry"),
            "$scf\r\n  nosuch  # kelp-bdf: allow bdf.unknown_entry\r\n$end\r\n");
  EXPECT_EQ(allowed("$scf\n  charge\n    1.5\n$end\n", "bdf.invalid_module_value"),
            "$scf\n  charge\n    1.5  # kelp-bdf: allow bdf.invalid_module_value\n$end\n");
}

TEST(AllowingEdit, StandsAboveALineThatHasAComment) {
  EXPECT_EQ(allowed("$scf\n  nosuch  # mine\n$end\n", "bdf.unknown_entry"),
            "$scf\n  # kelp-bdf: allow bdf.unknown_entry\n  nosuch  # mine\n$end\n");
}

TEST(AllowingEdit, OfAnInputAsAWholeStandsAtItsEnd) {
  const std::string text = "#! a\nhf/sto-3g";
  EXPECT_EQ(allowed(text, "bdf.missing_geometry"),
            text + "\n# kelp-bdf: allow-file bdf.missing_geometry\n");
}

TEST(AllowingEdit, IsUnsetForAFindingThatIsNotThere) {
  Diagnostic other;
  other.code = "bdf.unknown_module";
  EXPECT_FALSE(allowing_edit(ParsedInput("$scf\n$end\n", shipped_schema()), other).has_value());
}

TEST(AllowingEdit, AllowsEveryFindingOfPublishedInputsAndNoOther) {
  for (const auto& file : test::published_inputs()) {
    const std::string text = test::file_bytes(file);
    const ParsedInput input(text, shipped_schema());
    const auto findings = diagnose(input);
    for (const Diagnostic& finding : findings) {
      if (finding.code.starts_with("comment.")) {
        continue;
      }
      const auto edit = allowing_edit(input, finding);
      ASSERT_TRUE(edit.has_value()) << file << ' ' << finding.code;
      const auto left = diagnose(ParsedInput(apply_edits(text, {*edit}), shipped_schema()));
      EXPECT_LT(left.size(), findings.size()) << file << ' ' << finding.code;
    }
  }
}

}  // namespace
}  // namespace kelp::input::bdf
