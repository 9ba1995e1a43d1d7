// What a configuration file may say.

#include "cli/config_file.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <stdexcept>
#include <string>

#include "kelp/core/resource.hpp"
#include "support/files.hpp"

namespace kelp::app {
namespace {

using input::bdf::SeverityAction;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;

class ConfigFileTest : public ::testing::Test {
 protected:
  ConfigFile read(const std::string& text) {
    test::write_file(folder / ".kelp-bdf.toml", text);
    return read_config_file(path);
  }

  test::TemporaryFolder folder;
  const std::string path = core::resource::full_path(test::utf8(folder / ".kelp-bdf.toml"));
};

TEST_F(ConfigFileTest, SaysWhatHolds) {
  test::write_file(folder / "ours.yaml", "");
  const ConfigFile config = read(
      "schema = \"ours.yaml\"\n"
      "language = \"zh\"  # a comment\n"
      "width = 120\n"
      "exclude = [\"old\",\n"
      "           \"runs/**\"]\n"
      "[severities]\n"
      "\"bdf.unknown_*\" = \"error\"\n"
      "\"bdf.duplicate_entry\" = \"warning\"\n"
      "\"bdf.unknown_entry\" = \"allow\"\n");
  EXPECT_EQ(config.path, path);
  EXPECT_TRUE(
      std::filesystem::equivalent(std::filesystem::path(config.schema), folder / "ours.yaml"));
  EXPECT_EQ(config.language, "zh");
  EXPECT_EQ(config.width, 120U);
  EXPECT_THAT(config.exclude, ElementsAre("old", "runs/**"));
  ASSERT_EQ(config.rules.size(), 3U);
  EXPECT_EQ(config.rules[0].pattern, "bdf.unknown_*");
  EXPECT_EQ(config.rules[0].action, SeverityAction::Deny);
  EXPECT_EQ(config.rules[1].pattern, "bdf.duplicate_entry");
  EXPECT_EQ(config.rules[1].action, SeverityAction::Warn);
  EXPECT_EQ(config.rules[2].pattern, "bdf.unknown_entry");
  EXPECT_EQ(config.rules[2].action, SeverityAction::Allow);
  EXPECT_EQ(config.lines.at("width"), 3U);
  EXPECT_EQ(config.lines.at("bdf.unknown_entry"), 9U);
}

TEST_F(ConfigFileTest, MayBeEmpty) {
  const ConfigFile config = read("");
  EXPECT_EQ(config.schema + config.language, "");
  EXPECT_TRUE(config.rules.empty());
}

struct Row {
  std::string text;
  std::string error;
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.text;
}

class WrongConfigFile : public ConfigFileTest, public ::testing::WithParamInterface<Row> {};

TEST_P(WrongConfigFile, IsToldWithItsLine) {
  test::write_file(folder / "d" / "ours.yaml", "");
  try {
    read(GetParam().text);
    FAIL();
  } catch (const std::runtime_error& error) {
    EXPECT_THAT(error.what(), HasSubstr(path));
    EXPECT_THAT(error.what(), EndsWith(GetParam().error));
  }
}

const Row rows[] = {
    {"shcema = \"a\"", ":1: unknown key 'shcema'; did you mean 'schema'?"},
    {"\nrun = \"a program\"", ":2: unknown key 'run'"},
    {"schema = \"../ours.yaml\"",
     ":1: schema must be the name of a file in this folder, not '../ours.yaml'"},
    {"schema = \"d/ours.yaml\"",
     ":1: schema must be the name of a file in this folder, not 'd/ours.yaml'"},
    {"schema = \"/etc/passwd\"",
     ":1: schema must be the name of a file in this folder, not '/etc/passwd'"},
    {"schema = \"c:ours.yaml\"",
     ":1: schema must be the name of a file in this folder, not 'c:ours.yaml'"},
    {"schema = \"d\"", ":1: there is no file 'd' in this folder"},
    {"schema = \"missing\"", ":1: there is no file 'missing' in this folder"},
    {"schema = 1", ":1: schema must be a text in quotes"},
    {"language = \"fr\"", ":1: language must be \"en\" or \"zh\""},
    {"width = 39", ":1: width must be a number of columns from 40 to 1000"},
    {"width = 1001", ":1: width must be a number of columns from 40 to 1000"},
    {"width = \"80\"", ":1: width must be a number of columns from 40 to 1000"},
    {"exclude = \"old\"", ":1: exclude must be a list of patterns: [\"old\", \"runs/**\"]"},
    {"exclude = [\"old\",\n3]", ":2: a pattern must be a text in quotes"},
    {"severities = 3", ":1: severities must be a table: [severities]"},
    {"[severities]\n\"bdf.unknown_entri\" = \"error\"",
     ":2: there is no code 'bdf.unknown_entri'; did you mean 'bdf.unknown_entry'?"},
    {"[severities]\n\"bdf.*\" = \"fatal\"",
     ":2: a severity must be \"error\", \"warning\" or \"allow\""},
    {"[severities]\nbdf.unknown_entry = \"error\"", ":2: there is no code 'bdf'"},
};

INSTANTIATE_TEST_SUITE_P(Rows, WrongConfigFile, ::testing::ValuesIn(rows));

TEST_F(ConfigFileTest, ThatIsNoTomlIsToldWithItsLine) {
  try {
    read("\nwidth = [\n");
    FAIL();
  } catch (const std::runtime_error& error) {
    EXPECT_THAT(error.what(), HasSubstr(path + ":"));
  }
}

#ifndef _WIN32

TEST_F(ConfigFileTest, NamesNoSchemaElsewhereByALink) {
  test::write_file(folder / "d" / "ours.yaml", "");
  std::filesystem::create_symlink("d/ours.yaml", folder / "link.yaml");
  EXPECT_THROW(read("schema = \"link.yaml\""), std::runtime_error);
}

#endif

}  // namespace
}  // namespace kelp::app
