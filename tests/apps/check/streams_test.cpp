// What goes to which stream, and what happens when a stream fails.

#include <filesystem>
#include <string>

#include "check/check_fixture.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class Streams : public Check {
 protected:
  Outcome check_input(std::string_view text, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "check");
    return program.run(std::move(arguments), text);
  }
};

TEST_F(Streams, ADashIsStandardInput) {
  const Outcome outcome = check_input(warning_input, {"--format=concise", "-"});
  EXPECT_THAT(outcome.out, StartsWith("<stdin>:2:1: warning: "));
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(Streams, StandardInputCanBeGivenAName) {
  const std::string name = "a \"b\" c\\";
  const Outcome outcome =
      check_input(warning_input, {"--stdin-filename", name, "--format=concise", "-"});
  EXPECT_THAT(outcome.out, StartsWith(name + ":2:1: warning: "));
}

TEST_F(Streams, StandardInputAndFilesKeepTheirOrder) {
  program.write("a.inp", warning_input);
  const Outcome outcome = check_input(error_input, {"--format=concise", "a.inp", "-"});
  EXPECT_THAT(outcome.out, StartsWith("a.inp:2:1: warning"));
  EXPECT_THAT(outcome.out, HasSubstr("\n<stdin>:3:2: error"));
}

TEST_F(Streams, StandardInputIsReadByteForByte) {
  const Outcome outcome =
      check_input("$scf\r\n\x1A\r\nocupied\r\n$end\r\n", {"--format=concise", "-"});
  EXPECT_THAT(outcome.out, HasSubstr("<stdin>:2:1: warning"));
  EXPECT_THAT(outcome.out, HasSubstr("<stdin>:3:1: warning"));
}

TEST_F(Streams, AreSilentWhenAllIsWell) {
  program.write("a.inp", good_input);
  program.write("b.inp", good_input);
  const Outcome outcome = check_named({}, {"a.inp", "b.inp"});
  EXPECT_EQ(outcome.out + outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(Streams, QuietLeavesOnlyTheStatusAndWhatFailed) {
  for (const char* const option : {"-q", "--quiet"}) {
    const Outcome outcome = check(error_input, {option});
    EXPECT_EQ(outcome.out + outcome.err, "") << option;
    EXPECT_EQ(outcome.status, 1) << option;
  }
  const Outcome missing = check_named({"-q"}, {"missing.inp"});
  EXPECT_EQ(missing.out, "");
  EXPECT_THAT(missing.err, StartsWith("kelp-bdf: cannot read 'missing.inp': "));
  EXPECT_EQ(missing.status, 2);
}

TEST_F(Streams, NoEscapeSequenceOfAnInputGetsThrough) {
  const std::string hostile = "\x1B]0;title\x07\x1B[2J\x9B\xC2\x9B\x08";
  const std::string input = "$" + hostile + "\n" + hostile + "x\n$end\n$scf\ncharge\n" + hostile +
                            "\n" + hostile + "\n$end\n";
  for (const char* const format : {"--format=human", "--format=concise"}) {
    const Outcome outcome = check(input, {format});
    EXPECT_EQ(outcome.status, 1);
    for (const char byte : outcome.out) {
      EXPECT_TRUE(byte == '\n' || static_cast<unsigned char>(byte) >= 0x20) << outcome.out;
      EXPECT_NE(byte, '\x7F');
    }
    EXPECT_EQ(outcome.out.find("\xC2\x9B"), std::string::npos);
    EXPECT_THAT(outcome.out, HasSubstr("\\x1b]0;title"));
  }
}

TEST_F(Streams, AreNotFloodedByALineWithoutEnd) {
  const std::string word(20'000'000, 'x');
  const std::string input = "$" + word + "\n" + word + "\n$end\n$scf\n" + word + "\ncharge\n" +
                            word + "\n$end\nwho knows " + word + "\n";
  for (const char* const format : {"--format=human", "--format=concise"}) {
    const Outcome outcome = check(input, {format});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_LT(outcome.out.size(), 20'000U);
    EXPECT_THAT(outcome.out, HasSubstr("bdf.unknown_module"));
    EXPECT_THAT(outcome.out, HasSubstr("xxx' was preserved raw."));
    EXPECT_THAT(outcome.out, HasSubstr("bdf.invalid_module_value"));
  }
}

#ifndef _WIN32

TEST_F(Streams, AReaderThatGoesAwayEndsTheProgramQuietly) {
  std::string input = "$scf\n";
  for (int i = 0; i < 20'000; ++i) {
    input += "ocupied\n";
  }
  program.write("a.inp", input + "$end\n");
  for (const std::string ignore : {"", "trap '' PIPE; "}) {
    const Outcome outcome = program.run_in_shell(
        ignore + "(\"$KELP_BDF\" check --format=concise a.inp; echo $? >status) | head -n 1");
    EXPECT_THAT(outcome.out, HasSubstr("a.inp:2:1: warning"));
    EXPECT_EQ(outcome.err, "") << ignore;
    EXPECT_EQ(program.read("status"), ignore.empty() ? "141\n" : "0\n");
  }
}

TEST_F(Streams, AFullDeviceIsAnError) {
  if (!std::filesystem::exists("/dev/full")) {
    GTEST_SKIP() << "no /dev/full here";
  }
  program.write("a.inp", warning_input);
  program.write("good.inp", good_input);
  for (const char* const arguments : {"check a.inp", "--help", "--version", "check --help"}) {
    const Outcome outcome =
        program.run_in_shell("\"$KELP_BDF\" " + std::string(arguments) + " >/dev/full");
    EXPECT_EQ(outcome.err, "kelp-bdf: cannot write to standard output\n") << arguments;
    EXPECT_EQ(outcome.status, 2) << arguments;
  }
  const Outcome silent = program.run_in_shell("\"$KELP_BDF\" check good.inp >/dev/full");
  EXPECT_EQ(silent.err, "");
  EXPECT_EQ(silent.status, 0);
}

TEST_F(Streams, AnOutputThatIsClosedIsAnError) {
  program.write("a.inp", warning_input);
  const Outcome outcome = program.run_in_shell("\"$KELP_BDF\" check a.inp >&-");
  EXPECT_EQ(outcome.err, "kelp-bdf: cannot write to standard output\n");
  EXPECT_EQ(outcome.status, 2);
}

TEST_F(Streams, AnInputThatIsAFolderIsAnError) {
  const Outcome outcome = program.run_in_shell("\"$KELP_BDF\" check - <.");
  EXPECT_THAT(outcome.err, StartsWith("kelp-bdf: cannot read standard input"));
  EXPECT_EQ(outcome.status, 2);
}

TEST_F(Streams, FindingsAndFailuresKeepTheirOrderInOnePlace) {
  program.write("a.inp", warning_input);
  program.write("c.inp", warning_input);
  const Outcome outcome =
      program.run_in_shell("\"$KELP_BDF\" check --format=concise a.inp b.inp c.inp 2>&1");
  const std::size_t first = outcome.out.find("a.inp:");
  const std::size_t failure = outcome.out.find("'b.inp'");
  const std::size_t last = outcome.out.find("c.inp:");
  EXPECT_LT(first, failure) << outcome.out;
  EXPECT_LT(failure, last) << outcome.out;
}

#endif

}  // namespace
}  // namespace kelp::test
