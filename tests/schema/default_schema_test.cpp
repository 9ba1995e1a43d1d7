// The default schema is decided once for a process; each test asks in a child of its own.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

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

// Ends the child: what a check leaves is cleared away before, and a failed one shows in the status.
template <typename Check>
[[noreturn]] void run_as_child(Check check) {
  check();
  std::exit(testing::Test::HasFailure() ? 1 : 0);
}

template <typename Check>
void expect_in_child(Check check) {
  EXPECT_EXIT(run_as_child(check), testing::ExitedWithCode(0), "");
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
  expect_in_child([] {
    const NamedSchema file(valid);
    EXPECT_TRUE(default_schema().is_known_module("own"));
  });
}

TEST(DefaultSchema, IsTheSameObjectAtEachCall) {
  expect_in_child([] {
    const NamedSchema file(valid);
    const InputSchema& first = default_schema();
    EXPECT_EQ(&first, &default_schema());
    EXPECT_EQ(&first.metadata(), &default_schema().metadata());
  });
}

TEST(DefaultSchema, IsNeverReadAgain) {
  expect_in_child([] {
    const NamedSchema file(valid);
    EXPECT_TRUE(default_schema().is_known_module("own"));
    file.write("schema_version: 2\nmodules: {other: ~}\n");
    const test::EnvironmentVariable unset("KELP_BDF_INP_SCHEMA_YAML", std::nullopt);
    EXPECT_TRUE(default_schema().is_known_module("own"));
    EXPECT_FALSE(default_schema().is_known_module("other"));
  });
}

TEST(DefaultSchema, ThatIsInvalidFailsAtEachCallUntilItIsMended) {
  expect_in_child([] {
    const NamedSchema file("x: 1\n");
    EXPECT_TRUE(default_schema_throws());
    EXPECT_TRUE(default_schema_throws());
    file.write(valid);
    EXPECT_TRUE(default_schema().is_known_module("own"));
  });
}

TEST(DefaultSchema, IsFoundAnewAfterAFailure) {
  expect_in_child([] {
    const NamedSchema broken("x: 1\n");
    EXPECT_TRUE(default_schema_throws());
    const NamedSchema other(valid);
    EXPECT_TRUE(default_schema().is_known_module("own"));
  });
}

TEST(DefaultSchema, IsOneForAllThreadsThatAskFirst) {
  expect_in_child([] {
    const NamedSchema file(valid);
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
