// Who may open a file that was replaced: nobody who might not before.

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#ifdef __linux__
#include <sys/xattr.h>
#endif

#include <cerrno>
#include <cstdint>
#include <string>
#include <vector>

#include "core/posix/child.hpp"
#include "kelp/core/fs.hpp"
#include "support/files.hpp"

namespace kelp::core::fs {
namespace {

using test::file_bytes;
using test::TemporaryFolder;
using test::utf8;

constexpr uid_t writer = 65534;
constexpr uid_t owner = 1234;
constexpr gid_t group = 4321;

class AccessRights : public testing::Test {
 protected:
  void SetUp() override {
    if (::geteuid() != 0) {
      GTEST_SKIP() << "only root can give files away";
    }
    ASSERT_EQ(::chmod(folder_.path().c_str(), 0777), 0);
    test::write_file(path_, "old");
  }

  void give_to(uid_t user, gid_t its_group, mode_t mode) const {
    ASSERT_EQ(::chown(path_.c_str(), user, its_group), 0);
    ASSERT_EQ(::chmod(path_.c_str(), mode), 0);
  }

  // Replaces the text as a user who is no superuser, in these groups.
  void replace_as(uid_t user, gid_t main_group, const std::vector<gid_t>& groups) const {
    EXPECT_EQ(test::status_of_child([&] {
                if (::setgroups(groups.size(), groups.data()) != 0 || ::setgid(main_group) != 0 ||
                    ::setuid(user) != 0) {
                  return 97;
                }
                return write_text_file_atomic(path_, "new") ? 1 : 0;
              }),
              1);
    EXPECT_EQ(file_bytes(path_), "new");
  }

  bool may_read(uid_t user, gid_t main_group) const {
    return test::status_of_child([&] {
             if (::setgroups(0, nullptr) != 0 || ::setgid(main_group) != 0 || ::setuid(user) != 0) {
               return 97;
             }
             return ::access(path_.c_str(), R_OK) == 0 ? 1 : 0;
           }) == 1;
  }

  struct stat status() const {
    struct stat status {};
    EXPECT_EQ(::stat(path_.c_str(), &status), 0);
    return status;
  }

  unsigned mode() const { return status().st_mode & 07777U; }

  const TemporaryFolder folder_;
  const std::string path_ = utf8(folder_ / "job.inp");
};

TEST_F(AccessRights, KeepTheGroupWhenTheOwnerCannotBeKept) {
  give_to(owner, group, 0664);
  replace_as(writer, writer, {group});
  EXPECT_EQ(status().st_uid, writer);
  EXPECT_EQ(status().st_gid, group);
  EXPECT_EQ(mode(), 0664U);
}

TEST_F(AccessRights, WithoutTheGroupAreWhatEverybodyHad) {
  give_to(owner, group, 0646);
  replace_as(writer, writer, {});
  EXPECT_EQ(status().st_gid, writer);
  EXPECT_EQ(mode(), 0644U);
}

TEST_F(AccessRights, WithoutTheGroupLetNobodyInWhomItShutOut) {
  give_to(owner, group, 0606);
  ASSERT_FALSE(may_read(5000, group));
  replace_as(writer, writer, {});
  EXPECT_EQ(mode(), 0600U);
  EXPECT_FALSE(may_read(5000, group));
}

TEST_F(AccessRights, OfAnotherOwnerLendNobodysIdentity) {
  give_to(owner, group, 06775);
  replace_as(writer, writer, {group});
  EXPECT_EQ(mode(), 02775U);
  give_to(owner, group, 06777);
  replace_as(writer, writer, {});
  EXPECT_EQ(mode(), 0777U);
}

#ifdef __linux__

void add_number(std::string& list, std::uint32_t number, int bytes) {
  for (int i = 0; i < bytes; ++i, number >>= 8U) {
    list += static_cast<char>(number & 0xFFU);
  }
}

struct Entry {
  std::uint32_t kind;
  std::uint32_t permissions;
  std::uint32_t id;
};

enum Kind : std::uint32_t { user_kind = 2, group_kind = 8 };

constexpr std::uint32_t nobody = 0xFFFFFFFF;

// The attribute's bytes for a list with one entry beside the usual ones, which give rw-r--r--.
std::string access_list(const Entry& entry, std::uint32_t others = 4) {
  std::vector<Entry> entries = {{1, 6, nobody}, {4, 4, nobody}, {0x10, 6, nobody}};
  entries.insert(entries.begin() + (entry.kind == user_kind ? 1 : 2), entry);
  entries.push_back({0x20, others, nobody});
  std::string list;
  add_number(list, 2, 4);
  for (const Entry& each : entries) {
    add_number(list, each.kind, 2);
    add_number(list, each.permissions, 2);
    add_number(list, each.id, 4);
  }
  return list;
}

class AccessList : public AccessRights {
 protected:
  void set(const std::string& path, const char* name, const std::string& value) {
    if (::setxattr(path.c_str(), name, value.data(), value.size(), 0) != 0) {
      ASSERT_EQ(errno, ENOTSUP);
      GTEST_SKIP() << "the file system has no such attributes";
    }
  }

