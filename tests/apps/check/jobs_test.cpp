// Files that are checked at once are reported as if they were checked one after the other.

#include <cstddef>
#include <string>
#include <vector>

#include "check/check_fixture.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;

class Jobs : public Check {
 protected:
  // Some files with nothing, a few and many findings, and what is no file at all.
  Jobs() {
    for (int i = 0; i < files; ++i) {
      const std::string name = name_of(i);
      names.push_back(name);
      if (i % 17 == 16) {
        continue;
      }
      std::string text = i % 3 == 0 ? good_input : i % 3 == 1 ? warning_input : error_input;
      for (int repeat = 0; i % 41 == 40 && repeat < 700; ++repeat) {
        text += warning_input;
      }
      program.write(name, text);
    }
    names.emplace_back("empty");
    program.write("empty/readme.txt", "");
    names.emplace_back("-");
  }

  static std::string name_of(int number) { return "f" + std::to_string(number) + ".inp"; }

  Outcome check_with(std::string jobs, const std::vector<std::string>& options) {
    std::vector<std::string> arguments = {"check", std::move(jobs)};
    arguments.insert(arguments.end(), options.begin(), options.end());
    arguments.insert(arguments.end(), names.begin(), names.end());
    return program.run(arguments, warning_input);
  }

  static constexpr int files = 60;
  std::vector<std::string> names;
};

TEST_F(Jobs, ChangeNothingButTheTime) {
  for (const std::vector<std::string>& options : {std::vector<std::string>{},
                                                  {"--format=concise"},
                                                  {"--format=human", "--color=always"},
                                                  {"--format=json"},
                                                  {"--format=jsonl"},
                                                  {"--format=sarif"},
                                                  {"--format=github"},
                                                  {"--format=junit"},
                                                  {"--format=json", "--max-findings=20"},
                                                  {"--max-findings=50"},
                                                  {"--max-findings=50", "--format=concise"},
                                                  {"--strict", "--deny=bdf.unknown_*"},
                                                  {"--fix", "--diff"},
                                                  {"--quiet"}}) {
    const Outcome alone = check_with("-j1", options);
    EXPECT_THAT(alone.err, HasSubstr("cannot read 'f16.inp'"));
    for (const char* const jobs : {"-j2", "--jobs=70"}) {
      const Outcome together = check_with(jobs, options);
      EXPECT_EQ(together.out, alone.out) << jobs;
      EXPECT_EQ(together.err, alone.err) << jobs;
      EXPECT_EQ(together.status, alone.status) << jobs;
    }
  }
}

TEST_F(Jobs, WithoutTheOptionTellTheSame) {
  EXPECT_EQ(check_with("--color=auto", {}).out, check_with("-j1", {}).out);
}

TEST_F(Jobs, FixEachFileOnce) {
  names = {"a.inp", "b.inp", "a.inp"};
  for (const char* const jobs : {"-j1", "-j4"}) {
    program.write("a.inp", "$scf\nocupied\n 1\n$edn\n");
    program.write("b.inp", "$scf\nrhf\n$edn\n");
    const Outcome outcome = check_with(jobs, {"--fix"});
    EXPECT_THAT(outcome.out, HasSubstr("fixed")) << jobs;
    EXPECT_EQ(program.read("b.inp"), "$scf\nrhf\n$end\n") << jobs;
    EXPECT_EQ(outcome.status, 0) << jobs;
  }
}

#ifndef _WIN32

TEST_F(Jobs, KeepFindingsAndFailuresInOrderInOnePlace) {
  std::string list;
  for (const std::string& name : names) {
    list += name == "-" ? "" : " " + name;
  }
  const auto all = [&](const std::string& jobs) {
    return program.run_in_shell("\"$KELP_BDF\" check --format=concise " + jobs + list + " 2>&1")
        .out;
  };
  const std::string alone = all("-j1");
  EXPECT_LT(alone.find("'f16.inp'"), alone.find("f17.inp"));
  EXPECT_EQ(all("-j2"), alone);
  EXPECT_EQ(all("-j9"), alone);
}

TEST_F(Jobs, EndWhenTheReaderGoesAway) {
  const Outcome outcome = program.run_in_shell(
      "trap '' PIPE; (\"$KELP_BDF\" check -j4 --format=concise f*.inp 2>/dev/null; echo $? >status)"
      " | head -n 1");
  EXPECT_THAT(outcome.out, ::testing::StartsWith("f1.inp:2:1: warning"));
  EXPECT_EQ(outcome.err, "");
}

// Where no thread can be started the work is done without.
TEST_F(Jobs, AreFewerWhereTheSystemHasNoRoomForThreads) {
  const Outcome outcome = program.run_in_shell(
      "ulimit -v 400000 || exit 77; \"$KELP_BDF\" --version >/dev/null 2>&1 || exit 77\n"
      "\"$KELP_BDF\" check -j500 --format=concise f1.inp f2.inp f3.inp f4.inp");
  if (outcome.status == 77) {
    GTEST_SKIP() << "this build needs more memory than that";
  }
  EXPECT_THAT(outcome.out, HasSubstr("f4.inp:2:1: warning"));
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 1);
}

#endif

}  // namespace
}  // namespace kelp::test
