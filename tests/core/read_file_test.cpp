#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "kelp/core/fs.hpp"
#include "support/files.hpp"

namespace kelp::core::fs {
namespace {

using test::TemporaryFolder;
using test::utf8;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

std::string error_of_reading(const std::string& path) {
  try {
    read_text_file(path);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "no error";
}

TEST(ReadTextFile, ReturnsEveryByteAsItIs) {
  const TemporaryFolder folder;
  std::string bytes = "\xEF\xBB\xBFline\r\nline\n\x1A";
  for (int byte = 0; byte < 256; ++byte) {
    bytes += static_cast<char>(byte);
  }
  test::write_file(folder / "bytes", bytes);
  EXPECT_EQ(read_text_file(utf8(folder / "bytes")), bytes);
}

TEST(ReadTextFile, ReturnsAnEmptyTextForAnEmptyFile) {
  const TemporaryFolder folder;
  test::write_file(folder / "empty", "");
  EXPECT_EQ(read_text_file(utf8(folder / "empty")), "");
}

TEST(ReadTextFile, ReadsALargeFile) {
  const TemporaryFolder folder;
  std::string large(5'000'003, 'x');
  for (std::size_t i = 0; i < large.size(); i += 997) {
    large[i] = static_cast<char>(i % 251);
  }
  test::write_file(folder / "large", large);
  EXPECT_TRUE(read_text_file(utf8(folder / "large")) == large);
}

TEST(ReadTextFile, RefusesAFileThatIsLargerThanAllowed) {
  const TemporaryFolder folder;
  test::write_file(folder / "a.inp", "12345");
  const std::string path = utf8(folder / "a.inp");
  EXPECT_EQ(read_text_file(path, 5), "12345");
  try {
    read_text_file(path, 4);
    FAIL();
  } catch (const FileTooLarge& error) {
    EXPECT_THAT(error.what(), HasSubstr("'" + path + "'"));
  }
}

TEST(ReadTextFile, TakesItsPathAsUtf8) {
  const TemporaryFolder folder;
  const std::filesystem::path name = folder / u8"ein Wasser-Molekül 水.inp";
  test::write_file(name, "text");
  EXPECT_EQ(read_text_file(utf8(name)), "text");
}

TEST(ReadTextFile, ThrowsForAMissingFileNamingPathAndCause) {
  const TemporaryFolder folder;
  const std::string path = utf8(folder / "missing.inp");
  EXPECT_THAT(error_of_reading(path), AllOf(HasSubstr("'" + path + "'"), Not(EndsWith("': "))));
}

TEST(ReadTextFile, ThrowsForAFolder) {
  const TemporaryFolder folder;
  EXPECT_THAT(error_of_reading(utf8(folder.path())), HasSubstr(utf8(folder.path())));
}

TEST(ReadTextFile, ThrowsForAFileBelowAFile) {
  const TemporaryFolder folder;
  test::write_file(folder / "file", "x");
  EXPECT_THROW(read_text_file(utf8(folder / "file" / "below")), std::runtime_error);
}

TEST(ReadTextFile, ThrowsForAnEmptyPath) {
  EXPECT_THROW(read_text_file(""), std::runtime_error);
}

TEST(FileHolds, ExactlyTheBytesOfTheFile) {
  const TemporaryFolder folder;
  std::string large(100'003, 'x');
  for (std::size_t i = 0; i < large.size(); i += 997) {
    large[i] = static_cast<char>(i % 251);
  }
  test::write_file(folder / "large", large);
  const std::string path = utf8(folder / "large");
  EXPECT_TRUE(file_holds(path, large));
  EXPECT_FALSE(file_holds(path, large + "x"));
  EXPECT_FALSE(file_holds(path, large.substr(1)));
  for (const std::size_t at : {std::size_t{0}, large.size() / 2, large.size() - 1}) {
    std::string other = large;
    other[at] = '!';
    EXPECT_FALSE(file_holds(path, other)) << at;
  }
}

TEST(FileHolds, NothingWhereThereIsNoFile) {
  const TemporaryFolder folder;
  test::write_file(folder / "empty", "");
  EXPECT_TRUE(file_holds(utf8(folder / "empty"), ""));
  for (const std::string& path : {utf8(folder / "missing"), utf8(folder.path()), std::string()}) {
    EXPECT_FALSE(file_holds(path, "")) << path;
  }
}

}  // namespace
}  // namespace kelp::core::fs
