// What a configuration file changes, and for which inputs.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>

#include "check/check_fixture.hpp"

namespace kelp::test {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

const std::string own_schema =
    "schema_version: 1\n"
    "modules:\n"
    "  mine:\n"
    "    entries:\n"
    "      colour: {kind: flag, summary: {en: The hue, zh: 色}}\n";

class Config : public Check {
 protected:
  /// Runs the command; the names of files that it prints are given with slashes.
  Outcome run(std::vector<std::string> arguments) {
    Outcome outcome = program.run(std::move(arguments));
    std::replace(outcome.out.begin(), outcome.out.end(), '\\', '/');
    return outcome;
  }
};

TEST_F(Config, HoldsForTheInputsOfItsFolderAndBelow) {
  program.write("d/.kelp-bdf.toml", "[severities]\n\"bdf.unknown_entry\" = \"error\"\n");
  program.write("d/x/y/a.inp", warning_input);
  program.write("b.inp", warning_input);
  const Outcome outcome = run({"check", "--format=concise", "d", "b.inp"});
  EXPECT_THAT(outcome.out, StartsWith("d/x/y/a.inp:2:1: error: "));
  EXPECT_THAT(outcome.out, HasSubstr("\nb.inp:2:1: warning: "));
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(Config, OfTheNearestFolderHoldsAlone) {
  program.write(".kelp-bdf.toml", "[severities]\n\"bdf.unknown_entry\" = \"error\"\n");
  program.write("d/.kelp-bdf.toml", "");
  program.write("d/a.inp", warning_input);
  EXPECT_EQ(run({"check", "d"}).status, 0);
  EXPECT_EQ(run({"check", "--no-config", "d"}).status, 0);
  EXPECT_EQ(check(warning_input).status, 1);
  EXPECT_EQ(check(warning_input, {"--no-config"}).status, 0);
}

TEST_F(Config, OfTheCurrentFolderHoldsForStandardInputUnlessItHasAName) {
  program.write("d/.kelp-bdf.toml", "[severities]\n\"bdf.unknown_entry\" = \"error\"\n");
  EXPECT_EQ(program.run({"check", "-"}, warning_input).status, 0);
  EXPECT_EQ(program.run({"check", "--stdin-filename=d/a.inp", "-"}, warning_input).status, 1);
}

TEST_F(Config, CountsForLessThanOptions) {
  program.write(".kelp-bdf.toml", "[severities]\n\"bdf.unknown_*\" = \"error\"\n");
  EXPECT_EQ(check(warning_input, {"--warn=bdf.unknown_entry"}).status, 0);
  EXPECT_EQ(check(warning_input, {"--allow=bdf.unknown_entry"}).out, "");
}

TEST_F(Config, LeavesOutFilesAndFoldersButNoneThatIsNamed) {
  program.write("d/.kelp-bdf.toml", "exclude = [\"old\", \"x/b.*\"]\n");
  for (const char* const name : {"d/a.inp", "d/old/a.inp", "d/x/b.inp", "d/x/c.inp", "old/a.inp"}) {
    program.write(name, warning_input);
  }
  const Outcome outcome = run({"check", "--format=concise", "."});
  EXPECT_THAT(outcome.out, HasSubstr("d/a.inp:"));
  EXPECT_THAT(outcome.out, HasSubstr("d/x/c.inp:"));
  EXPECT_THAT(outcome.out, HasSubstr("/old/a.inp:"));
  EXPECT_THAT(outcome.out, Not(HasSubstr("d/old/")));
  EXPECT_THAT(outcome.out, Not(HasSubstr("d/x/b.inp")));
  EXPECT_THAT(run({"check", "--format=concise", "d/x/b.inp"}).out, StartsWith("d/x/b.inp:"));
  EXPECT_THAT(run({"check", "--no-config", "--format=concise", "d"}).out, HasSubstr("d/old/a"));
}

TEST_F(Config, NamesASchemaWhichIsTold) {
  program.set_variable("KELP_BDF_INP_SCHEMA_YAML", std::nullopt);
  program.write("d/.kelp-bdf.toml", "schema = \"own.yaml\"\n");
  program.write("d/own.yaml", own_schema);
  program.write("d/a.inp", "$mine\ncolor\n$end\n");
  program.write("d/b.inp", "$mine\ncolour\n$end\n");
  program.write("c.inp", "$mine\n$end\n");
  for (const char* const option : {"--format=concise", "--quiet"}) {
    const Outcome outcome = run({"check", option, "d", "c.inp"});
    EXPECT_THAT(outcome.err, StartsWith("kelp-bdf: the vocabulary is '"));
    EXPECT_THAT(outcome.err, EndsWith(".kelp-bdf.toml:1 says\n"));
    EXPECT_EQ(outcome.err.find('\n'), outcome.err.size() - 1);
  }
  const Outcome outcome = run({"check", "--format=concise", "d", "c.inp"});
  EXPECT_THAT(outcome.out, HasSubstr("Unknown BDF module entry 'mine.color'"));
  EXPECT_THAT(outcome.out, Not(HasSubstr("b.inp")));
  EXPECT_THAT(outcome.out, HasSubstr("c.inp:1:1: warning: Unknown BDF module '$mine'"));
  EXPECT_THAT(run({"get", "mine.colour", "d/b.inp"}).err, HasSubstr("the vocabulary is"));
  EXPECT_THAT(run({"format", "d/b.inp"}).out, HasSubstr("  colour\n"));
}

TEST_F(Config, NamesASchemaThatCountsForLessThanOptionAndVariable) {
  program.write(".kelp-bdf.toml", "schema = \"own.yaml\"\n");
  program.write("own.yaml", own_schema);
  EXPECT_EQ(check(good_input).out + check(good_input).err, "");
  program.set_variable("KELP_BDF_INP_SCHEMA_YAML", std::nullopt);
  EXPECT_EQ(check(good_input, {"--schema=../schema.yaml"}).err, "");
  EXPECT_THAT(check(good_input).out, HasSubstr("Unknown BDF module '$scf'"));
}

TEST_F(Config, SetsLanguageAndWidthOfWhatIsShown) {
  program.set_variable("KELP_BDF_INP_SCHEMA_YAML", std::nullopt);
  const std::string long_line = "$scf\nocupied " + std::string(100, 'x') + "\n$end\n";
  program.write(".kelp-bdf.toml", "language = \"zh\"\nwidth = 50\n");
  program.write("a.inp", good_input);
  program.write("../plain/a.inp", good_input);
  const std::string plain = run({"show", "../plain/a.inp"}).out;
  const std::string shown = run({"show", "a.inp"}).out;
  EXPECT_THAT(plain, HasSubstr("charge"));
  EXPECT_NE(shown.substr(shown.find('\n')), plain.substr(plain.find('\n')));
  EXPECT_THAT(run({"show", "--lang=en", "--no-config", "a.inp"}).out,
              EndsWith(plain.substr(plain.find('\n'))));
  EXPECT_THAT(check(long_line).out, HasSubstr("xxx...\n"));
  EXPECT_THAT(check(long_line, {"--no-config"}).out, Not(HasSubstr("xxx...\n")));
}

TEST_F(Config, ThatIsWrongIsToldOnceAndTheOtherInputsAreChecked) {
  program.write("d/.kelp-bdf.toml", "\nshcema = \"x\"\n");
  for (const char* const name : {"d/a.inp", "d/b.inp", "d/x/c.inp", "e.inp"}) {
    program.write(name, warning_input);
  }
  const Outcome outcome = run({"check", "--format=concise", "d", "e.inp"});
  EXPECT_THAT(outcome.err, EndsWith(":2: unknown key 'shcema'; did you mean 'schema'?\n"));
  EXPECT_EQ(outcome.err.find('\n'), outcome.err.size() - 1);
  EXPECT_THAT(outcome.out, StartsWith("e.inp:2:1: "));
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(run({"check", "--no-config", "d"}).status, 0);
}

TEST_F(Config, IsShownWithWhereEachSettingComesFrom) {
  program.write("d/.kelp-bdf.toml",
                "width = 80\n"
                "exclude = [\"old\"]\n"
                "[severities]\n"
                "\"bdf.*\" = \"warning\"\n");
  for (const char* const input : {"d", "d/", "d/a.inp", "d/x/missing.inp"}) {
    const Outcome outcome = run({"config", input});
    EXPECT_THAT(outcome.out, StartsWith("configuration  "));
    EXPECT_THAT(outcome.out, EndsWith(".kelp-bdf.toml\n"
                                      "schema         ../schema.yaml  (KELP_BDF_INP_SCHEMA_YAML)\n"
                                      "language       en  (default)\n"
                                      "width          80  (line 1)\n"
                                      "exclude        old  (line 2)\n"
                                      "severity       bdf.* = warning  (line 4)\n"))
        << input;
    EXPECT_EQ(outcome.status, 0);
  }
}

TEST_F(Config, OfNoFileIsShownAsThat) {
  program.set_variable("LANG", "zh_CN.UTF-8");
  EXPECT_EQ(run({"config", "--schema=own.yaml"}).out,
            "configuration  none\n"
            "schema         own.yaml  (--schema)\n"
            "language       zh_CN.UTF-8  (LANG)\n");
  program.write(".kelp-bdf.toml", "language = \"en\"\n");
  EXPECT_THAT(run({"config"}).out, HasSubstr("language       en  ("));
  EXPECT_THAT(run({"config", "--lang=zh"}).out, HasSubstr("language       zh  (--lang)\n"));
  EXPECT_THAT(run({"config", "--no-config"}).out, StartsWith("configuration  none\n"));
}

TEST_F(Config, ThatIsAFolderIsNone) {
  program.write(".kelp-bdf.toml/a", "");
  EXPECT_THAT(run({"config"}).out, StartsWith("configuration  none\n"));
}

#ifndef _WIN32
// As in /tmp: the folder is somebody else's, and everybody may write there.
TEST(ConfigOfAStranger, HoldsOnlyInAFolderOfTheirOwn) {
  Program program;
  program.write("d/.kelp-bdf.toml", "[severities]\n\"bdf.unknown_entry\" = \"error\"\n");
  program.write("d/x/a.inp", warning_input);
  const Outcome outcome = program.run_in_shell(
      "[ \"$(id -u)\" = 0 ] || exit 77\n"
      "check() { \"$KELP_BDF\" check --quiet d/x/a.inp; echo $?; }\n"
      "check; chown 12345 d/.kelp-bdf.toml; check; chown 12345 d; check\n"
      "mv d/.kelp-bdf.toml mine; chown 0 mine; ln -s ../mine d/.kelp-bdf.toml; check\n"
      "chown -h 54321 d/.kelp-bdf.toml; check");
  if (outcome.status == 77) {
    GTEST_SKIP() << "only root can give files away";
  }
  EXPECT_EQ(outcome.out, "1\n0\n1\n1\n0\n");
  EXPECT_THAT(outcome.err, StartsWith("kelp-bdf: '/"));
  EXPECT_THAT(
      outcome.err,
      HasSubstr("/d/.kelp-bdf.toml' does not hold: it belongs to another user\nkelp-bdf: '"));
}
#endif

}  // namespace
}  // namespace kelp::test
