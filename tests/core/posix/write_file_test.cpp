#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "core/posix/child.hpp"
#include "kelp/core/fs.hpp"
#include "support/files.hpp"

namespace kelp::core::fs {
namespace {

namespace stdfs = std::filesystem;

using test::file_bytes;
using test::names_in;
using test::TemporaryFolder;
using test::utf8;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

struct stat status_of(const stdfs::path& path) {
  struct stat status {};
  EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
  return status;
}

unsigned mode_of(const stdfs::path& path) {
  return status_of(path).st_mode & 07777U;
}

TEST(WriteTextFileAtomicPosix, KeepsTheModeOfTheFile) {
  const TemporaryFolder folder;
  for (const unsigned mode : {0640U, 0600U, 0755U, 0666U, 0200U}) {
    test::write_file(folder / "job.inp", "old");
    ASSERT_EQ(::chmod(utf8(folder / "job.inp").c_str(), mode), 0);
    EXPECT_TRUE(write_text_file_atomic(utf8(folder / "job.inp"), "new"));
    EXPECT_EQ(mode_of(folder / "job.inp"), mode);
    stdfs::remove(folder / "job.inp");
  }
}

TEST(WriteTextFileAtomicPosix, GivesANewFileTheModeThatTheUserWants) {
  const TemporaryFolder folder;
  const mode_t before = ::umask(027);
  EXPECT_TRUE(write_text_file_atomic(utf8(folder / "job.inp"), "new"));
  ::umask(before);
  EXPECT_EQ(mode_of(folder / "job.inp"), 0640U);
}

TEST(WriteTextFileAtomicPosix, KeepsTheOwnerOfTheFile) {
  if (::geteuid() != 0) {
    GTEST_SKIP() << "only root can give files away";
  }
  const TemporaryFolder folder;
  test::write_file(folder / "job.inp", "old");
  ASSERT_EQ(::chown(utf8(folder / "job.inp").c_str(), 1234, 4321), 0);
  ASSERT_EQ(::chmod(utf8(folder / "job.inp").c_str(), 04750), 0);
  EXPECT_TRUE(write_text_file_atomic(utf8(folder / "job.inp"), "new"));
  EXPECT_EQ(status_of(folder / "job.inp").st_uid, 1234U);
  EXPECT_EQ(status_of(folder / "job.inp").st_gid, 4321U);
  EXPECT_EQ(mode_of(folder / "job.inp"), 04750U);
}

TEST(WriteTextFileAtomicPosix, ReplacesTheTargetOfALinkAndKeepsTheLink) {
  const TemporaryFolder folder;
  test::write_file(folder / "data/target.inp", "old");
  ASSERT_EQ(::chmod(utf8(folder / "data/target.inp").c_str(), 0640), 0);
  stdfs::create_symlink("data/target.inp", folder / "link.inp");
  EXPECT_TRUE(write_text_file_atomic(utf8(folder / "link.inp"), "new"));
  EXPECT_EQ(stdfs::read_symlink(folder / "link.inp"), "data/target.inp");
  EXPECT_EQ(file_bytes(folder / "data/target.inp"), "new");
  EXPECT_EQ(mode_of(folder / "data/target.inp"), 0640U);
  EXPECT_THAT(names_in(folder.path()), UnorderedElementsAre("data", "link.inp"));
  EXPECT_THAT(names_in(folder / "data"), ElementsAre("target.inp"));
}

TEST(WriteTextFileAtomicPosix, FollowsAChainOfLinksAcrossFolders) {
  const TemporaryFolder folder;
  test::write_file(folder / "c/target", "old");
  stdfs::create_directories(folder / "a");
  stdfs::create_directories(folder / "b");
  stdfs::create_symlink("../b/second", folder / "a/first");
  stdfs::create_symlink(folder / "c/target", folder / "b/second");
  EXPECT_TRUE(write_text_file_atomic(utf8(folder / "a/first"), "new"));
  EXPECT_EQ(file_bytes(folder / "c/target"), "new");
  EXPECT_TRUE(stdfs::is_symlink(folder / "a/first"));
  EXPECT_TRUE(stdfs::is_symlink(folder / "b/second"));
}

TEST(WriteTextFileAtomicPosix, GoesUpFromTheRealFolderOfALinkedOne) {
  const TemporaryFolder folder;
  stdfs::create_directories(folder / "real/inner");
  test::write_file(folder / "real/target", "old");
  stdfs::create_directory_symlink("real/inner", folder / "shortcut");
  stdfs::create_symlink("../target", folder / "real/inner/link");
  EXPECT_TRUE(write_text_file_atomic(utf8(folder / "shortcut/link"), "new"));
  EXPECT_EQ(file_bytes(folder / "real/target"), "new");
  EXPECT_THAT(names_in(folder.path()), UnorderedElementsAre("real", "shortcut"));
}

TEST(WriteTextFileAtomicPosix, MakesTheMissingTargetOfALink) {
  const TemporaryFolder folder;
  stdfs::create_symlink("target", folder / "link");
  EXPECT_TRUE(write_text_file_atomic(utf8(folder / "link"), "new"));
  EXPECT_TRUE(stdfs::is_symlink(folder / "link"));
  EXPECT_FALSE(stdfs::is_symlink(folder / "target"));
  EXPECT_EQ(file_bytes(folder / "target"), "new");
}

TEST(WriteTextFileAtomicPosix, RefusesALinkIntoAMissingFolder) {
  const TemporaryFolder folder;
  stdfs::create_symlink("missing/target", folder / "link");
  EXPECT_FALSE(write_text_file_atomic(utf8(folder / "link"), "new"));
  EXPECT_TRUE(stdfs::is_symlink(folder / "link"));
  EXPECT_THAT(names_in(folder.path()), ElementsAre("link"));
}

TEST(WriteTextFileAtomicPosix, RefusesALoopOfLinks) {
  const TemporaryFolder folder;
  stdfs::create_symlink("b", folder / "a");
  stdfs::create_symlink("a", folder / "b");
  EXPECT_FALSE(write_text_file_atomic(utf8(folder / "a"), "new"));
  EXPECT_THAT(names_in(folder.path()), UnorderedElementsAre("a", "b"));
  EXPECT_TRUE(stdfs::is_symlink(folder / "a"));
}

TEST(WriteTextFileAtomicPosix, RefusesALinkToAFolder) {
  const TemporaryFolder folder;
  stdfs::create_directory(folder / "folder");
  stdfs::create_directory_symlink("folder", folder / "link");
  EXPECT_FALSE(write_text_file_atomic(utf8(folder / "link"), "new"));
  EXPECT_TRUE(stdfs::is_symlink(folder / "link"));
  EXPECT_THAT(names_in(folder.path()), UnorderedElementsAre("folder", "link"));
}

TEST(WriteTextFileAtomicPosix, RefusesAPipe) {
  const TemporaryFolder folder;
  ASSERT_EQ(::mkfifo(utf8(folder / "pipe").c_str(), 0600), 0);
  EXPECT_FALSE(write_text_file_atomic(utf8(folder / "pipe"), "new"));
  EXPECT_TRUE(S_ISFIFO(status_of(folder / "pipe").st_mode));
  EXPECT_THAT(names_in(folder.path()), ElementsAre("pipe"));
}

TEST(WriteTextFileAtomicPosix, RefusesADevice) {
  const TemporaryFolder folder;
  // A null device of its own: a wrong replacement must not hit the system's.
  if (::mknod(utf8(folder / "null").c_str(), S_IFCHR | 0666, makedev(1, 3)) != 0) {
    GTEST_SKIP() << "no device can be made here";
  }
  EXPECT_FALSE(write_text_file_atomic(utf8(folder / "null"), "new"));
  EXPECT_TRUE(S_ISCHR(status_of(folder / "null").st_mode));
  EXPECT_THAT(names_in(folder.path()), ElementsAre("null"));
}

TEST(WriteTextFileAtomicPosix, RefusesAFileThatMayNotBeWritten) {
  const TemporaryFolder folder;
  ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
  const std::string path = utf8(folder / "job.inp");
  EXPECT_EQ(test::status_of_child([&] {
              test::drop_privileges();
              test::write_file(path, "old");
              ::chmod(path.c_str(), 0444);
              return write_text_file_atomic(path, "new") ? 1 : 0;
            }),
            0);
  EXPECT_EQ(file_bytes(path), "old");
  EXPECT_THAT(names_in(folder.path()), ElementsAre("job.inp"));
}

}  // namespace
}  // namespace kelp::core::fs
