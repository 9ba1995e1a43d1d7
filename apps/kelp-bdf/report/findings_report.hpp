#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/source.hpp"
#include "report/findings.hpp"

namespace kelp::app {

/// A finding and the input that it is about.
struct Finding {
  const input::bdf::Diagnostic& diagnostic;
  const input::bdf::SourceText& source;
  std::string_view file;                   ///< as the user named it
  bool fails = false;                      ///< it is a reason for the command to fail
  std::size_t width = ReportForm().width;  ///< the most of a line that is shown
};

/// A finding in the words of a form.
struct WrittenFinding {
  std::string text;
  std::string code;
  std::string fingerprint;  ///< the same for the same finding in another state of the file
  bool fails = false;
};

/// A report on the findings of any number of files, in one form. What it returns is to be printed
/// in that order. Findings may be written by any number of threads at once; all else is for one
/// thread, which goes through the files in their order and hands over what was written of each.
class FindingsReport {
 public:
  FindingsReport() = default;
  FindingsReport(const FindingsReport&) = delete;
  FindingsReport& operator=(const FindingsReport&) = delete;
  virtual ~FindingsReport() = default;

  /// Writes one finding.
  virtual WrittenFinding write(const Finding& finding) const = 0;

  /// Begins the report.
  virtual std::string begin() { return {}; }
  /// Begins the findings of a file.
  virtual std::string begin_file(std::string_view /*file*/) { return {}; }
  /// Adds a finding to those of the file that was begun.
  virtual std::string add(const WrittenFinding& finding) { return finding.text; }
  /// Says what kept a file, the one that was begun or any other, from being checked.
  virtual std::string fail(const std::string& /*reason*/) { return {}; }
  /// Ends the findings of a file.
  virtual std::string end_file() { return {}; }
  /// Ends the report.
  virtual std::string end(const Totals& /*totals*/) { return {}; }

  /// Tells whether the report says itself how many findings were left out.
  virtual bool tells_what_is_not_shown() const { return false; }
  /// Tells whether the texts may hold bytes that are not safe to show on a terminal.
  virtual bool is_data() const { return false; }
};

/// Returns the names of all forms, the first being the one that people like to read.
const std::vector<std::string>& findings_forms();

/// Begins a report in a form, by its name. Only that for people can look in different ways.
std::unique_ptr<FindingsReport> make_findings_report(std::string_view form,
                                                     const ReportForm& human_form);

// The forms, a file for each kind of reader.
std::unique_ptr<FindingsReport> make_json_report();
std::unique_ptr<FindingsReport> make_json_lines_report();
std::unique_ptr<FindingsReport> make_sarif_report();
std::unique_ptr<FindingsReport> make_github_report();
std::unique_ptr<FindingsReport> make_junit_report();

}  // namespace kelp::app
