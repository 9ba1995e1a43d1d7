#include "commands/commands.hpp"

#include <exception>
#include <string>
#include <vector>

#include "cli/output.hpp"
#include "cli/sources.hpp"
#include "kelp/input/bdf/diagnostics.hpp"
#include "report/findings.hpp"

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
    if (form_.human && !session_.options.quiet) {
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
      const ParsedInput input(read_source(source), session_.schema());
      ++totals_.files_checked;
      totals_.files_with_findings += report_all(input, source.name) ? 1 : 0;
    } catch (const std::exception& error) {
      fail(error.what());
    }
  }

  // Findings are printed as they are made: there may be more of them than fit into memory.
  bool report_all(const ParsedInput& input, const std::string& name) {
    bool found = false;
    diagnose(input, diagnose_options(options_.unknown), [&](const Diagnostic& diagnostic) {
      count(diagnostic.severity);
      if (!session_.options.quiet) {
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
