#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "kelp/core/resource.hpp"
#include "support/environment.hpp"
#include "support/files.hpp"

namespace kelp::core::resource {
namespace {

using test::TemporaryFolder;
using test::utf8;

// No folder above the test program holds a file of this name.
constexpr const char* wanted = "vocabulary/for-the-tests.yaml";

std::string located(const std::string& hint, const std::vector<std::string>& extra = {},
                    int limit = 6) {
  return locate_file(wanted, hint, extra, limit);
}

void expect_same_file(const std::string& found, const std::filesystem::path& expected) {
  ASSERT_NE(found, "");
  EXPECT_TRUE(std::filesystem::equivalent(
      std::filesystem::path(std::u8string(found.begin(), found.end())), expected))
      << found;
}

TEST(LocateFile, ReturnsAnEmptyTextWhenThereIsNone) {
  const TemporaryFolder folder;
  EXPECT_EQ(located(""), "");
  EXPECT_EQ(located(utf8(folder.path()), {utf8(folder.path())}), "");
}

TEST(LocateFile, SearchesTheHintAsAFolder) {
  const TemporaryFolder folder;
  test::write_file(folder / wanted, "");
  expect_same_file(located(utf8(folder.path())), folder / wanted);
}

TEST(LocateFile, SearchesTheFolderOfAHintThatIsAFile) {
  const TemporaryFolder folder;
  test::write_file(folder / wanted, "");
  test::write_file(folder / "job.inp", "");
  expect_same_file(located(utf8(folder / "job.inp")), folder / wanted);
}

TEST(LocateFile, TakesAHintWithAClosingSlash) {
  const TemporaryFolder folder;
  test::write_file(folder / "a" / wanted, "");
  test::write_file(folder / wanted, "");
  expect_same_file(located(utf8(folder / "a") + "/"), folder / "a" / wanted);
}

TEST(LocateFile, ReturnsAnAbsolutePathForARelativeHint) {
  const TemporaryFolder folder;
  test::write_file(folder / "a" / wanted, "");
  const test::CurrentFolder here(folder.path());
  const std::string found = located("a");
  expect_same_file(found, folder / "a" / wanted);
  EXPECT_TRUE(std::filesystem::path(found).is_absolute()) << found;
}

TEST(LocateFile, LooksUnderShareKelpAtEachLevel) {
  const TemporaryFolder folder;
  test::write_file(folder / "share/kelp" / wanted, "");
  std::filesystem::create_directories(folder / "lib" / "x86");
  expect_same_file(located(utf8(folder.path())), folder / "share/kelp" / wanted);
  expect_same_file(located(utf8(folder / "lib" / "x86")), folder / "share/kelp" / wanted);
}

TEST(LocateFile, PrefersTheFolderItselfToShareKelp) {
  const TemporaryFolder folder;
  test::write_file(folder / wanted, "");
  test::write_file(folder / "share/kelp" / wanted, "");
  expect_same_file(located(utf8(folder.path())), folder / wanted);
}

TEST(LocateFile, PrefersTheNearerLevel) {
  const TemporaryFolder folder;
  test::write_file(folder / wanted, "");
  test::write_file(folder / "a/share/kelp" / wanted, "");
  std::filesystem::create_directories(folder / "a/b");
  expect_same_file(located(utf8(folder / "a/b")), folder / "a/share/kelp" / wanted);
}

TEST(LocateFile, ClimbsAsManyParentsAsTheLimitAndNoMore) {
  const TemporaryFolder folder;
  test::write_file(folder / wanted, "");
  std::filesystem::create_directories(folder / "1/2/3/4/5/6/7");
  expect_same_file(located(utf8(folder / "1/2/3/4/5/6"), {}, 6), folder / wanted);
  EXPECT_EQ(located(utf8(folder / "1/2/3/4/5/6/7"), {}, 6), "");
  expect_same_file(located(utf8(folder / "1/2"), {}, 2), folder / wanted);
  EXPECT_EQ(located(utf8(folder / "1/2"), {}, 1), "");
  EXPECT_EQ(located(utf8(folder / "1"), {}, 0), "");
  expect_same_file(located(utf8(folder.path()), {}, 0), folder / wanted);
}

TEST(LocateFile, SearchesTheExtraFoldersLastAndInOrder) {
  const TemporaryFolder folder;
  test::write_file(folder / "first" / wanted, "");
  test::write_file(folder / "second" / wanted, "");
  const std::vector<std::string> extra = {utf8(folder / "none"), utf8(folder / "first"),
                                          utf8(folder / "second")};
  expect_same_file(located("", extra), folder / "first" / wanted);
  expect_same_file(located(utf8(folder / "second"), extra), folder / "second" / wanted);
}

TEST(LocateFile, DoesNotClimbFromExtraFolders) {
  const TemporaryFolder folder;
  test::write_file(folder / wanted, "");
  test::write_file(folder / "a/share/kelp" / wanted, "");
  std::filesystem::create_directories(folder / "a/b");
  EXPECT_EQ(located("", {utf8(folder / "a/b"), utf8(folder / "a")}), "");
}

TEST(LocateFile, NeverSearchesTheCurrentFolder) {
  const TemporaryFolder folder;
  test::write_file(folder / wanted, "");
  test::write_file(folder / "share/kelp" / wanted, "");
  const test::CurrentFolder here(folder.path());
  EXPECT_EQ(located(""), "");
}

TEST(LocateFile, PassesOverAFolderOfThatName) {
  const TemporaryFolder folder;
  std::filesystem::create_directories(folder / "a" / wanted);
  test::write_file(folder / wanted, "");
  expect_same_file(located(utf8(folder / "a")), folder / wanted);
}

TEST(LocateFile, TakesNamesAsUtf8) {
  const TemporaryFolder folder;
  test::write_file(folder / u8"Grüße 水" / wanted, "");
  const std::string found = located(utf8(folder / u8"Grüße 水"));
  expect_same_file(found, folder / u8"Grüße 水" / wanted);
  EXPECT_NE(found.find("Grüße 水"), std::string::npos);
}

TEST(LocateFile, SearchesUpwardsFromTheRunningProgram) {
  // This file lies in the source tree, of which the build tree need not be a part; so a file is
  // put beside the program, whose folder is the one that CMake gave it.
  const std::filesystem::path folder(KELP_TEST_PROGRAM_FOLDER);
  const std::filesystem::path relative = "kelp-locate-file-test/here.yaml";
  test::write_file(folder / relative, "");
  expect_same_file(locate_file(utf8(relative), "", {}, 0), folder / relative);
  std::filesystem::remove_all(folder / relative.parent_path());
}

}  // namespace
}  // namespace kelp::core::resource
