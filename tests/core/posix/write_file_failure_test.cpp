// What the disk or the system refuses: the old file stays as it was, and nothing is left beside it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

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

std::string cause_of_refusal(const std::string& path, std::string_view text = "new") {
  try {
    write_text_file(path, text);
  } catch (const std::runtime_error& error) {
    const std::string start = "cannot write '" + path + "': ";
    const std::string cause = error.what();
    return cause.substr(0, start.size()) == start ? cause.substr(start.size()) : cause;
  }
  return {};
}

TEST(WriteTextFileCause, IsTheOneThatTheSystemGives) {
  const TemporaryFolder folder;
  test::write_file(folder / "file", "old");
  std::filesystem::create_symlink("b", folder / "a");
  std::filesystem::create_symlink("a", folder / "b");
  ASSERT_EQ(::mkfifo(utf8(folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(cause_of_refusal(utf8(folder / "a")), "Too many levels of symbolic links");
  EXPECT_EQ(cause_of_refusal(utf8(folder / std::string(256, 'n'))), "File name too long");
  EXPECT_EQ(cause_of_refusal(utf8(folder / std::string(5000, 'n'))), "File name too long");
  EXPECT_EQ(cause_of_refusal(utf8(folder / "file" / "below")), "Not a directory");
  EXPECT_EQ(cause_of_refusal(utf8(folder / "pipe")), "it is no regular file");
  EXPECT_FALSE(write_text_file_atomic(utf8(folder / "file") + std::string("\0b", 2), "new"));
  EXPECT_EQ(test::status_of_child([&] {
              limit_file_size(4096);
              return cause_of_refusal(utf8(folder / "file"), std::string(5000, 'n')) ==
                             "File too large"
                         ? refused
                         : written;
            }),
            refused);
  EXPECT_EQ(file_bytes(folder / "file"), "old");
}

TEST(WriteTextFileCause, TellsAProtectedFileFromAProtectedFolder) {
  const TemporaryFolder folder;
  test::write_file(folder / "open/locked", "old");
  test::write_file(folder / "locked/open", "old");
  ASSERT_EQ(::chmod(utf8(folder.path()).c_str(), 0755), 0);
  ASSERT_EQ(::chmod(utf8(folder / "open").c_str(), 0777), 0);
  ASSERT_EQ(::chmod(utf8(folder / "open/locked").c_str(), 0444), 0);
  ASSERT_EQ(::chmod(utf8(folder / "locked/open").c_str(), 0666), 0);
  ASSERT_EQ(::chmod(utf8(folder / "locked").c_str(), 0555), 0);
  EXPECT_EQ(test::status_of_child([&] {
              test::drop_privileges();
              EXPECT_EQ(cause_of_refusal(utf8(folder / "open/locked")), "it is write-protected");
              EXPECT_EQ(cause_of_refusal(utf8(folder / "locked/open")),
                        "its folder is write-protected");
              return testing::Test::HasFailure() ? 1 : 0;
            }),
            0);
  ::chmod(utf8(folder / "locked").c_str(), 0755);
}

// In mounts of its own, which go away with the child.
int causes_of_mounts(const std::filesystem::path& folder) {
  test::write_file(folder / "mounted", "old");
  test::write_file(folder / "other", "other");
  std::filesystem::create_directory(folder / "full");
  if (::unshare(CLONE_NEWNS) != 0 ||
      ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
      ::mount(utf8(folder / "other").c_str(), utf8(folder / "mounted").c_str(), nullptr, MS_BIND,
              nullptr) != 0 ||
      ::mount("tmpfs", utf8(folder / "full").c_str(), "tmpfs", 0, "size=64k") != 0) {
    return impossible;
  }
  EXPECT_EQ(cause_of_refusal(utf8(folder / "mounted")), "Device or resource busy");
  EXPECT_EQ(cause_of_refusal(utf8(folder / "full/a"), std::string(200'000, 'n')),
            "No space left on device");
  EXPECT_THAT(names_in(folder), testing::UnorderedElementsAre("full", "mounted", "other"));
  return testing::Test::HasFailure() ? written : refused;
}

TEST(WriteTextFileCause, IsAMountOrAFullDisk) {
  const TemporaryFolder folder;
  const int outcome = test::status_of_child([&] { return causes_of_mounts(folder.path()); });
  if (outcome == impossible) {
    GTEST_SKIP() << "no file system can be mounted here";
  }
  EXPECT_EQ(outcome, refused);
}

}  // namespace
}  // namespace kelp::core::fs
