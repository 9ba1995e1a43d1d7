// Wine knows no limit on the length of a path, so these cannot show that the prefix is needed; they
// show that nothing breaks with it. The tests of wide paths show that it is there.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "deep_folder.hpp"
#include "kelp/core/fs.hpp"
#include "kelp/core/resource.hpp"

namespace kelp::core {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(LongPath, IsWrittenReadAndFound) {
  const DeepFolder folder;
  const std::string path = folder.path() + "\\job.inp";
  ASSERT_GT(path.size(), 300U);
  EXPECT_TRUE(fs::write_text_file_atomic(path, "one"));
  EXPECT_TRUE(fs::write_text_file_atomic(path, "two"));
  EXPECT_EQ(fs::read_text_file(path), "two");
  EXPECT_TRUE(resource::is_regular_file_path(path));
  EXPECT_TRUE(fs::is_directory(folder.path()));
  EXPECT_THAT(folder.names(), ElementsAre("job.inp"));
}

TEST(LongPath, IsListed) {
  const DeepFolder folder;
  ASSERT_TRUE(fs::write_text_file_atomic(folder.path() + "\\b.inp", ""));
  ASSERT_TRUE(fs::write_text_file_atomic(folder.path() + "\\a.inp", ""));
  const fs::FolderContents contents = fs::files_below(folder.top());
  EXPECT_THAT(contents.files, ElementsAre(folder.path() + "\\a.inp", folder.path() + "\\b.inp"));
  EXPECT_THAT(contents.errors, IsEmpty());
}

TEST(LongPath, IsLocatedFromAHint) {
  const DeepFolder folder;
  ASSERT_TRUE(fs::write_text_file_atomic(folder.path() + "\\deep.yaml", ""));
  const std::string found =
      resource::locate_file("deep.yaml", folder.path() + "\\missing\\below", {}, 6);
  EXPECT_EQ(wide_path(found), wide_path(folder.path() + "\\deep.yaml"));
}

}  // namespace
}  // namespace kelp::core
