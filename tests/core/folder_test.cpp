// Making folders. Listing them is tested with the command.

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "kelp/core/fs.hpp"
#include "support/files.hpp"

namespace kelp::core::fs {
namespace {

using test::TemporaryFolder;
using test::utf8;

TEST(MakeFolder, MakesThoseAboveItToo) {
  const TemporaryFolder folder;
  const std::string path = utf8(folder / u8"a/b c/Molekül");
  EXPECT_FALSE(is_directory(path));
  make_folder(path);
  EXPECT_TRUE(is_directory(path));
  make_folder(path);
  EXPECT_TRUE(is_directory(path));
}

TEST(MakeFolder, TellsWhatIsInItsWay) {
  const TemporaryFolder folder;
  test::write_file(folder / "file", "");
  for (const char* const name : {"file", "file/below"}) {
    const std::string path = utf8(folder / name);
    try {
      make_folder(path);
      ADD_FAILURE() << name;
    } catch (const std::runtime_error& error) {
      const std::string text = error.what();
      EXPECT_EQ(text.rfind("cannot make the folder '" + path + "': ", 0), 0U) << text;
    }
  }
}

}  // namespace
}  // namespace kelp::core::fs
