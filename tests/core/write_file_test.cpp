#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "kelp/core/fs.hpp"
#include "support/environment.hpp"
#include "support/files.hpp"

namespace kelp::core::fs {
namespace {

using test::file_bytes;
using test::names_in;
using test::TemporaryFolder;
using test::utf8;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST(WriteTextFileAtomic, MakesANewFileAndNothingElse) {
  const TemporaryFolder folder;
  EXPECT_TRUE(write_text_file_atomic(utf8(folder / "job.inp"), "$scf\n$end\n"));
  EXPECT_EQ(file_bytes(folder / "job.inp"), "$scf\n$end\n");
  EXPECT_THAT(names_in(folder.path()), ElementsAre("job.inp"));
}

TEST(WriteTextFileAtomic, ReplacesALongerFileByAShorterText) {
  const TemporaryFolder folder;
  test::write_file(folder / "job.inp", std::string(10'000, 'o'));
  EXPECT_TRUE(write_text_file_atomic(utf8(folder / "job.inp"), "new"));
  EXPECT_EQ(file_bytes(folder / "job.inp"), "new");
  EXPECT_THAT(names_in(folder.path()), ElementsAre("job.inp"));
}

TEST(WriteTextFileAtomic, WritesEveryByteAsItIs) {
  const TemporaryFolder folder;
  std::string bytes = "a\nb\r\nc\r";
  for (int byte = 0; byte < 256; ++byte) {
    bytes += static_cast<char>(byte);
  }
  EXPECT_TRUE(write_text_file_atomic(utf8(folder / "bytes"), bytes));
  EXPECT_EQ(file_bytes(folder / "bytes"), bytes);
}

TEST(WriteTextFileAtomic, WritesAnEmptyText) {
  const TemporaryFolder folder;
  test::write_file(folder / "job.inp", "old");
  EXPECT_TRUE(write_text_file_atomic(utf8(folder / "job.inp"), ""));
  EXPECT_TRUE(std::filesystem::exists(folder / "job.inp"));
  EXPECT_EQ(file_bytes(folder / "job.inp"), "");
}

TEST(WriteTextFileAtomic, WritesALargeText) {
  const TemporaryFolder folder;
  const std::string large(8'000'001, 'l');
  EXPECT_TRUE(write_text_file_atomic(utf8(folder / "large"), large));
  EXPECT_TRUE(file_bytes(folder / "large") == large);
}

TEST(WriteTextFileAtomic, TakesPathsWithBlanksAndNonAsciiLetters) {
  const TemporaryFolder folder;
  const auto path = folder / u8"mit Leerzeichen/Wasser-Molekül 水.inp";
  std::filesystem::create_directories(path.parent_path());
  EXPECT_TRUE(write_text_file_atomic(utf8(path), "one"));
  EXPECT_TRUE(write_text_file_atomic(utf8(path), "two"));
  EXPECT_EQ(file_bytes(path), "two");
  EXPECT_THAT(names_in(path.parent_path()), ElementsAre("Wasser-Molekül 水.inp"));
}

TEST(WriteTextFileAtomic, TakesTheLongestNameThatAFileCanHave) {
  const TemporaryFolder folder;
  const std::string name(255, 'n');
  EXPECT_TRUE(write_text_file_atomic(utf8(folder / name), "one"));
  EXPECT_TRUE(write_text_file_atomic(utf8(folder / name), "two"));
  EXPECT_EQ(file_bytes(folder / name), "two");
  EXPECT_THAT(names_in(folder.path()), ElementsAre(name));
}

TEST(WriteTextFileAtomic, TakesANameRelativeToTheCurrentFolder) {
  const TemporaryFolder folder;
  {
    const test::CurrentFolder here(folder.path());
    EXPECT_TRUE(write_text_file_atomic("job.inp", "text"));
    EXPECT_TRUE(write_text_file_atomic("./job.inp", "more"));
  }
  EXPECT_EQ(file_bytes(folder / "job.inp"), "more");
  EXPECT_THAT(names_in(folder.path()), ElementsAre("job.inp"));
}

TEST(WriteTextFileAtomic, RefusesAFolder) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder / "empty");
  test::write_file(folder / "full" / "file", "kept");
  EXPECT_FALSE(write_text_file_atomic(utf8(folder / "empty"), "text"));
  EXPECT_FALSE(write_text_file_atomic(utf8(folder / "full"), "text"));
  EXPECT_FALSE(write_text_file_atomic(utf8(folder / "empty") + "/", "text"));
  EXPECT_THAT(names_in(folder.path()), UnorderedElementsAre("empty", "full"));
  EXPECT_THAT(names_in(folder / "empty"), IsEmpty());
  EXPECT_EQ(file_bytes(folder / "full" / "file"), "kept");
}

TEST(WriteTextFileAtomic, RefusesAMissingFolder) {
  const TemporaryFolder folder;
  EXPECT_FALSE(write_text_file_atomic(utf8(folder / "missing" / "job.inp"), "text"));
  EXPECT_THAT(names_in(folder.path()), IsEmpty());
}

TEST(WriteTextFileAtomic, RefusesAFileInPlaceOfTheFolder) {
  const TemporaryFolder folder;
  test::write_file(folder / "file", "kept");
  EXPECT_FALSE(write_text_file_atomic(utf8(folder / "file" / "job.inp"), "text"));
  EXPECT_FALSE(write_text_file_atomic(utf8(folder / "file") + "/", "text"));
  EXPECT_EQ(file_bytes(folder / "file"), "kept");
  EXPECT_THAT(names_in(folder.path()), ElementsAre("file"));
}

TEST(WriteTextFileAtomic, RefusesAnEmptyPath) {
  const TemporaryFolder folder;
  const test::CurrentFolder here(folder.path());
  EXPECT_FALSE(write_text_file_atomic("", "text"));
  EXPECT_THAT(names_in(folder.path()), IsEmpty());
}

TEST(WriteTextFileAtomic, RefusesANameTooLongForTheSystem) {
  const TemporaryFolder folder;
  EXPECT_FALSE(write_text_file_atomic(utf8(folder / std::string(256, 'n')), "text"));
  EXPECT_THAT(names_in(folder.path()), IsEmpty());
}

#ifndef _WIN32
// On Windows one of two writers at once may be refused; nobody is here.
TEST(WriteTextFileAtomic, OfSeveralWritersAtOnceOneWinsAsAWhole) {
  const TemporaryFolder folder;
  const std::string path = utf8(folder / "job.inp");
  std::vector<std::thread> writers;
  for (char letter = 'a'; letter < 'e'; ++letter) {
    writers.emplace_back([letter, &path] {
      for (int i = 0; i < 20; ++i) {
        EXPECT_TRUE(write_text_file_atomic(path, std::string(20'000, letter)));
      }
    });
  }
  for (std::thread& writer : writers) {
    writer.join();
  }
  const std::string bytes = file_bytes(path);
  EXPECT_EQ(bytes, std::string(20'000, bytes.at(0)));
  EXPECT_THAT(names_in(folder.path()), ElementsAre("job.inp"));
}
#endif

}  // namespace
}  // namespace kelp::core::fs
