#pragma once

#include <string>

#include "exit_status.hpp"
#include "session.hpp"

namespace kelp::app {

struct LintOptions {
  std::string file;
  std::string format = "human";
  bool strict = false;
};

/// Checks a schema document and prints its problems.
ExitStatus lint_schema_file(const LintOptions& options, Session& session);

}  // namespace kelp::app
