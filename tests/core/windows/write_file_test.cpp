#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "kelp/core/fs.hpp"
#include "support/files.hpp"
#include "windows/handle.hpp"

namespace kelp::core::fs {
namespace {

using test::file_bytes;
using test::names_in;
using test::TemporaryFolder;
using test::utf8;
using testing::ElementsAre;

class WriteTextFileAtomicWindows : public testing::Test {
 protected:
  WriteTextFileAtomicWindows() { test::write_file(path_, "old"); }

  void expect_refused() {
    EXPECT_FALSE(write_text_file_atomic(utf8(path_), "new"));
    expect_alone();
  }

  void expect_written() {
    EXPECT_TRUE(write_text_file_atomic(utf8(path_), "new"));
    EXPECT_EQ(file_bytes(path_), "new");
    expect_alone();
  }

  void expect_alone() { EXPECT_THAT(names_in(folder_.path()), ElementsAre("Wasser 水.inp")); }

  const TemporaryFolder folder_;
  const std::filesystem::path path_ = folder_ / u8"Wasser 水.inp";
};

TEST_F(WriteTextFileAtomicWindows, RefusesAReadOnlyFile) {
  ASSERT_NE(::SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_READONLY), 0);
  expect_refused();
  EXPECT_EQ(file_bytes(path_), "old");
  ::SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WriteTextFileAtomicWindows, KeepsAFileThatAnotherProgramKeepsToItself) {
  {
    const Handle owner(
        ::CreateFileW(path_.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(owner.is_open());
    expect_refused();
  }
  EXPECT_EQ(file_bytes(path_), "old");
  expect_written();
}

TEST_F(WriteTextFileAtomicWindows, KeepsAFileWhoseReaderLetsNobodyReplaceIt) {
  {
    const Handle reader(::CreateFileW(path_.c_str(), GENERIC_READ,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                                      nullptr));
    ASSERT_TRUE(reader.is_open());
    expect_refused();
    EXPECT_EQ(file_bytes(path_), "old");
  }
  expect_written();
}

TEST_F(WriteTextFileAtomicWindows, KeepsThatAFileIsHidden) {
  ASSERT_NE(::SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_HIDDEN), 0);
  expect_written();
  EXPECT_EQ(::GetFileAttributesW(path_.c_str()) & FILE_ATTRIBUTE_HIDDEN, FILE_ATTRIBUTE_HIDDEN);
}

TEST_F(WriteTextFileAtomicWindows, RefusesDevices) {
  for (const char* device : {"NUL", "CON", "\\\\.\\NUL"}) {
    EXPECT_FALSE(write_text_file_atomic(device, "new")) << device;
  }
}

TEST_F(WriteTextFileAtomicWindows, RefusesNamesThatCannotBe) {
  const std::string folder = utf8(folder_.path()) + "\\";
  for (const std::string& name :
       {std::string("a<b>.inp"), std::string("a\0b", 3), std::string("what?"), std::string("*")}) {
    EXPECT_FALSE(write_text_file_atomic(folder + name, "new")) << name;
  }
  expect_alone();
}

std::vector<std::byte> rights(const std::filesystem::path& path) {
  std::vector<std::byte> descriptor(4096);
  DWORD size = 0;
  const auto room = static_cast<DWORD>(descriptor.size());
  EXPECT_NE(
      ::GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, descriptor.data(), room, &size),
      0);
  descriptor.resize(size);
  return descriptor;
}

// Allows everything to the file's owner and nothing to anybody else.
void make_private(const std::filesystem::path& path) {
  std::vector<std::byte> owner(4096);
  DWORD size = 0;
  const auto room = static_cast<DWORD>(owner.size());
  ASSERT_NE(::GetFileSecurityW(path.c_str(), OWNER_SECURITY_INFORMATION, owner.data(), room, &size),
            0);
  PSID sid = nullptr;
  BOOL defaulted = 0;
  ASSERT_NE(::GetSecurityDescriptorOwner(owner.data(), &sid, &defaulted), 0);
  alignas(ACL) std::byte list[512]{};
  auto* const acl = reinterpret_cast<ACL*>(list);
  ASSERT_NE(::InitializeAcl(acl, sizeof list, ACL_REVISION), 0);
  ASSERT_NE(::AddAccessAllowedAce(acl, ACL_REVISION, FILE_ALL_ACCESS, sid), 0);
  SECURITY_DESCRIPTOR descriptor{};
  ASSERT_NE(::InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION), 0);
  ASSERT_NE(::SetSecurityDescriptorDacl(&descriptor, 1, acl, 0), 0);
  ASSERT_NE(::SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, &descriptor), 0);
}

TEST_F(WriteTextFileAtomicWindows, KeepsWhoMayReadTheFile) {
  const auto usual = rights(path_);
  make_private(path_);
  const auto restricted = rights(path_);
  ASSERT_NE(restricted, usual);
  expect_written();
  EXPECT_EQ(rights(path_), restricted);
}

}  // namespace
}  // namespace kelp::core::fs
