#include "schema_lint.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "kelp/input/bdf/names.hpp"
#include "kelp/input/bdf/schema_lint.hpp"
#include "output.hpp"
#include "report.hpp"
#include "source_text.hpp"
#include "sources.hpp"

namespace kelp::app {
namespace {

using input::bdf::SchemaProblem;
using input::bdf::ValidationSeverity;

Finding make_schema_finding(const SchemaProblem& problem, const std::string& file_name,
                            const SourceText& source) {
  Finding finding;
  finding.file = file_name;
  finding.code = problem.code;
  finding.severity = problem.severity;
  finding.message = problem.message;
  const auto line = static_cast<std::size_t>(problem.location.line);
  const auto begin = static_cast<std::size_t>(problem.location.column) - 1;
  finding.source_line = source.line(line);
  const std::size_t size = finding.source_line.size();
  finding.range =
      source.range({line, std::min(begin, size),
                    std::min(begin + static_cast<std::size_t>(problem.location.length), size)});
  finding.source_line_byte = finding.range->start.byte - std::min(begin, size);
  finding.suggestions = input::bdf::similar_names(problem.name, problem.known);
  if (!finding.suggestions.empty()) {
    finding.help.push_back("did you mean " + input::bdf::quoted_choice(finding.suggestions) + "?");
  }
  return finding;
}

}  // namespace

std::vector<Finding> find_in_schema(const std::string& file_name, std::string text) {
  const std::vector<SchemaProblem> problems = input::bdf::lint_schema(text);
  const SourceText source(std::move(text));
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
  const bool human = options.format == "human";
  const bool colour = use_colour(session.options.colour);
  Totals totals{0, 0, findings.empty() ? std::size_t{0} : std::size_t{1}, 1};
  for (const Finding& finding : findings) {
    ++(finding.severity == ValidationSeverity::Error ? totals.errors : totals.warnings);
    if (!session.options.quiet) {
      print(human ? human_report(finding, colour) : concise_report(finding));
    }
  }
  if (human && !session.options.quiet) {
    print(human_summary(totals));
  }
  const bool failed = totals.errors > 0 || (options.strict && totals.warnings > 0);
  return failed ? ExitStatus::Findings : ExitStatus::Success;
}

}  // namespace kelp::app
