// The default schema is decided once for a process; each test asks in a child of its own.

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "core/posix/child.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "support/environment.hpp"
#include "support/files.hpp"

namespace kelp::input::bdf {
namespace {

using test::TemporaryFolder;
using test::utf8;

/// A schema file named by the environment variable.
class NamedSchema {
 public:
  explicit NamedSchema(std::string_view text) { write(text); }
  void write(std::string_view text) const { test::write_file(file_, text); }

 private:
  TemporaryFolder folder_;
  std::filesystem::path file_ = folder_ / "own.yaml";
  test::EnvironmentVariable variable_{"KELP_BDF_INP_SCHEMA_YAML", utf8(file_)};
};

constexpr const char* valid = "schema_version: 1\nmodules: {own: ~}\n";

// A child has failed when any of its checks has, and says so by its status.
template <typename Check>
void expect_in_child(Check check) {
  EXPECT_EQ(test::status_of_child([&] {
              check();
              return testing::Test::HasFailure() ? 1 : 0;
            }),
            0);
}

bool default_schema_throws() {
  try {
    static_cast<void>(default_schema());
  } catch (const std::runtime_error& error) {
    return std::string(error.what()).starts_with("failed to load BDF input schema '");
  }
  return false;
}

TEST(DefaultSchema, IsTheOneThatTheVariableNames) {
  const NamedSchema file(valid);
  expect_in_child([] { EXPECT_TRUE(default_schema().is_known_module("own")); });
}

TEST(DefaultSchema, IsTheSameObjectAtEachCall) {
  const NamedSchema file(valid);
  expect_in_child([] {
    const InputSchema& first = default_schema();
    EXPECT_EQ(&first, &default_schema());
    EXPECT_EQ(&first.metadata(), &default_schema().metadata());
  });
}

TEST(DefaultSchema, IsNeverReadAgain) {
  const NamedSchema file(valid);
  expect_in_child([&] {
    EXPECT_TRUE(default_schema().is_known_module("own"));
    file.write("schema_version: 2\nmodules: {other: ~}\n");
    const test::EnvironmentVariable unset("KELP_BDF_INP_SCHEMA_YAML", std::nullopt);
    EXPECT_TRUE(default_schema().is_known_module("own"));
    EXPECT_FALSE(default_schema().is_known_module("other"));
  });
}

TEST(DefaultSchema, ThatIsInvalidFailsAtEachCallUntilItIsMended) {
  const NamedSchema file("x: 1\n");
  expect_in_child([&] {
    EXPECT_TRUE(default_schema_throws());
    EXPECT_TRUE(default_schema_throws());
    file.write(valid);
    EXPECT_TRUE(default_schema().is_known_module("own"));
  });
}

TEST(DefaultSchema, IsFoundAnewAfterAFailure) {
  const NamedSchema broken("x: 1\n");
  expect_in_child([] {
    EXPECT_TRUE(default_schema_throws());
    const NamedSchema other(valid);
    EXPECT_TRUE(default_schema().is_known_module("own"));
  });
}

TEST(DefaultSchema, IsOneForAllThreadsThatAskFirst) {
  const NamedSchema file(valid);
  expect_in_child([] {
    std::vector<const InputSchema*> seen(8);
    std::vector<std::thread> threads;
    for (const InputSchema*& place : seen) {
      threads.emplace_back([&place] { place = &default_schema(); });
    }
    for (std::thread& thread : threads) {
      thread.join();
    }
    for (const InputSchema* const schema : seen) {
      EXPECT_EQ(schema, &default_schema());
    }
  });
}

TEST(DefaultSchema, InTheSourceTreeIsTheShippedOne) {
  const test::EnvironmentVariable unset("KELP_BDF_INP_SCHEMA_YAML", std::nullopt);
  if (resolve_schema_path({}).empty()) {
    GTEST_SKIP() << "the build tree lies outside the source tree";
  }
  expect_in_child([] { EXPECT_TRUE(default_schema().is_known_module("compass")); });
}

}  // namespace
}  // namespace kelp::input::bdf
