#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/source.hpp"

namespace kelp::app {

/// How many findings there were, and where.
struct Totals {
  std::size_t errors = 0;
  std::size_t warnings = 0;
  std::size_t notes = 0;
  std::size_t files_with_findings = 0;
  std::size_t files_checked = 0;
  std::size_t fixed = 0;      ///< findings that are no more
  std::size_t not_shown = 0;  ///< of all that are counted above

  void count(input::bdf::Severity severity);
};

/// How a report on a diagnostic is written.
struct ReportForm {
  bool human = true;  ///< with the line at fault, as people like to read it; else on one line
  bool colour = false;
  std::size_t width = 160;  ///< the most of a line that is shown, in bytes
  std::string code_page{};  ///< the URI of the page that codes are linked to; empty for no links
};

/// Returns a diagnostic about a text in such a form.
std::string report_text(const input::bdf::Diagnostic& diagnostic,
                        const input::bdf::SourceText& source, std::string_view file,
                        const ReportForm& form);

/// Returns the line that closes a human report; empty when there was nothing to report.
std::string human_summary(const Totals& totals);

}  // namespace kelp::app
