#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <thread>

#include "kelp/core/fs.hpp"
#include "support/files.hpp"
#include "windows/handle.hpp"

namespace kelp::core::fs {
namespace {

using test::TemporaryFolder;
using test::utf8;
using testing::HasSubstr;

std::string reason_for_not_reading(const std::string& path) {
  try {
    read_text_file(path);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "was read";
}

TEST(ReadTextFileWindows, ReadsAFileThatAnotherProgramWritesTo) {
  const TemporaryFolder folder;
  test::write_file(folder / "job.inp", "text");
  const Handle writer(::CreateFileW((folder / "job.inp").c_str(), GENERIC_WRITE, share_all, nullptr,
                                    OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(writer.is_open());
  EXPECT_EQ(read_text_file(utf8(folder / "job.inp")), "text");
}

TEST(ReadTextFileWindows, NamesAFileThatAnotherProgramKeepsToItself) {
  const TemporaryFolder folder;
  test::write_file(folder / "job.inp", "text");
  const Handle owner(::CreateFileW((folder / "job.inp").c_str(), GENERIC_READ, 0, nullptr,
                                   OPEN_EXISTING, 0, nullptr));
  const std::string path = utf8(folder / "job.inp");
  EXPECT_EQ(reason_for_not_reading(path),
            "cannot read '" + path + "': another program is using the file");
}

TEST(ReadTextFileWindows, SaysOfAFolderThatItIsOne) {
  const TemporaryFolder folder;
  EXPECT_THAT(reason_for_not_reading(utf8(folder.path())), HasSubstr("directory"));
}

TEST(ReadTextFileWindows, SaysOfNamesThatCannotBeThatThereIsNoSuchFile) {
  for (const char* name : {"a<b>|?.inp", "", "\xFF"}) {
    EXPECT_THAT(reason_for_not_reading(name), HasSubstr("o such file or directory")) << name;
  }
  EXPECT_THROW(read_text_file(std::string("a\0b", 3)), std::runtime_error);
}

TEST(ReadTextFileWindows, ReadsNothingFromTheNullDevice) {
  EXPECT_EQ(read_text_file("NUL"), "");
}

TEST(ReadTextFileWindows, ReadsAPipeUntilItsOtherEndIsClosed) {
  const std::string name =
      "\\\\.\\pipe\\kelp-read-file-test-" + std::to_string(::GetCurrentProcessId());
  Handle server(::CreateNamedPipeA(name.c_str(), PIPE_ACCESS_DUPLEX, PIPE_TYPE_BYTE | PIPE_WAIT, 1,
                                   4096, 4096, 0, nullptr));
  ASSERT_TRUE(server.is_open());
  std::string read;
  std::thread reader([&] { read = read_text_file(name); });
  ::ConnectNamedPipe(server.get(), nullptr);
  DWORD count = 0;
  ::WriteFile(server.get(), "text", 4, &count, nullptr);
  ::FlushFileBuffers(server.get());
  server.close();
  reader.join();
  EXPECT_EQ(read, "text");
}

}  // namespace
}  // namespace kelp::core::fs
