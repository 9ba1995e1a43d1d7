#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/program.hpp"

namespace kelp::test {

/// A change that is made, as a rule without a word.
struct SetRow {
  const char* what;
  std::vector<std::string> arguments;
  const char* from;
  const char* to;
  const char* told = "";  ///< a part of what is said of it
};

/// Runs `kelp-bdf set` for a row, and expects what it prints; the file itself stays as it is.
inline void expect_set(const SetRow& row) {
  Program program;
  program.write("a.inp", row.from);
  std::vector<std::string> arguments = {"set", "a.inp"};
  arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
  const Outcome outcome = program.run(arguments);
  EXPECT_EQ(outcome.status, 0) << row.what << '\n' << outcome.err;
  EXPECT_EQ(outcome.out, row.to) << row.what;
  EXPECT_THAT(outcome.err, ::testing::HasSubstr(row.told)) << row.what;
  EXPECT_EQ(outcome.err.empty(), *row.told == '\0') << row.what << '\n' << outcome.err;
  EXPECT_EQ(program.read("a.inp"), row.from) << row.what;
}

}  // namespace kelp::test
