// What people read holds nothing that a terminal obeys: names of files wherever they are printed,
// and the text of inputs on a terminal. Files and pipes get that text as it is.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/program.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;

constexpr const char* odd_name = "a\nb\x1B[31m\u202E\u200B\u009B\xFF.inp";
constexpr const char* shown_name = "a\\nb\\x1b[31m\\u202e\\u200b\\u009b\\xff.inp";
constexpr const char* rough = "$scf\ncharge # \x1B[31m\u202E\n0\n$end\n";

void expect_only_lines_that_were_meant(const std::string& text) {
  for (const char* const forbidden : {"\x1B", "\u202E", "\u200B", "\u009B", "\xFF", "\nb\\x1b"}) {
    EXPECT_EQ(text.find(forbidden), std::string::npos) << text;
  }
}

TEST(ShownNames, ForgeNoLineInAnyForm) {
  Program program;
  program.write(odd_name, "$scf\ncharge\none\n$end\n");
  const std::string name = odd_name;
  const std::string missing = "no" + name;
  const std::vector<std::vector<std::string>> runs = {
      {"check", "--format=concise", name, missing},
      {"check", name, missing},
      {"format", "--check", name, missing},
      {"show", name, missing},
      {"get", "scf.charge", name, name, missing},
      {"set", name, "-o", "missing/" + name, "scf.charge=1"},
      {"schema", "path", "--schema", name},
      {"--version", "--schema", name},
  };
  for (const auto& arguments : runs) {
    const Outcome outcome = program.run(arguments);
    EXPECT_THAT(outcome.out + outcome.err, HasSubstr("\\x1b[31m")) << arguments.front();
    expect_only_lines_that_were_meant(outcome.out + outcome.err);
  }
  EXPECT_THAT(program.run({"check", "--format=concise", name}).out,
              ::testing::StartsWith(std::string(shown_name) + ":3:1: error: "));
}

// Prints what the command writes to a terminal.
Outcome run_on_terminal(Program& program, const std::string& arguments) {
  return program.run_in_shell(
      "command -v script >/dev/null || exit 77; script -qec '\"$KELP_BDF\" " + arguments +
      "' /dev/null </dev/null");
}

// A diff is for a program, which has a way to quote line ends.
TEST(ShownNames, ForgeNoLineOfADiff) {
  Program program;
  program.write(odd_name, rough);
  EXPECT_THAT(program.run({"format", "--diff", odd_name}).out,
              ::testing::StartsWith("--- \"a/a\\012b\\033[31m\u202E\u200B\u009B\xFF.inp\"\n+++ "));
}

TEST(ShownTexts, OnATerminalHoldNothingThatItObeys) {
  Program program;
  program.write("a.inp", rough);
  for (const char* const arguments :
       {"format --diff --color=never a.inp", "format a.inp",
        "set --diff --color=never a.inp scf.charge=1", "check --color=never a.inp", "show a.inp",
        "show --json a.inp", "get scf.charge --json a.inp"}) {
    const Outcome outcome = run_on_terminal(program, arguments);
    if (outcome.status == 77) {
      GTEST_SKIP() << "there is no terminal to be had";
    }
    EXPECT_EQ(outcome.out.find('\x1B'), std::string::npos) << outcome.out;
    EXPECT_EQ(outcome.out.find("\u202E"), std::string::npos) << outcome.out;
  }
  EXPECT_THAT(run_on_terminal(program, "format --diff --color=never a.inp").out,
              HasSubstr("-charge # \\x1b[31m\\u202e\r\n"));
}

TEST(ShownTexts, InAPipeAreAsTheyAre) {
  Program program;
  program.write("a.inp", rough);
  EXPECT_THAT(program.run({"format", "--diff", "a.inp"}).out,
              HasSubstr("-charge # \x1B[31m\u202E\n"));
  EXPECT_THAT(program.run({"format", "a.inp"}).out, HasSubstr("\x1B[31m\u202E\n"));
}

}  // namespace
}  // namespace kelp::test
