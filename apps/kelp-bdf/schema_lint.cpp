#include "schema_lint.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "kelp/input/bdf/names.hpp"
#include "kelp/input/bdf/schema_lint.hpp"
#include "output.hpp"
#include "report.hpp"
#include "sources.hpp"

namespace kelp::app {
namespace {

using input::bdf::Diagnostic;
using input::bdf::SchemaProblem;
using input::bdf::Severity;
using input::bdf::SourceText;
using input::bdf::ValidationSeverity;

Diagnostic diagnostic_of(const SchemaProblem& problem, const SourceText& source) {
  Diagnostic diagnostic;
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
  return diagnostic;
}

}  // namespace

ExitStatus lint_schema_file(const LintOptions& options, Session& session) {
  const Source source = source_of(options.file, session.options);
  const SourceText text(read_source(source));
  const std::vector<SchemaProblem> problems = input::bdf::lint_schema(text.text());
  const ReportForm form = {options.format == "human", use_colour(session.options.colour)};
  Totals totals{0, 0, problems.empty() ? std::size_t{0} : std::size_t{1}, 1};
  for (const SchemaProblem& problem : problems) {
    const Diagnostic diagnostic = diagnostic_of(problem, text);
    ++(diagnostic.severity == Severity::Error ? totals.errors : totals.warnings);
    if (!session.options.quiet) {
      print(report_text(diagnostic, text, source.name, form));
    }
  }
  if (form.human && !session.options.quiet) {
    print(human_summary(totals));
  }
  const bool failed = totals.errors > 0 || (options.strict && totals.warnings > 0);
  return failed ? ExitStatus::Findings : ExitStatus::Success;
}

}  // namespace kelp::app
