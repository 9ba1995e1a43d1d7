#include "schema_lint.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "kelp/input/bdf/names.hpp"
#include "kelp/input/bdf/schema_lint.hpp"
#include "output.hpp"
#include "report.hpp"
#include "sources.hpp"

namespace kelp::app {
namespace {

using input::bdf::SchemaProblem;
using input::bdf::Severity;
using input::bdf::ValidationSeverity;

Finding make_schema_finding(const SchemaProblem& problem, const std::string& file_name,
                            const input::bdf::SourceText& source) {
  Finding finding;
  finding.file = file_name;
  finding.source = source;
  input::bdf::Diagnostic& diagnostic = finding.diagnostic;
  diagnostic.code = problem.code;
  diagnostic.severity =
      problem.severity == ValidationSeverity::Error ? Severity::Error : Severity::Warning;
  diagnostic.message = problem.message;
  const input::bdf::TextRange line =
      source.line_range(static_cast<std::size_t>(problem.location.line));
  const std::size_t begin = line.begin + static_cast<std::size_t>(problem.location.column) - 1;
  const std::size_t end = begin + static_cast<std::size_t>(problem.location.length);
  diagnostic.range = {{std::min(begin, line.end), std::min(end, line.end)}};
  diagnostic.suggestions = input::bdf::similar_names(problem.name, problem.known);
  if (!diagnostic.suggestions.empty()) {
    diagnostic.help.push_back("did you mean " + input::bdf::quoted_choice(diagnostic.suggestions) +
                              "?");
  }
  return finding;
}

}  // namespace

std::vector<Finding> find_in_schema(const std::string& file_name, std::string text) {
  const std::vector<SchemaProblem> problems = input::bdf::lint_schema(text);
  const input::bdf::SourceText source(std::move(text));
  std::vector<Finding> findings;
  findings.reserve(problems.size());
  for (const SchemaProblem& problem : problems) {
    findings.push_back(make_schema_finding(problem, file_name, source));
  }
  return findings;
}

ExitStatus lint_schema_file(const LintOptions& options, Session& session) {
  const Source source{options.file,
                      options.file == "-" ? session.options.stdin_filename : options.file};
  const std::vector<Finding> findings = find_in_schema(source.name, read_source(source));
  const ReportForm form = {options.format == "human", use_colour(session.options.colour)};
  Totals totals{0, 0, findings.empty() ? std::size_t{0} : std::size_t{1}, 1};
  for (const Finding& finding : findings) {
    ++(finding.diagnostic.severity == Severity::Error ? totals.errors : totals.warnings);
    if (!session.options.quiet) {
      print(report_text(finding, form));
    }
  }
  if (form.human && !session.options.quiet) {
    print(human_summary(totals));
  }
  const bool failed = totals.errors > 0 || (options.strict && totals.warnings > 0);
  return failed ? ExitStatus::Findings : ExitStatus::Success;
}

}  // namespace kelp::app
