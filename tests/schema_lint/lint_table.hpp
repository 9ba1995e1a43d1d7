#pragma once

// Table tests of the linter: a schema and its problems, one line each, as "line:column code".

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/schema_lint.hpp"

namespace kelp::input::bdf {

struct LintCase {
  int row;  ///< where in the table it stands
  std::string yaml;
  std::vector<std::string> problems;
};

/// Returns a problem as the tables have it; warnings end in an exclamation mark.
inline std::string text_of(const SchemaProblem& problem) {
  return std::to_string(problem.location.line) + ":" + std::to_string(problem.location.column) +
         " " + problem.code + (problem.severity == ValidationSeverity::Warning ? " !" : "");
}

inline std::vector<std::string> problems_of(std::string_view yaml) {
  std::vector<std::string> texts;
  for (const SchemaProblem& problem : lint_schema(yaml)) {
    texts.push_back(text_of(problem));
  }
  return texts;
}

/// Puts an entry's description on line 2, from column 23 on, beside entries that it can refer to.
inline std::string with_entry(std::string_view description) {
  return "schema_version: 1\nmodules: {m: {entries: {" + std::string(description) +
         ", other: {value_type: integer, allowed: [1, 2]}, flag: {kind: flag}}}}\n";
}

inline void expect_problems(const std::vector<LintCase>& cases) {
  for (const LintCase& row : cases) {
    EXPECT_EQ(problems_of(row.yaml), row.problems) << "row of line " << row.row << ":\n"
                                                   << row.yaml;
  }
}

}  // namespace kelp::input::bdf
