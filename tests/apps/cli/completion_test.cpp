// What may stand where the cursor is, as the scripts of the shells ask for it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "check/check_fixture.hpp"
#include "support/folders.hpp"

namespace kelp::test {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class Completion : public Check {
 protected:
  // The candidates without what they mean.
  std::vector<std::string> complete(const std::vector<std::string>& words) {
    std::vector<std::string> arguments = {"__complete"};
    for (const std::string& word : words) {
      arguments.push_back('=' + word);
    }
    outcome = program.run(arguments);
    std::vector<std::string> found;
    std::istringstream lines(outcome.out);
    for (std::string line; std::getline(lines, line);) {
      found.push_back(line.substr(0, line.find('\t')));
    }
    return found;
  }

  Outcome outcome;
};

TEST_F(Completion, OfTheFirstWordIsACommand) {
  EXPECT_THAT(complete({""}), AllOf(Contains("check"), Contains("schema"), Contains("help"),
                                    Not(Contains(":files")), Not(Contains("__complete"))));
  EXPECT_THAT(complete({"sh"}), ElementsAre("show"));
  EXPECT_THAT(outcome.out, StartsWith("show\tPrint "));
  EXPECT_THAT(complete({"schema", "li"}), ElementsAre("lint", "list"));
}

TEST_F(Completion, OfAnOptionIsOneOfTheCommand) {
  EXPECT_THAT(complete({"check", "--s"}),
              ElementsAre("--schema", "--stdin-filename", "--strict", "--summary"));
  EXPECT_THAT(complete({"show", "--s"}), ElementsAre("--schema", "--stdin-filename"));
  EXPECT_THAT(complete({"check", "-"}), Contains("-j"));
  EXPECT_THAT(complete({"check", "--", "--s"}), ElementsAre(":files"));
}

TEST_F(Completion, OfAValueIsWhatTheOptionTakes) {
  EXPECT_THAT(complete({"check", "--unknown", ""}), ElementsAre("error", "ignore", "warn"));
  EXPECT_THAT(complete({"check", "--unknown=w"}), ElementsAre("--unknown=warn"));
  EXPECT_THAT(complete({"check", "--schema", ""}), ElementsAre(":files"));
  EXPECT_THAT(complete({"check", "--max-findings", ""}), IsEmpty());
  EXPECT_THAT(complete({"--color", "n"}), ElementsAre("never"));
  EXPECT_THAT(complete({"check", "--strict", ""}), ElementsAre(":files"));
}

TEST_F(Completion, OfCodesTakesListsAndPatterns) {
  EXPECT_THAT(complete({"check", "--deny", "bdf.unknown_m"}), ElementsAre("bdf.unknown_module"));
  EXPECT_THAT(complete({"check", "--deny", "bdf."}), Contains("bdf.*"));
  EXPECT_THAT(complete({"check", "--allow=bdf.*,bdf.unknown_m"}),
              ElementsAre("--allow=bdf.*,bdf.unknown_module"));
  EXPECT_THAT(complete({"check", "--warn", "schema."}), IsEmpty());
  EXPECT_THAT(complete({"explain", "schema.unknown_k"}), Not(IsEmpty()));
}

TEST_F(Completion, OfPathsGoesFromModulesToEntriesAndValues) {
  EXPECT_THAT(complete({"get", "sc"}), ElementsAre("scf."));
  EXPECT_THAT(complete({"get", "scf.ch"}), ElementsAre("scf.charge"));
  EXPECT_THAT(complete({"get", "scf#2.ch"}), ElementsAre("scf#2.charge"));
  EXPECT_THAT(complete({"get", "scf.charge", ""}), ElementsAre(":files"));
  EXPECT_THAT(complete({"get", "easy.func"}), ElementsAre("easy.functional"));
  EXPECT_THAT(complete({"set", "a.inp", "scf.ch"}), ElementsAre("scf.charge="));
  EXPECT_THAT(complete({"set", "a.inp", "scf.charge=1", "--unset", "scf.ch"}),
              ElementsAre("scf.charge"));
  EXPECT_THAT(complete({"schema", "list", "sc"}), ElementsAre("scf"));
}

TEST_F(Completion, OfValuesAreThoseOfTheVocabulary) {
  program.set_variable("KELP_BDF_INP_SCHEMA_YAML", std::nullopt);
  EXPECT_THAT(complete({"set", "a.inp", "scf.guess=h"}),
              ElementsAre("scf.guess=hcore", "scf.guess=huckel"));
  EXPECT_THAT(outcome.out, HasSubstr("scf.guess=huckel\tsemi-empirical"));
  EXPECT_THAT(complete({"set", "a.inp", "easy.functional=b3ly"}),
              Contains("easy.functional=b3lyp"));
  EXPECT_THAT(complete({"set", "a.inp", "scf.nothing="}), IsEmpty());
  EXPECT_THAT(complete({"sweep", "a.inp", "scf.guess=atom,h"}),
              ElementsAre("scf.guess=atom,hcore", "scf.guess=atom,huckel"));
  EXPECT_THAT(complete({"sweep", "a.inp", "scf.guess=h"}),
              ElementsAre("scf.guess=hcore", "scf.guess=huckel"));
  EXPECT_THAT(complete({"sweep", "a.inp", "scf.cha"}), ElementsAre("scf.charge="));
}

TEST_F(Completion, OfFilesIsLeftToTheShell) {
  for (const char* const command : {"check", "format", "show", "set", "sweep"}) {
    EXPECT_THAT(complete({command, "a"}), ElementsAre(":files")) << command;
  }
}

TEST_F(Completion, OfAnythingElseIsSilent) {
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"wibble", ""}, {"check", "--wibble="}, {}}) {
    complete(words);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
  }
  program.set_variable("KELP_BDF_INP_SCHEMA_YAML", "/nonexistent");
  EXPECT_THAT(complete({"get", "scf."}), IsEmpty());
  EXPECT_EQ(outcome.err, "");
}

TEST(CompletionScript, IsPrintedForEachShell) {
  Program program;
  for (const auto& [shell, file] : {std::pair("bash", "kelp-bdf.bash"),
                                    {"zsh", "_kelp-bdf"},
                                    {"fish", "kelp-bdf.fish"},
                                    {"powershell", "kelp-bdf.ps1"}}) {
    const Outcome outcome = program.run({"completion", shell});
    EXPECT_EQ(outcome.out,
              file_bytes(test::source_folder() / "apps" / "kelp-bdf" / "shell" / file));
    EXPECT_THAT(outcome.out, HasSubstr("__complete"));
    EXPECT_EQ(outcome.status, 0);
  }
  EXPECT_EQ(program.run({"completion", "tcsh"}).status, 2);
}

}  // namespace
}  // namespace kelp::test
