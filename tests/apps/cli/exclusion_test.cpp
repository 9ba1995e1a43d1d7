#include "cli/exclusion.hpp"

#include <gtest/gtest.h>

namespace kelp::app {
namespace {

TEST(Exclusion, OfANameIsAboutFilesAndFoldersAtAnyDepth) {
  const Exclusion exclusion("runs", {"old*"});
  EXPECT_TRUE(exclusion.leaves_out("runs/old"));
  EXPECT_TRUE(exclusion.leaves_out("runs/a/old.inp"));
  EXPECT_FALSE(exclusion.leaves_out("runs/a/bold.inp"));
  EXPECT_FALSE(exclusion.leaves_out("runs/old/a.inp"));
}

TEST(Exclusion, OfAPathIsAboutPathsBelowTheFolderOrAsWritten) {
  const Exclusion exclusion("runs/", {"a/*.inp", "./b/c.inp", "runs/d/**"});
  EXPECT_TRUE(exclusion.leaves_out("runs/a/x.inp"));
  EXPECT_FALSE(exclusion.leaves_out("runs/x/a/x.inp"));
  EXPECT_TRUE(exclusion.leaves_out("runs/b/c.inp"));
  EXPECT_TRUE(exclusion.leaves_out("runs/d/x/y.inp"));
  EXPECT_FALSE(exclusion.leaves_out("runs/c/x.inp"));
}

TEST(Exclusion, OfTheCurrentFolderTakesPathsWithAndWithoutItsDot) {
  const Exclusion exclusion(".", {"a/b.inp"});
  EXPECT_TRUE(exclusion.leaves_out("./a/b.inp"));
  EXPECT_FALSE(exclusion.leaves_out("./b.inp"));
}

TEST(Exclusion, TakesTheNameOfAFolderWithASlashBehindIt) {
  const Exclusion exclusion("d", {"old/"});
  EXPECT_TRUE(exclusion.leaves_out("d/x/old"));
}

TEST(Exclusion, OfNothingLeavesNothingOut) {
  EXPECT_FALSE(Exclusion("d", {}).leaves_out("d/a.inp"));
}

}  // namespace
}  // namespace kelp::app
