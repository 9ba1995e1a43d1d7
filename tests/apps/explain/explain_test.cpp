#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/program.hpp"

namespace kelp::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(ExplainCommand, AnUnknownNameIsAFindingAndSaysWhatMayHaveBeenMeant) {
  Program program;
  struct Row {
    const char* name;
    const char* error;
  };
  for (const Row& row : {
           Row{"scf.chrage",
               "kelp-bdf: nothing is called 'scf.chrage'; did you mean 'scf.charge'?\n"},
           Row{"easy.spinmlti",
               "kelp-bdf: nothing is called 'easy.spinmlti'; did you mean 'easy.spinmulti'?\n"},
           Row{"bdf.unknown_entri",
               "kelp-bdf: nothing is called 'bdf.unknown_entri'; did you mean "
               "'bdf.unknown_entry'?\n"},
           Row{"compas", "kelp-bdf: nothing is called 'compas'; did you mean 'compass'?\n"},
       }) {
    const Outcome outcome = program.run({"explain", row.name});
    EXPECT_EQ(outcome.status, 1) << row.name;
    EXPECT_EQ(outcome.out, "") << row.name;
    EXPECT_EQ(outcome.err, row.error);
  }
}

TEST(ExplainCommand, PrintsTheExplanation) {
  Program program;
  const Outcome outcome = program.run({"explain", "scf.charge"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(outcome.out, HasSubstr("scf.charge: an entry of $scf\n"));
}

TEST(ExplainCommand, PartsTheMeaningsOfANameByABlankLine) {
  Program program;
  program.write("s.yaml",
                "schema_version: 1\nmodules: {m: {entries: {a: {kind: flag}}}, n: {entries: {a: "
                "{kind: flag}}}}\n");
  EXPECT_EQ(program.run({"explain", "a", "--schema", "s.yaml"}).out,
            "m.a: an entry of $m\n\n  The keyword alone; it has no value.\n\n    a\n"
            "\n"
            "n.a: an entry of $n\n\n  The keyword alone; it has no value.\n\n    a\n");
}

TEST(ExplainCommand, ShowsHowToListTheEntriesOfAModule) {
  Program program;
  program.write("s.yaml", "schema_version: 1\nmodules: {m: {entries: {a: , b: }}}\n");
  EXPECT_EQ(program.run({"explain", "$M", "--schema", "s.yaml"}).out,
            "m: a module\n"
            "\n"
            "  entries     2; 'kelp-bdf schema list m' lists them\n"
            "  repeatable  no, once in an input\n"
            "\n"
            "    $m\n"
            "      a\n"
            "      ...\n"
            "    $end\n");
}

TEST(ExplainCommand, SpeaksTheLanguageAskedForOrElseThatOfTheEnvironment) {
  const char* const english = "scf: a module\n\n  Orbitals.\n";
  const char* const chinese = "scf: a module\n\n  轨道。\n";
  struct Row {
    std::vector<const char*> variables;
    std::vector<std::string> options;
    const char* begin;
  };
  for (const Row& row : {
           Row{{}, {}, english},
           Row{{}, {"--lang", "zh"}, chinese},
           Row{{"LANG=zh_CN.UTF-8"}, {}, chinese},
           Row{{"LANG=zh_CN.UTF-8"}, {"--lang", "en"}, english},
           Row{{"LC_MESSAGES=zh_TW"}, {}, chinese},
           Row{{"LC_MESSAGES=C", "LANG=zh_CN"}, {}, english},
           Row{{"LC_ALL=zh_CN", "LC_MESSAGES=en_GB", "LANG=de_DE"}, {}, chinese},
           Row{{"LC_ALL=C", "LC_MESSAGES=zh_CN", "LANG=zh_CN"}, {}, english},
           Row{{"LC_ALL=", "LANG=zh_CN"}, {}, chinese},
           Row{{"LANG=de_DE.UTF-8"}, {}, english},
       }) {
    Program program;
    program.write("s.yaml",
                  "schema_version: 1\nmodules: {scf: {summary: Orbitals., summary_zh: 轨道。}}\n");
    for (const std::string variable : row.variables) {
      const std::size_t equals = variable.find('=');
      program.set_variable(variable.substr(0, equals), variable.substr(equals + 1));
    }
    std::vector<std::string> arguments = {"explain", "scf", "--schema", "s.yaml"};
    arguments.insert(arguments.end(), row.options.begin(), row.options.end());
    EXPECT_THAT(program.run(arguments).out, StartsWith(row.begin))
        << testing::PrintToString(row.variables) << testing::PrintToString(row.options);
  }
}

TEST(ExplainCommand, KnowsTwoLanguages) {
  Program program;
  EXPECT_EQ(program.run({"explain", "scf", "--lang", "de"}).status, 2);
}

TEST(ExplainCommand, WantsOneName) {
  Program program;
  EXPECT_EQ(program.run({"explain"}).status, 2);
}

}  // namespace
}  // namespace kelp::test
