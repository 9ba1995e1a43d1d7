#include "kelp/core/resource.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/environment.hpp"
#include "support/files.hpp"

namespace kelp::core::resource {
namespace {

using test::TemporaryFolder;
using test::utf8;

TEST(GetenvString, ReturnsTheVariablesValue) {
  const test::EnvironmentVariable variable("KELP_TEST_VARIABLE", "a = b; Wasser-Molekül");
  EXPECT_EQ(getenv_string("KELP_TEST_VARIABLE"), "a = b; Wasser-Molekül");
}

TEST(GetenvString, ReturnsAnEmptyTextWhenItIsNotSet) {
  EXPECT_EQ(getenv_string("KELP_TEST_VARIABLE_THAT_NOBODY_SETS"), "");
}

TEST(IsRegularFilePath, AcceptsAFile) {
  const TemporaryFolder folder;
  test::write_file(folder / u8"Ä b.yaml", "");
  EXPECT_TRUE(is_regular_file_path(utf8(folder / u8"Ä b.yaml")));
}

TEST(IsRegularFilePath, RefusesAFolderAMissingFileAndAnEmptyPath) {
  const TemporaryFolder folder;
  EXPECT_FALSE(is_regular_file_path(utf8(folder.path())));
  EXPECT_FALSE(is_regular_file_path(utf8(folder / "missing")));
  EXPECT_FALSE(is_regular_file_path(""));
}

TEST(IsRegularFilePath, RefusesAFileBelowAFile) {
  const TemporaryFolder folder;
  test::write_file(folder / "file", "");
  EXPECT_FALSE(is_regular_file_path(utf8(folder / "file" / "below")));
  EXPECT_FALSE(is_regular_file_path(utf8(folder / "file") + "/"));
}

}  // namespace
}  // namespace kelp::core::resource
