// The line that tells on a terminal how far a check is.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/program.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

constexpr const char* input = "$scf\nocupied\n$end\n";

// The second file is a pipe that is written once the line was seen, or after a minute.
Outcome check_until_progress(Program& program, const std::string& options) {
  program.write("a.inp", input);
  return program.run_in_shell(
      "command -v script >/dev/null || exit 77; mkfifo p.inp\n"
      "(i=0; while ! grep -q 'of 2 files' out 2>/dev/null && [ $i -lt 600 ]; do\n"
      "  sleep 0.1; i=$((i + 1)); done; cat a.inp) >p.inp &\n"
      "TERM=xterm script -qefc '\"$KELP_BDF\" check --color=never --format=concise " +
      options + " a.inp p.inp' out </dev/null >/dev/null; cat out");
}

TEST(ProgressLine, IsShownOnATerminalAndTakenAway) {
  Program program;
  const Outcome outcome = check_until_progress(program, "-j2");
  if (outcome.status == 77) {
    GTEST_SKIP() << "there is no terminal to be had";
  }
  EXPECT_THAT(outcome.out, HasSubstr("\r\x1B[K1 of 2 files, "));
  EXPECT_THAT(outcome.out, HasSubstr(" left"));
  EXPECT_THAT(outcome.out, HasSubstr("\r\x1B[Kp.inp:2:1: warning: "));
}

// The check takes longer than it would need to show the line.
TEST(ProgressLine, IsForTerminalsAlone) {
  Program program;
  program.write("a.inp", input);
  const Outcome outcome = program.run_in_shell(
      "mkfifo p.inp; (sleep 0.8; cat a.inp) >p.inp &\n"
      "\"$KELP_BDF\" check -j2 --format=concise a.inp p.inp");
  EXPECT_THAT(outcome.out, Not(HasSubstr("files")));
  EXPECT_EQ(outcome.err, "");
}

}  // namespace
}  // namespace kelp::test
