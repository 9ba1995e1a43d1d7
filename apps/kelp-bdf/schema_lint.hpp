#pragma once

#include <string>
#include <vector>

#include "exit_status.hpp"
#include "finding.hpp"
#include "session.hpp"

namespace kelp::app {

struct LintOptions {
  std::string file;
  std::string format = "human";
  bool strict = false;
};

/// Returns the problems of a schema document as findings.
std::vector<Finding> find_in_schema(const std::string& file_name, std::string text);

/// Checks a schema document and prints its problems.
ExitStatus lint_schema_file(const LintOptions& options, Session& session);

}  // namespace kelp::app
