// What a caller wishes about codes.

#include "diagnose/diagnosing.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A warning and an error.
constexpr std::string_view faulty = "$scf\nocupied\ncharge\n  one\n$end\n";

std::vector<std::string> graded(std::string_view text, const std::vector<SeverityRule>& rules) {
  DiagnoseOptions options;
  options.rules = rules;
  std::vector<std::string> found;
  for (const Diagnostic& diagnostic : diagnose(parse(text), options)) {
    found.push_back(std::string(to_string(diagnostic.severity)) + " " + diagnostic.code);
  }
  return found;
}

constexpr auto allow = SeverityAction::Allow;
constexpr auto warn = SeverityAction::Warn;
constexpr auto deny = SeverityAction::Deny;

TEST(SeverityRules, LeaveOutRaiseAndLowerWhatTheyMean) {
  EXPECT_THAT(graded(faulty, {}),
              ElementsAre("warning bdf.unknown_entry", "error bdf.invalid_module_value"));
  EXPECT_THAT(graded(faulty, {{"bdf.unknown_entry", allow}}),
              ElementsAre("error bdf.invalid_module_value"));
  EXPECT_THAT(graded(faulty, {{"bdf.unknown_entry", deny}}),
              ElementsAre("error bdf.unknown_entry", "error bdf.invalid_module_value"));
  EXPECT_THAT(graded(faulty, {{"bdf.invalid_module_value", warn}}),
              ElementsAre("warning bdf.unknown_entry", "warning bdf.invalid_module_value"));
}

TEST(SeverityRules, OfSeveralTheLastOneCounts) {
  EXPECT_THAT(graded(faulty, {{"bdf.*", allow}, {"bdf.unknown_entry", deny}}),
              ElementsAre("error bdf.unknown_entry"));
  EXPECT_THAT(graded(faulty, {{"bdf.unknown_entry", deny}, {"bdf.*", allow}}), IsEmpty());
  EXPECT_THAT(graded(faulty, {{"*", allow}, {"BDF.Unknown_*", warn}}),
              ElementsAre("warning bdf.unknown_entry"));
}

TEST(SeverityRules, ReachTextsThatCannotBeReadAndEmptyOnes) {
  EXPECT_THAT(graded("$scf\r$end\r", {{"text.*", warn}}), ElementsAre("warning text.line_ends"));
  EXPECT_THAT(graded("\n", {{"bdf.empty_input", warn}}), ElementsAre("warning bdf.empty_input"));
}

TEST(SeverityRules, ReachWhatIsSaidOfComments) {
  const std::string_view text = "# kelp-bdf: allow bdf.unknown_entry\n$scf\nrhf\n$end\n";
  EXPECT_THAT(graded(text, {}), ElementsAre("note comment.unused_allowance"));
  EXPECT_THAT(graded(text, {{"comment.*", deny}}), ElementsAre("error comment.unused_allowance"));
  EXPECT_THAT(graded(text, {{"comment.unused_allowance", allow}}), IsEmpty());
}

TEST(SeverityRules, LeaveTheRestOfAFindingAsItIs) {
  DiagnoseOptions options;
  options.rules = {{"*", SeverityAction::Deny}};
  const ParsedInput input = parse(faulty);
  std::vector<std::string> expected = texts_of(input);
  ASSERT_TRUE(expected.front().starts_with("warning"));
  expected.front().replace(0, std::string_view("warning").size(), "error");
  EXPECT_EQ(texts_of(input, options), expected);
}

}  // namespace
}  // namespace kelp::input::bdf
