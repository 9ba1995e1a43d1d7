#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <typeinfo>

#include "kelp/input/bdf/schema.hpp"
#include "support/files.hpp"

namespace kelp::input::bdf {
namespace {

using test::TemporaryFolder;
using test::utf8;
using testing::StartsWith;

constexpr const char* text_prefix = "failed to parse BDF input schema YAML: ";

// The error itself must be of the type promised, not of one derived from it.
template <typename Load>
std::string error_of(Load load) {
  try {
    static_cast<void>(load());
  } catch (const std::exception& error) {
    EXPECT_EQ(typeid(error), typeid(std::runtime_error));
    return error.what();
  }
  return "no error";
}

std::string error_of_text(std::string_view yaml) {
  return error_of([&] { return InputSchema::from_yaml(yaml); });
}

std::string error_of_file(const std::string& path) {
  return error_of([&] { return InputSchema::from_file(path); });
}

std::string file_prefix(const std::string& path) {
  return "failed to load BDF input schema '" + path + "': ";
}

void expect_cause(const std::string& error, const std::string& prefix) {
  EXPECT_THAT(error, StartsWith(prefix));
  EXPECT_GT(error.size(), prefix.size()) << error;
}

TEST(FromYaml, GivesAnEmptySchemaForABlankText) {
  for (const std::string_view text : {"", " \n\n", "\t \r\n", "\v\f"}) {
    EXPECT_TRUE(InputSchema::from_yaml(text).empty()) << testing::PrintToString(text);
    EXPECT_EQ(InputSchema::from_yaml(text).metadata().schema_version, 0);
  }
  EXPECT_TRUE(InputSchema::from_yaml(std::string_view()).empty());
}

TEST(FromYaml, FailsForATextThatIsNoSchemaNamingTheCause) {
  for (const char* yaml :
       {"x: 1", "schema_version:", "schema_version: one", "schema_version: 1.5",
        "schema_version: [1]", "Schema_Version: 1", "# only a comment", "- a", "text", "~", "---",
        "schema_version: 1\n: : :\n\t- x", "schema_version: 1\na: [", "schema_version: 1\na: *b",
        "schema_version: 1\na: 'open", "\"\\x\"", "schema_version: 99999999999"}) {
    SCOPED_TRACE(yaml);
    expect_cause(error_of_text(yaml), text_prefix);
  }
}

TEST(FromYaml, FailsForAScalarThatDoesNotConvert) {
  for (const char* yaml : {"min: abc", "repeatable: maybe", "arity: -1"}) {
    SCOPED_TRACE(yaml);
    expect_cause(error_of_text("schema_version: 1\nmodules: {m: {entries: {e: {" +
                               std::string(yaml) + "}}}}"),
                 text_prefix);
  }
}

TEST(FromYaml, FailsForBytesThatAreNoText) {
  for (const std::string& yaml : {std::string("\0\1\2", 3), std::string("\xFF\xFE\xFD"),
                                  std::string(1000, '['), std::string(1000, '{')}) {
    expect_cause(error_of_text(yaml), text_prefix);
  }
}

TEST(FromYaml, ReadsTheFirstOfSeveralDocuments) {
  EXPECT_EQ(InputSchema::from_yaml("schema_version: 1\n---\nschema_version: 2\n")
                .metadata()
                .schema_version,
            1);
}

TEST(FromYaml, TakesLineEndsOfWindows) {
  const InputSchema schema =
      InputSchema::from_yaml("schema_version: 1\r\nmodules:\r\n  scf:\r\n    repeatable: true\r\n");
  EXPECT_TRUE(schema.module_repeatable("scf"));
}

TEST(FromYaml, ReadsNoByteBeyondTheView) {
  const std::string_view text = "schema_version: 12";
  EXPECT_EQ(InputSchema::from_yaml(text.substr(0, text.size() - 1)).metadata().schema_version, 1);
}

TEST(FromFile, ReadsTheSchema) {
  const TemporaryFolder folder;
  test::write_file(folder / "s.yaml", "schema_version: 4\nmodules: {scf: ~}\n");
  const InputSchema schema = InputSchema::from_file(utf8(folder / "s.yaml"));
  EXPECT_EQ(schema.metadata().schema_version, 4);
  EXPECT_TRUE(schema.is_known_module("scf"));
}

TEST(FromFile, TakesItsPathAsUtf8) {
  const TemporaryFolder folder;
  const auto path = folder / u8"Wörter 词汇.yaml";
  test::write_file(path, "schema_version: 1\n");
  EXPECT_EQ(InputSchema::from_file(utf8(path)).metadata().schema_version, 1);
}

TEST(FromFile, ReadsAFileThatBeginsWithAByteOrderMark) {
  const TemporaryFolder folder;
  test::write_file(folder / "s.yaml", "\xEF\xBB\xBFschema_version: 1\n");
  EXPECT_EQ(InputSchema::from_file(utf8(folder / "s.yaml")).metadata().schema_version, 1);
}

TEST(FromFile, FailsForAMissingFileNamingPathAndCause) {
  for (const char* path : {"no/such/schema.yaml", "it's.yaml", ""}) {
    SCOPED_TRACE(path);
    expect_cause(error_of_file(path), file_prefix(path));
  }
}

TEST(FromFile, FailsForAFolder) {
  const TemporaryFolder folder;
  expect_cause(error_of_file(utf8(folder.path())), file_prefix(utf8(folder.path())));
}

TEST(FromFile, FailsForAnEmptyOrBlankFile) {
  const TemporaryFolder folder;
  const std::string path = utf8(folder / "s.yaml");
  for (const char* text : {"", "\n \n", "# comment\n"}) {
    test::write_file(folder / "s.yaml", text);
    expect_cause(error_of_file(path), file_prefix(path));
  }
}

TEST(FromFile, FailsForWhatIsNoSchemaNamingThePath) {
  const TemporaryFolder folder;
  const std::string path = utf8(folder / "s.yaml");
  for (const char* text : {"x: 1", "a: [", "schema_version: 1\nmodules: {m: {repeatable: 7}}"}) {
    test::write_file(folder / "s.yaml", text);
    expect_cause(error_of_file(path), file_prefix(path));
  }
}

TEST(FromFile, MakesIndependentSchemas) {
  const TemporaryFolder folder;
  const std::string path = utf8(folder / "s.yaml");
  test::write_file(folder / "s.yaml", "schema_version: 1\nmodules: {a: ~}");
  const InputSchema first = InputSchema::from_file(path);
  test::write_file(folder / "s.yaml", "schema_version: 2\nmodules: {b: ~}");
  const InputSchema second = InputSchema::from_file(path);
  EXPECT_TRUE(first.is_known_module("a"));
  EXPECT_FALSE(first.is_known_module("b"));
  EXPECT_TRUE(second.is_known_module("b"));
}

}  // namespace
}  // namespace kelp::input::bdf
