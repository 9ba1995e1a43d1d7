#include "kelp/core/resource.hpp"

#include <gtest/gtest.h>

#include <string>

#include "module_path.hpp"
#include "windows/wide_path.hpp"
#include "windows/win32.hpp"

namespace kelp::core::resource {
namespace {

constexpr const char* name = "KELP_TEST_VARIABLE";
constexpr const wchar_t* wide_name = L"KELP_TEST_VARIABLE";

TEST(GetenvStringWindows, SeesWhatTheHostSetsByTheSystemsCall) {
  ::SetEnvironmentVariableW(wide_name, L"C:\\Programme\\水\\bdf.yaml");
  EXPECT_EQ(getenv_string(name), "C:\\Programme\\水\\bdf.yaml");
  ::SetEnvironmentVariableW(wide_name, nullptr);
  EXPECT_EQ(getenv_string(name), "");
}

TEST(GetenvStringWindows, ReturnsEmptyAndLongValuesWhole) {
  for (const std::size_t length : {std::size_t{0}, std::size_t{1}, std::size_t{30'000}}) {
    ::SetEnvironmentVariableW(wide_name, std::wstring(length, L'v').c_str());
    EXPECT_EQ(getenv_string(name), std::string(length, 'v'));
  }
  ::SetEnvironmentVariableW(wide_name, nullptr);
}

TEST(ModulePathWindows, IsThatOfTheProgramWhereTheCodeIsPartOfIt) {
  EXPECT_EQ(running_module_path(), executable_path());
  EXPECT_NE(::GetFileAttributesW(wide_path(executable_path()).c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(IsRegularFilePathWindows, RefusesDevices) {
  for (const char* device : {"NUL", "CON", "\\\\.\\NUL"}) {
    EXPECT_FALSE(is_regular_file_path(device)) << device;
  }
}

TEST(IsRegularFilePathWindows, TakesAnyTextWithoutAnException) {
  for (const std::string& text : {std::string("\xFF\xFE"), std::string("a\0b", 3),
                                  std::string("<>|?*"), std::string(40'000, 'n')}) {
    EXPECT_FALSE(is_regular_file_path(text));
    EXPECT_EQ(locate_file("no such file.yaml", text, {text}, 6), "");
  }
}

}  // namespace
}  // namespace kelp::core::resource
