// What the disk or the system refuses: the old file stays as it was, and nothing is left beside it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>
#include <string>

#include "core/posix/child.hpp"
#include "kelp/core/fs.hpp"
#include "support/files.hpp"

namespace kelp::core::fs {
namespace {

using test::file_bytes;
using test::names_in;
using test::TemporaryFolder;
using test::utf8;
using testing::ElementsAre;
using testing::IsEmpty;

// What a child says of its attempt.
enum Outcome : int { refused = 0, written = 1, damaged = 2, littered = 3, impossible = 77 };

void limit_file_size(rlim_t bytes) {
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{bytes, bytes};
  ::setrlimit(RLIMIT_FSIZE, &limit);
}

TEST(WriteTextFileAtomicFailure, AWriteCutOffHalfWayLeavesTheOldFile) {
  const TemporaryFolder folder;
  test::write_file(folder / "job.inp", "old");
  EXPECT_EQ(test::status_of_child([&] {
              limit_file_size(4096);
              return write_text_file_atomic(utf8(folder / "job.inp"), std::string(100'000, 'n'))
                         ? written
                         : refused;
            }),
            refused);
  EXPECT_EQ(file_bytes(folder / "job.inp"), "old");
  EXPECT_THAT(names_in(folder.path()), ElementsAre("job.inp"));
}

TEST(WriteTextFileAtomicFailure, AWriteCutOffHalfWayMakesNoNewFile) {
  const TemporaryFolder folder;
  EXPECT_EQ(test::status_of_child([&] {
              limit_file_size(4096);
              return write_text_file_atomic(utf8(folder / "job.inp"), std::string(4097, 'n'))
                         ? written
                         : refused;
            }),
            refused);
  EXPECT_THAT(names_in(folder.path()), IsEmpty());
}

TEST(WriteTextFileAtomicFailure, ATextThatJustFitsIsWritten) {
  const TemporaryFolder folder;
  EXPECT_EQ(test::status_of_child([&] {
              limit_file_size(4096);
              return write_text_file_atomic(utf8(folder / "job.inp"), std::string(4096, 'n'))
                         ? written
                         : refused;
            }),
            written);
  EXPECT_EQ(file_bytes(folder / "job.inp"), std::string(4096, 'n'));
}

TEST(WriteTextFileAtomicFailure, AFolderThatMayNotBeWrittenRefusesNewAndOldFiles) {
  const TemporaryFolder folder;
  test::write_file(folder / "job.inp", "old");
  ASSERT_EQ(::chmod(utf8(folder / "job.inp").c_str(), 0666), 0);
  ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
  EXPECT_EQ(test::status_of_child([&] {
              test::drop_privileges();
              const bool replaced = write_text_file_atomic(utf8(folder / "job.inp"), "new");
              const bool made = write_text_file_atomic(utf8(folder / "other.inp"), "new");
              return replaced || made ? written : refused;
            }),
            refused);
  EXPECT_EQ(file_bytes(folder / "job.inp"), "old");
  EXPECT_THAT(names_in(folder.path()), ElementsAre("job.inp"));
  ::chmod(folder.path().c_str(), 0755);
}

TEST(WriteTextFileAtomicFailure, WithoutAFreeFileDescriptorNothingChanges) {
  const TemporaryFolder folder;
  test::write_file(folder / "job.inp", "old");
  EXPECT_EQ(test::status_of_child([&] {
              const rlimit none{0, 0};
              ::setrlimit(RLIMIT_NOFILE, &none);
              return write_text_file_atomic(utf8(folder / "job.inp"), "new") ? written : refused;
            }),
            refused);
  EXPECT_EQ(file_bytes(folder / "job.inp"), "old");
  EXPECT_THAT(names_in(folder.path()), ElementsAre("job.inp"));
}

// In a mount of its own, which goes away with the child.
int write_on_a_full_disk(const std::filesystem::path& folder) {
  if (::unshare(CLONE_NEWNS) != 0 ||
      ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
      ::mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=64k") != 0) {
    return impossible;
  }
  const std::string path = utf8(folder / "job.inp");
  if (!write_text_file_atomic(path, "old") || file_bytes(path) != "old") {
    return damaged;
  }
  if (write_text_file_atomic(path, std::string(200'000, 'n'))) {
    return written;
  }
  if (file_bytes(path) != "old") {
    return damaged;
  }
  return names_in(folder).size() == 1 ? refused : littered;
}

TEST(WriteTextFileAtomicFailure, AFullDiskLeavesTheOldFile) {
  const TemporaryFolder folder;
  const int outcome = test::status_of_child([&] { return write_on_a_full_disk(folder.path()); });
  if (outcome == impossible) {
    GTEST_SKIP() << "no file system can be mounted here";
  }
  EXPECT_EQ(outcome, refused);
}

}  // namespace
}  // namespace kelp::core::fs
