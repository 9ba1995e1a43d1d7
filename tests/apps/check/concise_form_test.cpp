// One line for each finding, for grep and editors.

#include <string>

#include "check/check_fixture.hpp"

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
