#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>

#include "kelp/input/bdf/schema.hpp"
#include "support/environment.hpp"
#include "support/files.hpp"

namespace kelp::input::bdf {
namespace {

using test::CurrentFolder;
using test::EnvironmentVariable;
using test::TemporaryFolder;
using test::utf8;

constexpr const char* variable = "KELP_BDF_INP_SCHEMA_YAML";
constexpr const char* relative = "schemas/input/bdf.yaml";

// A hint whose file is found shows that the variable was passed over.
std::string path_found(const TemporaryFolder& folder) {
  test::write_file(folder / relative, "schema_version: 1\n");
  return utf8(std::filesystem::weakly_canonical(folder / relative));
}

std::string canonical(const std::string& path) {
  return path.empty()
             ? path
             : utf8(std::filesystem::weakly_canonical(std::u8string(path.begin(), path.end())));
}

TEST(ResolveSchemaPath, ReturnsTheVariablesFileUnchanged) {
  const TemporaryFolder folder;
  test::write_file(folder / "sub/any name.yaml", "");
  const std::string path = utf8(folder.path()) + "/sub/../sub//any name.yaml";
  const EnvironmentVariable set(variable, path);
  EXPECT_EQ(resolve_schema_path(""), path);
}

TEST(ResolveSchemaPath, ReturnsARelativePathOfTheVariableUnchanged) {
  const TemporaryFolder folder;
  test::write_file(folder / "own.yaml", "");
  const EnvironmentVariable set(variable, "own.yaml");
  const CurrentFolder here(folder.path());
  EXPECT_EQ(resolve_schema_path(""), "own.yaml");
}

TEST(ResolveSchemaPath, PrefersTheVariableToTheHint) {
  const TemporaryFolder folder;
  path_found(folder);
  test::write_file(folder / "own.yaml", "");
  const EnvironmentVariable set(variable, utf8(folder / "own.yaml"));
  EXPECT_EQ(resolve_schema_path(utf8(folder.path())), utf8(folder / "own.yaml"));
}

TEST(ResolveSchemaPath, IgnoresAVariableThatNamesNoRegularFile) {
  const TemporaryFolder folder;
  const std::string expected = path_found(folder);
  for (const std::string& value :
       {utf8(folder.path()), utf8(folder / "missing.yaml"), std::string(), std::string(" ")}) {
    const EnvironmentVariable set(variable, value);
    EXPECT_EQ(canonical(resolve_schema_path(utf8(folder.path()))), expected) << value;
  }
}

TEST(ResolveSchemaPath, SearchesFromTheHintWhenTheVariableIsNotSet) {
  const TemporaryFolder folder;
  const std::string expected = path_found(folder);
  std::filesystem::create_directories(folder / "1/2/3/4/5/6/7");
  const EnvironmentVariable unset(variable, std::nullopt);
  EXPECT_EQ(canonical(resolve_schema_path(utf8(folder.path()))), expected);
  EXPECT_EQ(canonical(resolve_schema_path(utf8(folder / "1/2/3/4/5/6"))), expected);
  EXPECT_NE(canonical(resolve_schema_path(utf8(folder / "1/2/3/4/5/6/7"))), expected);
}

TEST(ResolveSchemaPath, NeverTakesTheCurrentFoldersFile) {
  const TemporaryFolder folder;
  const std::string present = path_found(folder);
  const EnvironmentVariable unset(variable, std::nullopt);
  const CurrentFolder here(folder.path());
  EXPECT_NE(canonical(resolve_schema_path("")), present);
}

}  // namespace
}  // namespace kelp::input::bdf
