// A process that dies in the middle of a replacement leaves the old file or the new one.

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <random>
#include <string>
#include <thread>

#include "core/posix/child.hpp"
#include "kelp/core/fs.hpp"
#include "support/files.hpp"

namespace kelp::core::fs {
namespace {

using test::TemporaryFolder;
using test::utf8;

constexpr std::size_t text_size = 256 * 1024;

// Tells through a pipe that the first replacement is done, and goes on until it is killed.
pid_t start_replacing(const std::string& path, const std::string& one, const std::string& other,
                      int told) {
  return test::start_child([&, told] {
    if (!write_text_file_atomic(path, one) || ::write(told, "x", 1) != 1) {
      return 1;
    }
    while (write_text_file_atomic(path, other) && write_text_file_atomic(path, one)) {
    }
    return 2;
  });
}

TEST(WriteTextFileAtomicKill, AProcessKilledAtAnyMomentLeavesOneWholeText) {
  const TemporaryFolder folder;
  const std::string path = utf8(folder / "job.inp");
  const std::string one(text_size, '1');
  const std::string other(text_size + 1000, '2');
  std::mt19937 random(4);
  int ends[2] = {-1, -1};
  ASSERT_EQ(::pipe(ends), 0);
  for (int round = 0; round < 220; ++round) {
    const pid_t child = start_replacing(path, one, other, ends[1]);
    char byte = 0;
    ASSERT_EQ(::read(ends[0], &byte, 1), 1);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 4000));
    ::kill(child, SIGKILL);
    ASSERT_EQ(test::wait_for(child), -SIGKILL) << "round " << round;
    const std::string bytes = test::file_bytes(path);
    ASSERT_TRUE(bytes == one || bytes == other) << bytes.size() << " bytes, round " << round;
  }
  ::close(ends[0]);
  ::close(ends[1]);
}

TEST(WriteTextFileAtomicKill, AReaderSeesOneWholeTextWhileItIsReplaced) {
  const TemporaryFolder folder;
  const std::string path = utf8(folder / "job.inp");
  const std::string one(text_size, '1');
  const std::string other(text_size + 1000, '2');
  int ends[2] = {-1, -1};
  ASSERT_EQ(::pipe(ends), 0);
  const pid_t child = start_replacing(path, one, other, ends[1]);
  char byte = 0;
  ASSERT_EQ(::read(ends[0], &byte, 1), 1);
  for (int i = 0; i < 500; ++i) {
    const std::string bytes = read_text_file(path);
    ASSERT_TRUE(bytes == one || bytes == other) << bytes.size() << " bytes";
  }
  ::kill(child, SIGKILL);
  EXPECT_EQ(test::wait_for(child), -SIGKILL);
  ::close(ends[0]);
  ::close(ends[1]);
}

}  // namespace
}  // namespace kelp::core::fs
