#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

#include "editor_fixture.hpp"
#include "support/files.hpp"

namespace kelp::input::bdf {
namespace {

namespace stdfs = std::filesystem;

using test::file_bytes;
using test::utf8;

class WritingAFile : public testing::Test {
 protected:
  stdfs::path file(const std::string& name) const {
    return folder_ / std::u8string(name.begin(), name.end());
  }
  std::string path(const std::string& name) const { return utf8(file(name)); }

  Lines names_in_folder() const { return test::names_in(folder_.path()); }

  bool make_link(const std::string& target, const std::string& link) const {
    std::error_code error;
    stdfs::create_symlink(target, file(link), error);
    return !error;
  }

  std::string failure_of(const std::string& target) const {
    try {
      editor_.write_file(target);
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "no exception";
  }

  test::TemporaryFolder folder_;
  BDFEditor editor_{document_of({"scf"}), small_schema()};
  const std::string text_ = "$scf\n$end\n";
};

TEST_F(WritingAFile, CreatesItWithTheRenderedText) {
  editor_.write_file(path("new.inp"));
  EXPECT_EQ(file_bytes(file("new.inp")), text_);
  EXPECT_THAT(names_in_folder(), testing::ElementsAre("new.inp"));
}

TEST_F(WritingAFile, ReplacesALongerOneAndLeavesNoOtherFile) {
  test::write_file(file("old.inp"), std::string(100000, 'x'));
  editor_.write_file(path("old.inp"));
  EXPECT_EQ(file_bytes(file("old.inp")), text_);
  EXPECT_THAT(names_in_folder(), testing::ElementsAre("old.inp"));
}

#ifndef _WIN32
// Whoever holds the old file open goes on reading the old bytes: the file is replaced, never
// written into. Windows refuses to replace a file that such a reader has open.
TEST_F(WritingAFile, ReplacesItAsAWhole) {
  test::write_file(file("old.inp"), "old bytes");
  std::ifstream reader(file("old.inp"), std::ios::binary);
  editor_.write_file(path("old.inp"));
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "old bytes");
  EXPECT_EQ(file_bytes(file("old.inp")), text_);
}
#endif

TEST_F(WritingAFile, TwiceGivesTheSameFile) {
  editor_.write_file(path("a.inp"));
  editor_.write_file(path("a.inp"));
  EXPECT_EQ(file_bytes(file("a.inp")), text_);
}

TEST_F(WritingAFile, ThroughASymbolicLinkReplacesItsTarget) {
  test::write_file(file("target.inp"), "old");
  if (!make_link("target.inp", "link.inp")) {
    GTEST_SKIP() << "links cannot be made here";
  }
  editor_.write_file(path("link.inp"));
  EXPECT_TRUE(stdfs::is_symlink(file("link.inp")));
  EXPECT_EQ(stdfs::read_symlink(file("link.inp")), "target.inp");
  EXPECT_FALSE(stdfs::is_symlink(file("target.inp")));
  EXPECT_EQ(file_bytes(file("target.inp")), text_);
}

TEST_F(WritingAFile, KeepsItsPermissions) {
  for (const unsigned mode : {0640U, 0600U, 0755U}) {
    test::write_file(file("old.inp"), "old");
    const auto wanted = static_cast<stdfs::perms>(mode);
    stdfs::permissions(file("old.inp"), wanted);
    const stdfs::perms before = stdfs::status(file("old.inp")).permissions();
#ifndef _WIN32
    ASSERT_EQ(before, wanted);
#endif
    editor_.write_file(path("old.inp"));
    EXPECT_EQ(stdfs::status(file("old.inp")).permissions(), before);
    EXPECT_EQ(file_bytes(file("old.inp")), text_);
  }
}

TEST_F(WritingAFile, AcceptsPathsWithBlanksAndLettersBeyondAscii) {
  for (const char* name : {"a b.inp", "w\xC3\xA4sser.inp", "\xE6\xB0\xB4 \xF0\x9F\x92\xA7.inp"}) {
    editor_.write_file(path(name));
    EXPECT_EQ(file_bytes(file(name)), text_) << name;
  }
}

TEST_F(WritingAFile, WritesAllBytesUnchanged) {
  editor_.append_raw_statement({std::string("a\0b\xFF", 4), "c\rd"});
  editor_.write_file(path("bytes.inp"));
  EXPECT_EQ(file_bytes(file("bytes.inp")), text_ + std::string("a\0b\xFF\nc\rd\n", 9));
}

TEST_F(WritingAFile, AFailureNamesThePathAsGiven) {
  const std::string missing = path("no such folder/a.inp");
  EXPECT_EQ(failure_of(missing), "failed to write BDF input file '" + missing + "'");
  EXPECT_EQ(failure_of(""), "failed to write BDF input file ''");
  EXPECT_EQ(failure_of(utf8(folder_.path())),
            "failed to write BDF input file '" + utf8(folder_.path()) + "'");
}

TEST_F(WritingAFile, AFailureLeavesDocumentAndFolderUnchanged) {
  stdfs::create_directory(folder_ / "taken");
  EXPECT_NE(failure_of(path("taken")), "no exception");
  EXPECT_EQ(editor_.render(), text_);
  EXPECT_THAT(names_in_folder(), testing::ElementsAre("taken"));
}

TEST_F(WritingAFile, ThroughALinkToAnAbsentFileCreatesThatFile) {
#ifdef _WIN32
  GTEST_SKIP() << "refused on Windows, where nothing tells where such a link leads";
#endif
  if (!make_link("absent.inp", "link.inp")) {
    GTEST_SKIP() << "links cannot be made here";
  }
  editor_.write_file(path("link.inp"));
  EXPECT_TRUE(stdfs::is_symlink(file("link.inp")));
  EXPECT_EQ(file_bytes(file("absent.inp")), text_);
}

TEST_F(WritingAFile, LinksInACircleAreAFailure) {
  if (!make_link("b.inp", "a.inp") || !make_link("a.inp", "b.inp")) {
    GTEST_SKIP() << "links cannot be made here";
  }
  EXPECT_EQ(failure_of(path("a.inp")), "failed to write BDF input file '" + path("a.inp") + "'");
  EXPECT_EQ(names_in_folder().size(), 2U);
}

}  // namespace
}  // namespace kelp::input::bdf
