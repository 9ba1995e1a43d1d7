// Several who change one file at the same moment.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "kelp/core/fs.hpp"
#include "support/files.hpp"

namespace kelp::core::fs {
namespace {

using test::file_bytes;
using test::TemporaryFolder;
using test::utf8;
using testing::ElementsAre;
using testing::HasSubstr;

bool is_replaced(const std::string& path, std::string_view old_text, const std::string& text) {
  try {
    replace_text_file(path, old_text, text);
    return true;
  } catch (const std::runtime_error& error) {
    EXPECT_THAT(error.what(), HasSubstr("it was changed since it was read"));
    return false;
  }
}

TEST(ReplaceTextFilePosix, OfManyWhoReplaceOneTextAtOnceOneSucceeds) {
  const TemporaryFolder folder;
  const std::string path = utf8(folder / "job.inp");
  for (int round = 0; round < 20; ++round) {
    test::write_file(path, "old");
    std::vector<std::thread> threads;
    std::vector<int> outcomes(8);
    for (std::size_t i = 0; i < outcomes.size(); ++i) {
      threads.emplace_back(
          [&, i] { outcomes[i] = is_replaced(path, "old", std::to_string(i)) ? 1 : 0; });
    }
    for (std::thread& thread : threads) {
      thread.join();
    }
    EXPECT_THAT(outcomes, testing::Contains(1).Times(1));
    EXPECT_EQ(outcomes.at(std::stoul(file_bytes(path))), 1);
  }
}

TEST(ReplaceTextFilePosix, NothingThatSucceededIsLost) {
  const TemporaryFolder folder;
  const std::string path = utf8(folder / "job.inp");
  test::write_file(path, "");
  constexpr std::size_t writers = 4;
  constexpr std::size_t letters = 25;
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < writers; ++i) {
    threads.emplace_back([&, i] {
      for (std::size_t done = 0; done < letters;) {
        const std::string text = read_text_file(path);
        done += is_replaced(path, text, text + std::string(1, "abcd"[i])) ? 1 : 0;
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(file_bytes(path).size(), writers * letters);
}

TEST(ReplaceTextFilePosix, SaysThatAnotherProgramKeepsTheFileToItself) {
  const TemporaryFolder folder;
  const std::string path = utf8(folder / "job.inp");
  test::write_file(path, "old");
  const int other = ::open(path.c_str(), O_RDONLY);
  ASSERT_EQ(::flock(other, LOCK_EX), 0);
  try {
    replace_text_file(path, "old", "new");
    ADD_FAILURE() << "written";
  } catch (const std::runtime_error& error) {
    EXPECT_THAT(error.what(), HasSubstr("another program is changing it"));
  }
  ::close(other);
  EXPECT_EQ(file_bytes(path), "old");
  EXPECT_THAT(test::names_in(folder.path()), ElementsAre("job.inp"));
}

}  // namespace
}  // namespace kelp::core::fs
