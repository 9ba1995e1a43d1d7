#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "kelp/core/fs.hpp"
#include "support/environment.hpp"
#include "support/files.hpp"

namespace kelp::core::fs {
namespace {

using test::TemporaryFolder;
using test::utf8;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(FilesBelow, ListsFilesAtAnyDepthSorted) {
  const TemporaryFolder folder;
  test::write_file(folder / u8"水" / "b.inp", "");
  test::write_file(folder / "c.inp", "");
  test::write_file(folder / "a" / "a.inp", "");
  const FolderContents contents = files_below(utf8(folder.path()));
  const std::string top = utf8(folder.path());
  EXPECT_THAT(contents.files,
              ElementsAre(top + "\\a\\a.inp", top + "\\c.inp", top + "\\水\\b.inp"));
  EXPECT_THAT(contents.errors, IsEmpty());
}

TEST(FilesBelow, NamesFilesAsTheFolderWasNamed) {
  const TemporaryFolder folder;
  test::write_file(folder / "sub" / "a.inp", "");
  const test::CurrentFolder here(folder.path());
  EXPECT_THAT(files_below("sub").files, ElementsAre("sub\\a.inp"));
  EXPECT_THAT(files_below("sub/").files, ElementsAre("sub/a.inp"));
  EXPECT_THAT(files_below(".").files, ElementsAre(".\\sub\\a.inp"));
}

TEST(FilesBelow, ReportsAFolderThatIsNotThere) {
  const FolderContents contents = files_below("Z:\\no such folder");
  EXPECT_THAT(contents.files, IsEmpty());
  EXPECT_THAT(contents.errors, ElementsAre(HasSubstr("cannot read 'Z:\\no such folder': ")));
}

}  // namespace
}  // namespace kelp::core::fs
