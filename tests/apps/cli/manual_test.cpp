// Help, manual page and examples, which are all made from what the parser of options knows.

#include "cli/manual.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "check/check_fixture.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

Outcome run(std::vector<std::string> arguments) {
  Program program;
  return program.run(std::move(arguments));
}

TEST(Help, OfACommandIsTheSameHoweverItIsAskedFor) {
  EXPECT_EQ(run({"help"}).out, run({"--help"}).out);
  for (const std::vector<std::string>& command :
       {std::vector<std::string>{"check"}, {"set"}, {"schema"}, {"schema", "list"}, {"help"}}) {
    std::vector<std::string> asked = {"help"};
    asked.insert(asked.end(), command.begin(), command.end());
    std::vector<std::string> option = command;
    option.emplace_back("--help");
    const Outcome outcome = run(asked);
    EXPECT_EQ(outcome.out, run(option).out) << command.back();
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
  }
}

TEST(Help, NamesTheCommandAsItIsCalled) {
  EXPECT_THAT(run({"schema", "list", "--help"}).out,
              HasSubstr("\nUsage: kelp-bdf schema list [OPTION]... [MODULE]\n"));
  EXPECT_THAT(run({"set", "--help"}).out,
              HasSubstr("\nUsage: kelp-bdf set [OPTION]... FILE|- [PATH=VALUE...]\n"));
  EXPECT_THAT(run({"--help"}).out, HasSubstr("\nUsage: kelp-bdf COMMAND [OPTION]...\n"));
}

TEST(Help, ShowsChoicesAndDefaultsAndNoTypesOfTheParser) {
  const std::string help = run({"check", "--help"}).out;
  EXPECT_THAT(help, HasSubstr("  --unknown error|warn|ignore\n"));
  EXPECT_THAT(help, HasSubstr("What unknown names are (warn unless given)\n"));
  EXPECT_THAT(help, HasSubstr("  -j, --jobs N "));
  EXPECT_THAT(help, HasSubstr("; only with --fix\n"));
  for (const char* const type : {"TEXT", "INT", "UINT", "{", ":"}) {
    EXPECT_THAT(help, Not(HasSubstr(type + std::string("{")))) << type;
  }
  EXPECT_THAT(help, Not(HasSubstr("TEXT")));
  EXPECT_THAT(help, Not(HasSubstr("UINT")));
}

TEST(Help, FitsIntoATerminal) {
  for (const char* const command :
       {"check", "format", "set", "sweep", "get", "show", "config", "schema"}) {
    const std::string help = run({command, "--help"}).out;
    std::size_t begin = 0;
    while (begin < help.size()) {
      const std::size_t end = help.find('\n', begin);
      // What is to be typed is not cut.
      const bool is_call =
          help.compare(begin, 6, "Usage:") == 0 || help[begin + 2] == 'k' || help[begin + 2] == '-';
      EXPECT_TRUE(is_call || end - begin <= 80) << help.substr(begin, end - begin);
      begin = end + 1;
    }
  }
}

TEST(Help, OfAnUnknownCommandOffersTheNearest) {
  const Outcome outcome = run({"help", "chek"});
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "kelp-bdf: unknown command 'chek'; did you mean 'check'?\n");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(run({"help", "schema", "lst"}).err,
            "kelp-bdf: unknown command 'lst'; did you mean 'list'?\n");
}

// A shell takes the quotes away.
std::vector<std::string> words_of(std::string_view call) {
  std::vector<std::string> words(1);
  bool is_quoted = false;
  for (const char byte : call) {
    if (byte == '\'') {
      is_quoted = !is_quoted;
    } else if (byte == ' ' && !is_quoted) {
      words.emplace_back();
    } else {
      words.back() += byte;
    }
  }
  return words;
}

TEST(Examples, CanBeRun) {
  const std::string water =
      "$compass\nbasis\n def2-svp\ngeometry\n O 0 0 0.1\n H 0 0.7 -0.4\n H 0 -0.7 -0.4\n"
      "end geometry\n$end\n$xuanyuan\n$end\n$scf\nrhf\ncharge\n 0\nspinmulti\n 1\n$end\n";
  for (const app::Example& example : app::examples()) {
    Program program;
    program.write("water.inp", water);
    program.write("runs/b3lyp.inp", "b3lyp/def2-svp\n\ngeometry\nHe 0 0 0\nend geometry\n");
    program.write("list.txt", "water.inp\n");
    program.write("new.inp", water);
    program.write("new.xyz", "1\n\nHe 0 0 0\n");
    program.write("ours.yaml", "schema_version: 1\nmodules: {}\n");
    const Outcome outcome = program.run(words_of(example.call));
    EXPECT_EQ(outcome.err, "") << example.call << outcome.out;
    EXPECT_LE(outcome.status, 1) << example.call;
    EXPECT_THAT(std::string(example.call), StartsWith(std::string(example.command)));
  }
}

TEST(ManualPage, IsTheOneThatIsInstalled) {
  const std::filesystem::path file = test::source_folder() / "docs" / "kelp-bdf.1";
  const std::string page = run({"help", "--man"}).out;
  if (std::getenv("KELP_UPDATE_GOLDEN") != nullptr) {
    write_file(file, page);
  }
  EXPECT_EQ(file_bytes(file), page);
}

TEST(ManualPage, HasAllOptionsOfAllCommands) {
  const std::string page = run({"help", "--man"}).out;
  for (const char* const text : {"\n.B \\-j, \\-\\-jobs N\n", "\n.B \\-\\-files\\-from FILE|\\-\n",
                                 "\n.SS kelp\\-bdf schema list ", "\n.SS kelp\\-bdf config "}) {
    EXPECT_THAT(page, HasSubstr(text));
  }
}

TEST(Colours, AreForcedByAVariableUnlessAnotherForbidsThem) {
  Program program;
  program.write("a.inp", error_input);
  program.set_variable("CLICOLOR_FORCE", "1");
  EXPECT_THAT(program.run({"check", "a.inp"}).out, HasSubstr("\x1B["));
  EXPECT_THAT(program.run({"check", "--color=never", "a.inp"}).out, Not(HasSubstr("\x1B[")));
  program.set_variable("CLICOLOR_FORCE", "0");
  EXPECT_THAT(program.run({"check", "a.inp"}).out, Not(HasSubstr("\x1B[")));
  program.set_variable("CLICOLOR_FORCE", "1");
  program.set_variable("NO_COLOR", "1");
  EXPECT_THAT(program.run({"check", "a.inp"}).out, Not(HasSubstr("\x1B[")));
}

TEST(Colours, OfADiffMarkItsLines) {
  Program program;
  program.write("a.inp", "$scf\nrhf\n$end\n");
  const std::string diff = program.run({"format", "--diff", "--color=always", "a.inp"}).out;
  EXPECT_THAT(diff,
              StartsWith("\x1B[1m--- a/a.inp\x1B[0m\n\x1B[1m+++ b/a.inp\x1B[0m\n\x1B[36m@@ "));
  EXPECT_THAT(diff, HasSubstr("\n\x1B[31m-rhf\x1B[0m\n\x1B[32m+  rhf\x1B[0m\n"));
  EXPECT_THAT(program.run({"format", "--diff", "a.inp"}).out, Not(HasSubstr("\x1B[")));
}

}  // namespace
}  // namespace kelp::test
