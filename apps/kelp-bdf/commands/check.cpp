#include "commands/commands.hpp"

#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

#include "cli/output.hpp"
#include "cli/sources.hpp"
#include "commands/deliver.hpp"
#include "commands/fixes.hpp"
#include "kelp/input/bdf/diagnostics.hpp"
#include "report/findings.hpp"
#include "report/unified_diff.hpp"

namespace kelp::app {
namespace {

using input::bdf::DiagnoseOptions;
using input::bdf::Diagnostic;
using input::bdf::ParsedInput;
using input::bdf::Severity;
using input::bdf::UnknownNames;

DiagnoseOptions diagnose_options(const std::string& unknown) {
  DiagnoseOptions options;
  if (unknown == "ignore") {
    options.unknown = UnknownNames::Ignore;
  } else if (unknown == "error") {
    options.unknown = UnknownNames::Error;
  }
  return options;
}

/// One run of the command.
class Check {
 public:
  Check(const CheckOptions& options, Session& session)
      : options_(options),
        session_(session),
        form_{options.format == "human", use_colour(session.options.colour)} {}

  ExitStatus run() {
    session_.schema();
    const Sources sources = expand_sources(options_.inputs, session_.options);
    for (const std::string& error : sources.errors) {
      fail(error);
    }
    for (const Source& source : sources.list) {
      if (output_ended()) {
        break;
      }
      check(source);
    }
    if (form_.human && reports()) {
      print(human_summary(totals_));
    }
    return status_;
  }

 private:
  void fail(const std::string& error) {
    complain(error);
    status_ = ExitStatus::Failure;
  }

  void check(const Source& source) {
    try {
      if (options_.fix && !options_.diff && source.path == "-") {
        throw std::runtime_error("standard input cannot be changed in place");
      }
      ParsedInput input(read_source(source), session_.schema());
      if (options_.fix) {
        input = fixed(source, input);
      }
      ++totals_.files_checked;
      totals_.files_with_findings += report_all(input, source.name) ? 1 : 0;
    } catch (const std::exception& error) {
      fail(error.what());
    }
  }

  // With a difference on standard output, only the status tells of what would remain.
  bool reports() const { return !session_.options.quiet && !options_.diff; }

  ParsedInput fixed(const Source& source, const ParsedInput& input) {
    SafeFixes fixes;
    diagnose(input, diagnose_options(options_.unknown),
             [&fixes](const Diagnostic& diagnostic) { fixes.add(diagnostic); });
    if (fixes.count() == 0) {
      return input;
    }
    const std::string text = fixes.apply_to(input.source().text());
    if (options_.diff) {
      print(unified_diff(source.name, input.source().text(), text));
    } else {
      replace_file(source.path, text);
      totals_.fixed += fixes.count();
    }
    return {text, session_.schema()};
  }

  // Findings are printed as they are made: there may be more of them than fit into memory.
  bool report_all(const ParsedInput& input, const std::string& name) {
    bool found = false;
    diagnose(input, diagnose_options(options_.unknown), [&](const Diagnostic& diagnostic) {
      count(diagnostic.severity);
      if (reports()) {
        print(report_text(diagnostic, input.source(), name, form_));
      }
      found = true;
    });
    return found;
  }

  void count(Severity severity) {
    totals_.errors += severity == Severity::Error ? 1 : 0;
    totals_.warnings += severity == Severity::Warning ? 1 : 0;
    if (severity == Severity::Error || (severity == Severity::Warning && options_.strict)) {
      status_ = worse_of(status_, ExitStatus::Findings);
    }
  }

  const CheckOptions& options_;
  Session& session_;
  ReportForm form_;
  Totals totals_;
  ExitStatus status_ = ExitStatus::Success;
};

}  // namespace

ExitStatus run_check(const CheckOptions& options, Session& session) {
  return Check(options, session).run();
}

}  // namespace kelp::app
