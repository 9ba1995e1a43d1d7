#include "windows/wide_path.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/environment.hpp"
#include "support/files.hpp"
#include "windows/wide.hpp"

namespace kelp::core {
namespace {

const std::wstring long_name(300, L'n');

TEST(Wide, CarriesEveryLetterThereAndBack) {
  for (const std::string text : {"", "a", "Molekül", "水分子", "\xF0\x9F\xA7\xAA flask"}) {
    EXPECT_EQ(utf8_from_wide(wide_from_utf8(text)), text);
  }
  EXPECT_EQ(wide_from_utf8("\xF0\x9F\xA7\xAA"), L"\xD83E\xDDEA");
}

TEST(Wide, PutsTheReplacementCharacterForWhatIsNoUtf8) {
  EXPECT_EQ(wide_from_utf8("a\xFFz"), L"a\xFFFDz");
  EXPECT_EQ(utf8_from_wide(L"a\xD83Ez"), "a\xEF\xBF\xBDz");
}

TEST(ExtendedPath, LeavesShortPathsAsTheyAre) {
  EXPECT_EQ(extended_path(L"C:\\job.inp"), L"C:\\job.inp");
  EXPECT_EQ(extended_path(L"\\\\server\\share\\job.inp"), L"\\\\server\\share\\job.inp");
}

TEST(ExtendedPath, PutsThePrefixBeforeLongPaths) {
  EXPECT_EQ(extended_path(L"C:\\" + long_name), L"\\\\?\\C:\\" + long_name);
  EXPECT_EQ(extended_path(L"\\\\server\\share\\" + long_name),
            L"\\\\?\\UNC\\server\\share\\" + long_name);
}

TEST(ExtendedPath, PutsThePrefixBeforeAnyPathThatTheSystemWouldRefuseAsAFolder) {
  const std::wstring longest = L"C:\\" + std::wstring(247 - 3, L'n');
  EXPECT_EQ(extended_path(longest), longest);
  EXPECT_EQ(extended_path(longest + L"n"), L"\\\\?\\" + longest + L"n");
}

TEST(ExtendedPath, PutsNoSecondPrefix) {
  for (const std::wstring prefix : {L"\\\\?\\C:\\", L"\\\\?\\UNC\\server\\", L"\\\\.\\pipe\\"}) {
    EXPECT_EQ(extended_path(prefix + long_name), prefix + long_name);
  }
}

TEST(PlainPath, TakesThePrefixOff) {
  EXPECT_EQ(plain_path(L"C:\\job.inp"), L"C:\\job.inp");
  EXPECT_EQ(plain_path(L"\\\\?\\C:\\job.inp"), L"C:\\job.inp");
  EXPECT_EQ(plain_path(L"\\\\?\\UNC\\server\\share"), L"\\\\server\\share");
}

TEST(WidePath, IsFullAndNormalised) {
  EXPECT_EQ(wide_path("C:/Chemie/./old/../Wasser 水.inp"), L"C:\\Chemie\\Wasser 水.inp");
  const test::TemporaryFolder folder;
  const test::CurrentFolder here(folder.path());
  EXPECT_EQ(wide_path("a/b.inp"), std::filesystem::current_path().native() + L"\\a\\b.inp");
}

TEST(WidePath, NormalisesALongPathBeforeThePrefixForbidsIt) {
  EXPECT_EQ(wide_path("C:/a/../" + std::string(300, 'n') + "/./b"),
            L"\\\\?\\C:\\" + long_name + L"\\b");
}

TEST(WidePath, TakesAPathThatHasThePrefixAlready) {
  EXPECT_EQ(wide_path("\\\\?\\C:\\a/b.inp"), L"\\\\?\\C:\\a\\b.inp");
}

TEST(WidePath, IsEmptyForWhatCanNameNothing) {
  EXPECT_EQ(wide_path(""), L"");
  EXPECT_EQ(wide_path(std::string("a\0b", 3)), L"");
}

TEST(WidePath, TellsDevicesFromFiles) {
  EXPECT_TRUE(is_device_path(wide_path("NUL")));
  EXPECT_TRUE(is_device_path(wide_path("\\\\.\\pipe\\kelp")));
  EXPECT_FALSE(is_device_path(wide_path("NULL")));
  EXPECT_FALSE(is_device_path(wide_path("C:\\job.inp")));
}

TEST(FolderOf, EndsWithTheSeparator) {
  EXPECT_EQ(folder_of(L"C:\\a\\b.inp"), L"C:\\a\\");
  EXPECT_EQ(folder_of(L"C:\\b.inp"), L"C:\\");
}

}  // namespace
}  // namespace kelp::core