  std::string attribute(const char* name) const {
    std::string value(1000, '\0');
    const ssize_t size = ::getxattr(path_.c_str(), name, value.data(), value.size());
    return size < 0 ? std::string() : value.substr(0, static_cast<std::size_t>(size));
  }

  static constexpr const char* list_name = "system.posix_acl_access";
};

TEST_F(AccessList, IsKept) {
  const std::string list = access_list({user_kind, 0, 5000});
  set(path_, list_name, list);
  if (IsSkipped()) {
    return;
  }
  ASSERT_FALSE(may_read(5000, 5000));
  EXPECT_TRUE(write_text_file_atomic(path_, "new"));
  EXPECT_EQ(attribute(list_name), list);
  EXPECT_EQ(mode(), 0664U);
  EXPECT_FALSE(may_read(5000, 5000));
}

TEST_F(AccessList, OfTheFolderAddsNobody) {
  set(utf8(folder_.path()), "system.posix_acl_default", access_list({user_kind, 6, 5000}));
  if (IsSkipped()) {
    return;
  }
  give_to(0, 0, 0640);
  ASSERT_EQ(::removexattr(path_.c_str(), list_name), 0);
  ASSERT_FALSE(may_read(5000, 5000));
  EXPECT_TRUE(write_text_file_atomic(path_, "new"));
  EXPECT_EQ(attribute(list_name), "");
  EXPECT_EQ(mode(), 0640U);
  EXPECT_FALSE(may_read(5000, 5000));
}

TEST_F(AccessList, IsKeptByAMemberOfTheGroup) {
  give_to(owner, group, 0664);
  const std::string list = access_list({user_kind, 6, writer});
  set(path_, list_name, list);
  if (IsSkipped()) {
    return;
  }
  replace_as(writer, writer, {group});
  EXPECT_EQ(status().st_gid, group);
  EXPECT_EQ(attribute(list_name), list);
}

TEST_F(AccessList, ThatCannotBeKeptLeavesNobodyMore) {
  give_to(owner, group, 0666);
  set(path_, list_name, access_list({group_kind, 0, 6000}, 6));
  if (IsSkipped()) {
    return;
  }
  ASSERT_FALSE(may_read(5000, 6000));
  replace_as(writer, writer, {});
  EXPECT_EQ(attribute(list_name), "");
  EXPECT_EQ(mode(), 0600U);
  EXPECT_FALSE(may_read(5000, 6000));
}

TEST_F(AccessList, IsNotTheOnlyAttributeThatStays) {
  set(path_, "user.origin", "calculated");
  if (IsSkipped()) {
    return;
  }
  EXPECT_TRUE(write_text_file_atomic(path_, "new"));
  EXPECT_EQ(attribute("user.origin"), "calculated");
}

#endif

}  // namespace
}  // namespace kelp::core::fs
