// A process that dies in the middle of a replacement leaves the old file or the new one.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
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

// Elsewhere a file that is being written has a name, and stays when its process is killed.
bool has_unnamed_files(const std::filesystem::path& folder) {
#ifdef O_TMPFILE
  const int file = ::open(folder.c_str(), O_TMPFILE | O_WRONLY, 0600);
  ::close(file);
  return file >= 0;
#else
  return folder.empty();
#endif
}

// Removes what a killed process left beside the file, and tells whether there was anything. A name
// is given to a whole text only.
bool has_litter(const std::filesystem::path& folder) {
  bool found = false;
  for (const std::string& name : test::names_in(folder)) {
    if (name != "job.inp") {
      found = true;
      EXPECT_GE(test::file_bytes(folder / name).size(), text_size);
      std::filesystem::remove(folder / name);
    }
  }
  return found;
}

TEST(WriteTextFileAtomicKill, AProcessKilledAtAnyMomentLeavesOneWholeText) {
  const TemporaryFolder folder;
  const std::string path = utf8(folder / "job.inp");
  const std::string one(text_size, '1');
  const std::string other(text_size + 1000, '2');
  std::mt19937 random(4);
  int ends[2] = {-1, -1};
  ASSERT_EQ(::pipe(ends), 0);
  std::size_t rounds_with_litter = 0;
  for (int round = 0; round < 220; ++round) {
    const pid_t child = start_replacing(path, one, other, ends[1]);
    char byte = 0;
    ASSERT_EQ(::read(ends[0], &byte, 1), 1);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 4000));
    ::kill(child, SIGKILL);
    ASSERT_EQ(test::wait_for(child), -SIGKILL) << "round " << round;
    const std::string bytes = test::file_bytes(path);
    ASSERT_TRUE(bytes == one || bytes == other) << bytes.size() << " bytes, round " << round;
    if (has_unnamed_files(folder.path())) {
      rounds_with_litter += has_litter(folder.path()) ? 1 : 0;
    }
  }
  // Between the two calls that name a whole text and put it in place there is a moment left.
  RecordProperty("RoundsWithLitter", static_cast<int>(rounds_with_litter));
  EXPECT_LT(rounds_with_litter, 20U);
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
