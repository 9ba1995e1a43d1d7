// How many findings there are of each code and in each file.

#include <string>

#include "check/check_fixture.hpp"

namespace kelp::test {
namespace {

using Summary = Check;

TEST_F(Summary, TellsHowManyFindingsThereAreOfEachCodeAndInEachFile) {
  program.write("a.inp", warning_input + warning_input + error_input);
  program.write("b.inp", good_input);
  program.write("c.inp", warning_input);
  const Outcome outcome = check_named({"--summary"}, {"a.inp", "b.inp", "c.inp"});
  EXPECT_EQ(outcome.out,
            "error    bdf.invalid_module_value        1  in 1 file\n"
            "warning  bdf.unknown_entry               3  in 2 files\n"
            "\n"
            " errors  warnings    notes  file\n"
            "      1         2        0  a.inp\n"
            "      0         1        0  c.inp\n"
            "\n"
            "1 error and 3 warnings in 2 files (3 checked)\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(Summary, HasNoLineAtTheEndInTheConciseForm) {
  const Outcome outcome = check(warning_input, {"--summary", "--format=concise"});
  EXPECT_EQ(outcome.out,
            "warning  bdf.unknown_entry        1  in 1 file\n"
            "\n"
            " errors  warnings    notes  file\n"
            "      0         1        0  a.inp\n"
            "\n");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(Summary, OfNothingIsSilent) {
  const Outcome outcome = check(good_input, {"--summary"});
  EXPECT_EQ(outcome.out + outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(Summary, IsTheSameForAnyNumberOfJobs) {
  std::vector<std::string> names;
  for (int i = 0; i < 60; ++i) {
    names.push_back("f" + std::to_string(i) + ".inp");
    program.write(names.back(), i % 3 == 0 ? error_input + warning_input : warning_input);
  }
  const Outcome alone = check_named({"--summary", "-j1"}, names);
  EXPECT_EQ(check_named({"--summary", "-j5"}, names).out, alone.out);
}

}  // namespace
}  // namespace kelp::test
