#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>

#include "core/posix/child.hpp"
#include "kelp/core/fs.hpp"
#include "support/files.hpp"

namespace kelp::core::fs {
namespace {

using test::TemporaryFolder;
using test::utf8;

TEST(ReadTextFilePosix, ReadsANamedPipeToItsEnd) {
  const TemporaryFolder folder;
  const std::string path = utf8(folder / "pipe");
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  const std::string text(300'000, 'p');
  std::thread writer([&] {
    std::ofstream out(path, std::ios::binary);
    out << text;
  });
  const std::string read = read_text_file(path);
  writer.join();
  EXPECT_TRUE(read == text);
}

TEST(ReadTextFilePosix, ReadsNoDeviceAndNoMoreOfAPipeThanAllowed) {
  EXPECT_THROW(read_text_file("/dev/null", 10), std::runtime_error);
  const TemporaryFolder folder;
  const std::string path = utf8(folder / "pipe");
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  std::thread writer([&] {
    std::ofstream out(path, std::ios::binary);
    out << std::string(300, 'p');
  });
  EXPECT_THROW(read_text_file(path, 299), FileTooLarge);
  writer.join();
}

// Nobody writes into the pipe: whoever opened it would wait for ever.
TEST(FileHoldsPosix, IsFalseForAPipeAndADeviceWithoutOpeningThem) {
  const TemporaryFolder folder;
  const std::string path = utf8(folder / "pipe");
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  EXPECT_FALSE(file_holds(path, ""));
  EXPECT_FALSE(file_holds("/dev/null", ""));
}

TEST(ReadTextFilePosix, ReadsADeviceAndAFileWithoutASize) {
  EXPECT_EQ(read_text_file("/dev/null"), "");
  if (std::filesystem::exists("/proc/self/cmdline")) {
    EXPECT_NE(read_text_file("/proc/self/cmdline").find("core_tests"), std::string::npos);
  }
}

TEST(ReadTextFilePosix, FollowsASymbolicLink) {
  const TemporaryFolder folder;
  test::write_file(folder / "target", "text");
  std::filesystem::create_symlink("target", folder / "link");
  EXPECT_EQ(read_text_file(utf8(folder / "link")), "text");
}

TEST(ReadTextFilePosix, ThrowsForALoopOfLinks) {
  const TemporaryFolder folder;
  std::filesystem::create_symlink("b", folder / "a");
  std::filesystem::create_symlink("a", folder / "b");
  EXPECT_THROW(read_text_file(utf8(folder / "a")), std::runtime_error);
}

TEST(ReadTextFilePosix, ThrowsForAFileThatMayNotBeRead) {
  const TemporaryFolder folder;
  std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
  test::write_file(folder / "secret", "text");
  std::filesystem::permissions(folder / "secret", std::filesystem::perms::none);
  EXPECT_EQ(test::status_of_child([&] {
              test::drop_privileges();
              try {
                read_text_file(utf8(folder / "secret"));
              } catch (const std::runtime_error&) {
                return 0;
              }
              return 1;
            }),
            0);
}

}  // namespace
}  // namespace kelp::core::fs
