// Unified diffs, byte for byte, and as `patch` reads them.

#include "report/unified_diff.hpp"

#include <gtest/gtest.h>

#include <string>

#include "support/program.hpp"

namespace kelp::app {
namespace {

using kelp::test::Outcome;
using kelp::test::Program;

TEST(UnifiedDiff, OfEqualTextsIsEmpty) {
  EXPECT_EQ(unified_diff("a.inp", "x\n", "x\n"), "");
  EXPECT_EQ(unified_diff("a.inp", "", ""), "");
}

TEST(UnifiedDiff, HasThreeLinesOfContext) {
  EXPECT_EQ(unified_diff("a.inp", "1\n2\n3\n4\n5\n6\n7\n8\n9\n", "1\n2\n3\n4\nfive\n6\n7\n8\n9\n"),
            "--- a/a.inp\n+++ b/a.inp\n"
            "@@ -2,7 +2,7 @@\n 2\n 3\n 4\n-5\n+five\n 6\n 7\n 8\n");
}

TEST(UnifiedDiff, ChangesWithSixLinesBetweenThemShareAHunk) {
  EXPECT_EQ(unified_diff("a", "x\n1\n2\n3\n4\n5\n6\ny\n", "X\n1\n2\n3\n4\n5\n6\nY\n"),
            "--- a/a\n+++ b/a\n"
            "@@ -1,8 +1,8 @@\n-x\n+X\n 1\n 2\n 3\n 4\n 5\n 6\n-y\n+Y\n");
}

TEST(UnifiedDiff, ChangesWithSevenLinesBetweenThemDoNot) {
  EXPECT_EQ(unified_diff("a", "x\n1\n2\n3\n4\n5\n6\n7\ny\n", "X\n1\n2\n3\n4\n5\n6\n7\nY\n"),
            "--- a/a\n+++ b/a\n"
            "@@ -1,4 +1,4 @@\n-x\n+X\n 1\n 2\n 3\n"
            "@@ -6,4 +6,4 @@\n 5\n 6\n 7\n-y\n+Y\n");
}

TEST(UnifiedDiff, AnEmptyTextHasRangeZero) {
  EXPECT_EQ(unified_diff("a", "", "x\n"), "--- a/a\n+++ b/a\n@@ -0,0 +1 @@\n+x\n");
  EXPECT_EQ(unified_diff("a", "x\n", ""), "--- a/a\n+++ b/a\n@@ -1 +0,0 @@\n-x\n");
}

TEST(UnifiedDiff, TellsOfAMissingLineEnd) {
  EXPECT_EQ(unified_diff("a", "x\ny", "x\ny\n"),
            "--- a/a\n+++ b/a\n@@ -1,2 +1,2 @@\n x\n-y\n\\ No newline at end of file\n+y\n");
}

TEST(UnifiedDiff, TellsALineWithACarriageReturnFromOneWithout) {
  EXPECT_EQ(unified_diff("a", "x\r\n", "x\n"), "--- a/a\n+++ b/a\n@@ -1 +1 @@\n-x\r\n+x\n");
}

TEST(UnifiedDiff, NamesAreRelativeAndProtected) {
  EXPECT_EQ(unified_diff("/tmp/a", "", "x\n").substr(0, 12), "--- a/tmp/a\n");
  EXPECT_EQ(unified_diff("my file", "", "x\n").substr(0, 15), "--- a/my file\t\n");
  EXPECT_EQ(unified_diff("a\nb", "", "x\n").substr(0, 15), "--- \"a/a\\012b\"\n");
}

#ifndef _WIN32
TEST(UnifiedDiff, IsWhatPatchUnderstands) {
  struct Row {
    const char* name;
    const char* from;
    const char* to;
  };
  for (const Row& row : {
           Row{"a.inp", "1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12\n",
               "0\n1\n2\n3\n5\n6\n7\n8\n9\n10\n11\n"},
           Row{"no end", "1\n2", "1\n3"},
           Row{"quote\"d\\name", "1\n2\n", "2\n1\n"},
           Row{"returns", "1\r\n2\r\n", "1\n2\n"},
       }) {
    Program program;
    program.write(row.name, row.from);
    program.write("the.diff", unified_diff(row.name, row.from, row.to));
    const Outcome outcome = program.run_in_shell(
        "command -v patch >/dev/null || exit 99; patch --binary -s -p1 < the.diff");
    if (outcome.status == 99) {
      GTEST_SKIP() << "there is no program 'patch'";
    }
    EXPECT_EQ(outcome.status, 0) << row.name << outcome.out << outcome.err;
    EXPECT_EQ(program.read(row.name), row.to) << row.name;
  }
}
#endif

}  // namespace
}  // namespace kelp::app
