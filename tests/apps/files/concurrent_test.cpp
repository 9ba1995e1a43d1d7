// Commands that change one file at the same moment.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "support/program.hpp"

namespace kelp::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr int commands = 20;

// Starts all of them, then waits; "status" and "errors" have a line and a file for each.
constexpr const char* script =
    "i=0; while [ $i -lt 20 ]; do\n"
    "  ( \"$KELP_BDF\" set -i --force a.inp scf.key$i=$i 2>../errors$i; echo $? >../status$i ) &\n"
    "  i=$((i + 1)); done; wait\n"
    "i=0; while [ $i -lt 20 ]; do\n"
    "  read -r status <../status$i; echo $i $status; cat ../errors$i >&2; i=$((i + 1)); done\n";

TEST(Concurrent, ChangesAreMadeOrReportedAndNoneIsLost) {
  Program program;
  program.write("a.inp", "$scf\n$end\n");
  const Outcome outcome = program.run_in_shell(script);
  const std::string text = program.read("a.inp");
  std::istringstream lines(outcome.out);
  int made = 0;
  for (int i = 0; i < commands; ++i) {
    int number = -1;
    int status = -1;
    ASSERT_TRUE(lines >> number >> status);
    const std::string change =
        "\nkey" + std::to_string(number) + "\n    " + std::to_string(number) + "\n";
    if (status == 0) {
      EXPECT_THAT(text, HasSubstr(change));
      ++made;
    } else {
      EXPECT_EQ(status, 2);
      EXPECT_THAT(text, Not(HasSubstr(change)));
    }
  }
  EXPECT_GE(made, 1);
  // Only a command that waits in vain for a busy system gives up.
  std::size_t reports = 0;
  std::istringstream errors(outcome.err);
  for (std::string line; std::getline(errors, line);) {
    reports += line.find("kelp-bdf: cannot write 'a.inp': ") == 0 ? 1U : 0U;
  }
  EXPECT_EQ(reports, static_cast<std::size_t>(commands - made)) << outcome.err;
  EXPECT_THAT(names_in(program.folder()), ElementsAre("a.inp"));
}

}  // namespace
}  // namespace kelp::test
