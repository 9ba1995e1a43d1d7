// What happens when the system refuses a step. Other calls stand in for the system's, because wine
// does not refuse all that Windows does, and a full disk cannot be had.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "kelp/core/fs.hpp"
#include "support/files.hpp"
#include "windows/file_calls.hpp"

namespace kelp::core::fs {
namespace {

using test::file_bytes;
using test::names_in;
using test::TemporaryFolder;
using test::utf8;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

// Calls are plain functions and have no other place to keep what they saw.
DWORD refusals_left = 0;
DWORD refusal = ERROR_SUCCESS;
DWORD milliseconds_paused = 0;
std::wstring link_target;

bool refuses() {
  if (refusals_left == 0) {
    return false;
  }
  --refusals_left;
  ::SetLastError(refusal);
  return true;
}

BOOL WINAPI refusing_move(LPCWSTR from, LPCWSTR to, DWORD flags) {
  return refuses() ? FALSE : ::MoveFileExW(from, to, flags);
}

BOOL WINAPI half_write(HANDLE file, LPCVOID bytes, DWORD size, LPDWORD count, LPOVERLAPPED how) {
  const DWORD half = (size + 1) / 2;
  return refuses() ? FALSE : ::WriteFile(file, bytes, half, count, how);
}

BOOL WINAPI refusing_flush(HANDLE file) {
  return refuses() ? FALSE : ::FlushFileBuffers(file);
}

BOOL WINAPI refusing_information(HANDLE file, FILE_INFO_BY_HANDLE_CLASS kind, LPVOID bytes,
                                 DWORD size) {
  return refuses() ? FALSE : ::SetFileInformationByHandle(file, kind, bytes, size);
}

HANDLE WINAPI refusing_open(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES rights,
                            DWORD how, DWORD flags, HANDLE pattern) {
  return refuses() ? INVALID_HANDLE_VALUE
                   : ::CreateFileW(path, access, share, rights, how, flags, pattern);
}

// A file named like a link is one, as far as the library can tell.
DWORD WINAPI attributes_with_links(LPCWSTR path) {
  const DWORD attributes = ::GetFileAttributesW(path);
  const bool is_link = std::wstring(path).ends_with(L"link.inp");
  return is_link ? attributes | FILE_ATTRIBUTE_REPARSE_POINT : attributes;
}

DWORD WINAPI final_path_of_link(HANDLE, LPWSTR path, DWORD room, DWORD) {
  const auto size = static_cast<DWORD>(link_target.size());
  if (size >= room) {
    return size + 1;
  }
  std::copy_n(link_target.c_str(), size + 1, path);
  return size;
}

void WINAPI count_pause(DWORD milliseconds) {
  milliseconds_paused += milliseconds;
}

class ReplaceFile : public testing::Test {
 protected:
  ReplaceFile() {
    refusals_left = 0;
    milliseconds_paused = 0;
    calls_.pause = &count_pause;
    test::write_file(path_, "old");
  }

  static void refuse(DWORD times, DWORD error) {
    refusals_left = times;
    refusal = error;
  }

  void expect_refused() {
    EXPECT_FALSE(replace_file(calls_, utf8(path_), "new"));
    EXPECT_EQ(file_bytes(path_), "old");
    EXPECT_THAT(names_in(folder_.path()), ElementsAre("job.inp"));
  }

  void expect_written() {
    EXPECT_TRUE(replace_file(calls_, utf8(path_), "new"));
    EXPECT_EQ(file_bytes(path_), "new");
    EXPECT_THAT(names_in(folder_.path()), ElementsAre("job.inp"));
  }

