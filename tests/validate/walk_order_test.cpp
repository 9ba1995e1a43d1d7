// The order of the findings over documents with many of them.

#include <string>
#include <string_view>

#include "validate/findings.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::ElementsAre;

const InputSchema& schema() {
  static const InputSchema schema = schema_from(R"(
easy_input:
  methods: [hf]
  control_keywords: {charge: {value_type: integer}, mult: {value_type: integer}}
modules:
  m:
    entries:
      number: {value_type: integer, requires: [flag, mode], conflicts: [block, nest]}
      flag: {kind: flag}
      mode: {}
      block: {kind: block, terminator: endblock, conflicts: number}
      nest:
        kind: nested_block
        terminator: endnest
        requires: flag
        entries:
          cnumber: {value_type: integer, requires: cflag, conflicts: cmode}
          cflag: {kind: flag}
          cmode: {}
  n: {}
)");
  return schema;
}

constexpr std::string_view text =
    "charge=x odd\n"  // 1
    "mult=y\n"
    "Geometry\n"
    "End Geometry\n"
    "%ls\n"  // 5
    "$n\n"
    "odd\n"
    "$what\n"
    "$m\n"
    "number\n"  // 10
    " x\n"
    "nest\n"
    "cnumber\n"
    " y\n"
    "codd\n"  // 15
    "cmode\n"
    " 1\n"
    "cnumber\n"
    " 2\n"
    "endnest\n"  // 20
    "number\n"
    "odd\n"
    "block\n"
    "z\n"
    "$n\n"  // 25
    "$end\n"
    "$m\n"
    "$end\n";

/// Writes findings down as `line code`, `-` for no place, `!` behind errors.
Findings short_findings(const ValidationOptions& options) {
  Findings texts;
  const BDFData data = BDFParser::parse_string(text, schema(), {true, false, 0, false}).data;
  for (const ValidationIssue& issue : schema().validate(data, options)) {
    const std::string place = issue.location ? std::to_string(issue.location->line) : "-";
    const bool error = issue.severity == ValidationSeverity::Error;
    texts.push_back(place + " " + issue.code.substr(4) + (error ? "!" : ""));
  }
  return texts;
}

TEST(Walk, GoesThroughTheHeaderTheModulesWithTheirEntriesAndThenTheDuplicateModules) {
  const Findings expected = {
      "1 invalid_easy_value!",      "2 invalid_easy_value!",
      "- missing_method!",          "3 missing_geometry!",
      "6 unterminated_module!",     "7 unknown_entry!",
      "8 unknown_module!",          "8 unterminated_module!",
      "9 unterminated_module!",     "10 invalid_module_value!",
      "10 missing_required_entry!", "10 missing_required_entry!",
      "10 conflicting_entries!",    "10 conflicting_entries!",
      "13 invalid_module_value!",   "13 missing_required_entry!",
      "13 conflicting_entries!",    "15 unknown_nested_entry!",
      "18 missing_required_entry!", "18 conflicting_entries!",
      "12 duplicate_entry",         "12 missing_required_entry!",
      "21 invalid_module_value!",   "21 missing_required_entry!",
      "21 missing_required_entry!", "21 conflicting_entries!",
      "21 conflicting_entries!",    "23 unterminated_entry_block!",
      "23 conflicting_entries!",    "9 duplicate_entry",
      "- duplicate_module",         "- duplicate_module",
  };
  EXPECT_EQ(short_findings(unknown_names_as_errors()), expected);
}

TEST(Walk, LeavesOutUnknownNamesWhereNobodyAsksForThem) {
  Findings expected;
  for (const std::string& finding : short_findings(unknown_names_as_errors())) {
    if (finding.find("unknown") == std::string::npos) {
      expected.push_back(finding);
    }
  }
  EXPECT_EQ(short_findings({}), expected);
}

TEST(Walk, HasUnknownNamesInTheSamePlacesAsWarnings) {
  Findings expected = short_findings(unknown_names_as_errors());
  for (std::string& finding : expected) {
    if (finding.find("unknown") != std::string::npos) {
      finding.pop_back();
    }
  }
  EXPECT_EQ(short_findings(unknown_names_as_warnings()), expected);
}

TEST(Walk, IsRepeatable) {
  EXPECT_EQ(short_findings(unknown_names_as_errors()), short_findings(unknown_names_as_errors()));
}

TEST(Walk, PassedOnByTheParserKeepsTheOrderOfWarningsAndNamesTheFirstError) {
  const ParseResult result = BDFParser::parse_string(text, schema(), {true, true, 1, false});
  EXPECT_EQ(result.error, "BDF easy keyword 'charge' has an invalid value 'x'.");
  std::vector<std::string> codes;
  for (const ParseWarning& warning : result.data.warnings) {
    codes.push_back(warning.code);
  }
  EXPECT_THAT(codes,
              ElementsAre("bdf.unknown_entry", "bdf.unknown_module", "bdf.unknown_nested_entry",
                          "bdf.duplicate_entry", "bdf.duplicate_entry", "bdf.duplicate_module",
                          "bdf.duplicate_module"));
}

}  // namespace
}  // namespace kelp::input::bdf
