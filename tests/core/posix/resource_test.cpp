#include "kelp/core/resource.hpp"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "support/files.hpp"

namespace kelp::core::resource {
namespace {

using test::TemporaryFolder;
using test::utf8;

TEST(IsRegularFilePathPosix, FollowsSymbolicLinks) {
  const TemporaryFolder folder;
  test::write_file(folder / "file", "");
  std::filesystem::create_symlink("file", folder / "to-file");
  std::filesystem::create_symlink("missing", folder / "dangling");
  std::filesystem::create_symlink(".", folder / "to-folder");
  EXPECT_TRUE(is_regular_file_path(utf8(folder / "to-file")));
  EXPECT_FALSE(is_regular_file_path(utf8(folder / "dangling")));
  EXPECT_FALSE(is_regular_file_path(utf8(folder / "to-folder")));
}

TEST(IsRegularFilePathPosix, RefusesDevicesAndPipes) {
  const TemporaryFolder folder;
  ASSERT_EQ(::mkfifo(utf8(folder / "pipe").c_str(), 0600), 0);
  EXPECT_FALSE(is_regular_file_path("/dev/null"));
  EXPECT_FALSE(is_regular_file_path(utf8(folder / "pipe")));
}

TEST(IsRegularFilePathPosix, RefusesAPathTooLongForTheSystem) {
  EXPECT_FALSE(is_regular_file_path("/" + std::string(10'000, 'x')));
}

}  // namespace
}  // namespace kelp::core::resource