  const TemporaryFolder folder_;
  const std::filesystem::path path_ = folder_ / "job.inp";
  FileCalls calls_;
};

TEST_F(ReplaceFile, KeepsTheOldFileWhenTheMoveIsRefused) {
  for (const DWORD error : {ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION, ERROR_DISK_FULL}) {
    calls_.move = &refusing_move;
    refuse(1000, error);
    expect_refused();
  }
}

TEST_F(ReplaceFile, WaitsForProgramsThatHoldTheFileForAMoment) {
  for (const DWORD error : {ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION}) {
    calls_.move = &refusing_move;
    refuse(3, error);
    expect_written();
  }
  EXPECT_EQ(milliseconds_paused, 2U * (10 + 20 + 40));
}

TEST_F(ReplaceFile, WaitsForAWhileOnly) {
  calls_.move = &refusing_move;
  refuse(1000, ERROR_SHARING_VIOLATION);
  expect_refused();
  EXPECT_EQ(milliseconds_paused, 10U + 20 + 40 + 80);
}

TEST_F(ReplaceFile, DoesNotWaitForWhatWillNotPass) {
  calls_.move = &refusing_move;
  refuse(1, ERROR_DISK_FULL);
  expect_refused();
  EXPECT_EQ(milliseconds_paused, 0U);
}

TEST_F(ReplaceFile, WaitsForATargetThatIsInUse) {
  calls_.open = &refusing_open;
  refuse(2, ERROR_SHARING_VIOLATION);
  expect_written();
  EXPECT_EQ(milliseconds_paused, 10U + 20);
}

TEST_F(ReplaceFile, GoesOnAfterAPartOfTheTextWasWritten) {
  calls_.write = &half_write;
  expect_written();
}

TEST_F(ReplaceFile, KeepsTheOldFileWhenTheDiskIsFull) {
  calls_.write = &half_write;
  refuse(1, ERROR_DISK_FULL);
  expect_refused();
}

TEST_F(ReplaceFile, KeepsTheOldFileWhenTheTextDoesNotReachTheDisk) {
  calls_.flush = &refusing_flush;
  refuse(1, ERROR_WRITE_FAULT);
  expect_refused();
}

TEST_F(ReplaceFile, KeepsTheOldFileWhenItsRightsCannotBeKept) {
  calls_.copy_rights = [](const wchar_t*, const wchar_t*) { return false; };
  expect_refused();
}

TEST_F(ReplaceFile, WritesWhereNoFileCanBeMarkedForDeletion) {
  calls_.set_information = &refusing_information;
  refuse(1000, ERROR_NOT_SUPPORTED);
  expect_written();
}

TEST_F(ReplaceFile, KeepsTheOldFileWhenTheNewOneStaysMarkedForDeletion) {
  calls_.set_information = [](HANDLE file, FILE_INFO_BY_HANDLE_CLASS kind, LPVOID bytes,
                              DWORD size) -> BOOL {
    const bool marks = static_cast<const FILE_DISPOSITION_INFO*>(bytes)->DeleteFile != FALSE;
    return marks ? ::SetFileInformationByHandle(file, kind, bytes, size) : FALSE;
  };
  expect_refused();
}

TEST_F(ReplaceFile, KeepsAFileThatWasChanged) {
  const std::string_view read = "older";
  EXPECT_THROW(replace_or_refuse(calls_, utf8(path_), &read, "new"), FileChanged);
  EXPECT_EQ(file_bytes(path_), "old");
  EXPECT_THAT(names_in(folder_.path()), ElementsAre("job.inp"));
}

TEST_F(ReplaceFile, RefusesATargetThatMayNotBeOpenedForWriting) {
  calls_.open = &refusing_open;
  refuse(1000, ERROR_ACCESS_DENIED);
  expect_refused();
}

TEST_F(ReplaceFile, WritesWhereALinkLeads) {
  test::write_file(folder_ / "link.inp", "link");
  link_target = path_.native();
  calls_.attributes = &attributes_with_links;
  calls_.final_path = &final_path_of_link;
  EXPECT_TRUE(replace_file(calls_, utf8(folder_ / "link.inp"), "new"));
  EXPECT_EQ(file_bytes(path_), "new");
  EXPECT_EQ(file_bytes(folder_ / "link.inp"), "link");
  EXPECT_THAT(names_in(folder_.path()), UnorderedElementsAre("job.inp", "link.inp"));
}

TEST_F(ReplaceFile, RefusesALinkToAReadOnlyFile) {
  test::write_file(folder_ / "link.inp", "link");
  link_target = path_.native();
  calls_.attributes = [](LPCWSTR path) -> DWORD {
    return std::wstring(path).ends_with(L"link.inp") ? FILE_ATTRIBUTE_REPARSE_POINT
                                                     : FILE_ATTRIBUTE_READONLY;
  };
  calls_.final_path = &final_path_of_link;
  EXPECT_FALSE(replace_file(calls_, utf8(folder_ / "link.inp"), "new"));
  EXPECT_EQ(file_bytes(path_), "old");
}

TEST_F(ReplaceFile, RefusesALinkThatLeadsNowhere) {
  calls_.attributes = [](LPCWSTR) -> DWORD { return FILE_ATTRIBUTE_REPARSE_POINT; };
  EXPECT_FALSE(replace_file(calls_, utf8(folder_ / "gone.inp"), "new"));
  EXPECT_THAT(names_in(folder_.path()), ElementsAre("job.inp"));
}

TEST_F(ReplaceFile, RefusesALinkWhoseEndTheSystemCannotName) {
  calls_.attributes = [](LPCWSTR path) -> DWORD {
    return *path == L'\0' ? INVALID_FILE_ATTRIBUTES : FILE_ATTRIBUTE_REPARSE_POINT;
  };
  calls_.final_path = [](HANDLE, LPWSTR, DWORD, DWORD) -> DWORD { return 0; };
  expect_refused();
}

}  // namespace
}  // namespace kelp::core::fs
