#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "finding.hpp"

namespace kelp::app {

/// How many findings there were, and where.
struct Totals {
  std::size_t errors = 0;
  std::size_t warnings = 0;
  std::size_t files_with_findings = 0;
  std::size_t files_checked = 0;
};

/// Returns a finding with the line at fault, as people like to read it.
std::string human_report(const Finding& finding, bool colour);

/// Returns the line that closes a human report; empty when there was nothing to report.
std::string human_summary(const Totals& totals);

/// Returns a finding as one line: file:line:col: severity: message [code].
std::string concise_report(const Finding& finding);

}  // namespace kelp::app
