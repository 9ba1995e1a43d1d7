// How the program is called, and what it answers when it is called wrongly.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/program.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST(Usage, HelpListsTheCommandsAndOptions) {
  for (const char* const option : {"-h", "--help"}) {
    Program program;
    const Outcome outcome = program.run({option});
    EXPECT_EQ(outcome.status, 0) << option;
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out, HasSubstr("Usage: kelp-bdf"));
    EXPECT_THAT(outcome.out, HasSubstr("check"));
    EXPECT_THAT(outcome.out, HasSubstr("--schema FILE"));
  }
}

TEST(Usage, HelpOfACommandListsItsOptions) {
  Program program;
  const Outcome outcome = program.run({"check", "--help"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(outcome.out, HasSubstr("kelp-bdf check"));
  EXPECT_THAT(outcome.out, HasSubstr("--unknown"));
  EXPECT_THAT(outcome.out, HasSubstr("--strict"));
}

}  // namespace
}  // namespace kelp::test
