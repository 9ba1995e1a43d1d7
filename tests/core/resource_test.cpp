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

TEST(FullPath, BeginsAtTheRootAndHasNoDots) {
  const TemporaryFolder folder;
  const test::CurrentFolder here(folder.path());
  const std::string top = full_path(".");
  EXPECT_TRUE(std::filesystem::path(top).is_absolute());
  EXPECT_EQ(full_path("a.inp"), utf8(std::filesystem::path(top) / "a.inp"));
  EXPECT_EQ(full_path("./d/../a.inp"), full_path("a.inp"));
  EXPECT_EQ(full_path("d/"), full_path("d"));
  EXPECT_EQ(folder_of(full_path("d/a.inp")), full_path("d"));
  EXPECT_EQ(folder_of(full_path("a.inp")), top);
}

TEST(FolderOf, OfTheRootIsTheRoot) {
  const std::string root = utf8(std::filesystem::current_path().root_path());
  EXPECT_EQ(full_path(root), root);
  EXPECT_EQ(folder_of(root), root);
}

TEST(LiesIn, IsTrueForAFileOfTheFolderItself) {
  const TemporaryFolder folder;
  test::write_file(folder / "a.yaml", "");
  test::write_file(folder / "d" / "b.yaml", "");
  const std::string top = utf8(folder.path());
  EXPECT_TRUE(lies_in(top + "/a.yaml", top));
  EXPECT_TRUE(lies_in(top + "/d/../a.yaml", top));
  EXPECT_FALSE(lies_in(top + "/d/b.yaml", top));
  EXPECT_FALSE(lies_in(top + "/missing", top));
}

TEST(PathBeside, IsThatOfAFileInTheSameFolder) {
  const TemporaryFolder folder;
  test::write_file(folder / u8"Ä.scforb", "");
  const std::string input = utf8(folder / "a.inp");
  EXPECT_TRUE(is_regular_file_path(path_beside(input, "Ä.scforb")));
  EXPECT_FALSE(is_regular_file_path(path_beside(input, "a.inp")));
  EXPECT_EQ(path_beside("a.inp", "b.xyz"), "b.xyz");
}

TEST(StemOf, IsTheNameWithoutFolderAndEnding) {
  EXPECT_EQ(stem_of("b/a.inp"), "a");
  EXPECT_EQ(stem_of("a.b.inp"), "a.b");
  EXPECT_EQ(stem_of("a"), "a");
  EXPECT_EQ(stem_of(""), "");
}

}  // namespace
}  // namespace kelp::core::resource
