// Replacing what was read, unless somebody was there before.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <string>

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

std::string refusal(const std::string& path, std::string_view old_text) {
  try {
    replace_text_file(path, old_text, "new");
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return {};
}

TEST(ReplaceTextFile, ReplacesTheTextThatWasRead) {
  const TemporaryFolder folder;
  for (const std::string& text : {std::string(), std::string("old"), std::string(200'000, 'x')}) {
    test::write_file(folder / "job.inp", text);
    EXPECT_EQ(refusal(utf8(folder / "job.inp"), text), "");
    EXPECT_EQ(file_bytes(folder / "job.inp"), "new");
  }
  EXPECT_THAT(names_in(folder.path()), ElementsAre("job.inp"));
}

TEST(ReplaceTextFile, LeavesAFileThatWasChanged) {
  const TemporaryFolder folder;
  const std::string path = utf8(folder / "job.inp");
  const std::string large(200'000, 'x');
  for (const std::string& text : {std::string(), std::string("odd"), std::string("ol"),
                                  std::string("old."), large, large + "y"}) {
    test::write_file(path, text);
    for (const std::string& read : {std::string("old"), large + "z"}) {
      EXPECT_EQ(refusal(path, read),
                "cannot write '" + path + "': it was changed since it was read");
      EXPECT_EQ(file_bytes(path), text);
    }
  }
  EXPECT_THAT(names_in(folder.path()), ElementsAre("job.inp"));
}

TEST(ReplaceTextFile, MakesNoFileAnewThatWasRemoved) {
  const TemporaryFolder folder;
  const std::string path = utf8(folder / "job.inp");
  EXPECT_EQ(refusal(path, "old"), "cannot write '" + path + "': it was changed since it was read");
  EXPECT_THAT(names_in(folder.path()), IsEmpty());
}

TEST(WriteTextFile, TellsWhyItDoesNotWrite) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder / "folder");
  const auto cause = [](const std::string& path) {
    try {
      write_text_file(path, "new");
    } catch (const std::runtime_error& error) {
      const std::string start = "cannot write '" + path + "': ";
      const std::string text = error.what();
      return text.substr(0, start.size()) == start ? text.substr(start.size()) : text;
    }
    return std::string();
  };
  EXPECT_EQ(cause(utf8(folder / "folder")), "it is a folder");
  EXPECT_EQ(cause(utf8(folder / "missing" / "job.inp")), "its folder does not exist");
  EXPECT_EQ(cause(""), "No such file or directory");
  EXPECT_EQ(cause(utf8(folder / "job.inp")), "");
}

}  // namespace
}  // namespace kelp::core::fs
