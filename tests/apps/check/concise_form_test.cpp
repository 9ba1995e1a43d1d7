// One line for each finding, for grep and editors.

#include <algorithm>
#include <sstream>
#include <string>

#include "check/check_fixture.hpp"
#include "kelp/input/bdf.hpp"

namespace kelp::test {
namespace {

using ConciseForm = Check;

TEST_F(ConciseForm, HasALineForEachFindingAndNothingElse) {
  const Outcome outcome =
      check("$scf\n  ocupied\n charge\n  one\n$end\n$bdfopt\n$end\n$bdfopt\n$end\n",
            {"--format", "concise"});
  EXPECT_EQ(outcome.out,
            "a.inp:2:3: warning: Unknown BDF module entry 'scf.ocupied' was preserved raw. "
            "[bdf.unknown_entry]\n"
            "a.inp:4:3: error: BDF module entry 'scf.charge' has an invalid value 'one'. "
            "[bdf.invalid_module_value]\n"
            "a.inp:8:1: warning: BDF module '$bdfopt' is repeated although the schema marks it "
            "singular. [bdf.duplicate_module]\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(ConciseForm, GivesTheLibrarysMessagesWordForWordInItsOrder) {
  using namespace kelp::input::bdf;
  const std::string input =
      "charge=x\nGeometry\nEnd Geometry\n$scff\n$end\n$scf\nocupied\nalpha\n "
      "x\nrhf\nuhf\ncharge\ncharge\n"
      "$bdfopt\nscan\n 1\nneb-block\ncrud\ncrude\ncrude\nnimage\n 0\n$end\n$bdfopt\n$end\n"
      "$compass\nbasis-block\n";
  const InputSchema schema = InputSchema::from_yaml(test_schema);
  ValidationOptions options;
  options.report_unknown_modules = true;
  options.report_unknown_entries = true;
  std::string expected;
  for (const ValidationIssue& issue :
       schema.validate(BDFParser::parse_string(input, schema, {}).data, options)) {
    expected += issue.severity == ValidationSeverity::Error ? "error: " : "warning: ";
    expected += issue.message + " [" + issue.code + "]\n";
  }
  std::istringstream lines(check(input, {"--format=concise"}).out);
  std::string given;
  for (std::string line; std::getline(lines, line);) {
    given += line.substr(line.find(": ") + 2) + "\n";
  }
  EXPECT_EQ(given, expected);
  EXPECT_GT(std::count(given.begin(), given.end(), '\n'), 14);
}

TEST_F(ConciseForm, PutsAFindingAboutTheWholeFileAtItsBeginning) {
  const Outcome outcome = check(" \n\n", {"--format=concise"});
  EXPECT_EQ(outcome.out, "a.inp:1:1: error: BDF input is empty [bdf.empty_input]\n");
}

TEST_F(ConciseForm, IsSilentWhenAllIsWell) {
  const Outcome outcome = check(good_input, {"--format=concise"});
  EXPECT_EQ(outcome.out + outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(ConciseForm, DoesNotChangeTheStatus) {
  for (const std::string& input : {good_input, warning_input, error_input, std::string()}) {
    const int human = check(input).status;
    EXPECT_EQ(check(input, {"--format=concise"}).status, human) << input;
    EXPECT_EQ(check(input, {"--format=concise", "--strict"}).status,
              check(input, {"--strict"}).status)
        << input;
  }
}

TEST_F(ConciseForm, NeverHasColours) {
  const Outcome outcome = check(error_input, {"--format=concise", "--color=always"});
  EXPECT_EQ(outcome.out.find('\x1B'), std::string::npos) << outcome.out;
}

}  // namespace
}  // namespace kelp::test
