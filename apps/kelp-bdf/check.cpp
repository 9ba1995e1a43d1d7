#include "check.hpp"

#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "checked_input.hpp"
#include "common_options.hpp"
#include "make_finding.hpp"
#include "output.hpp"
#include "report.hpp"
#include "sources.hpp"

namespace kelp::app {
namespace {

using input::bdf::ValidationIssue;
using input::bdf::ValidationOptions;
using input::bdf::ValidationSeverity;

struct CheckOptions {
  std::vector<std::string> inputs;
  std::string unknown = "warn";
  std::string format = "human";
  bool strict = false;
};

ValidationOptions validation_options(const std::string& unknown) {
  ValidationOptions options;
  options.report_unknown_modules = unknown == "warn";
  options.report_unknown_entries = unknown == "warn";
  options.unknown_modules_as_errors = unknown == "error";
  options.unknown_entries_as_errors = unknown == "error";
  return options;
}

// An input without a single significant line has neither modules nor a header to speak of.
bool holds_nothing(const input::bdf::ParseResult& result) {
  return !result.ok && result.data.statements.empty() && result.data.easy_tokens.empty() &&
         result.error == "BDF input is empty";
}

/// One run of the command.
class Check {
 public:
  Check(const CheckOptions& options, Session& session)
      : options_(options),
        session_(session),
        colour_(use_colour(session.options.colour)),
        human_(options.format == "human") {}

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
    if (human_ && !session_.options.quiet) {
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
      const CheckedInput input(source.name, read_source(source), session_.schema());
      ++totals_.files_checked;
      totals_.files_with_findings += report_all(input) ? 1 : 0;
    } catch (const std::exception& error) {
      fail(error.what());
    }
  }

  // Findings are printed as they are made: there may be more of them than fit into memory.
  bool report_all(const CheckedInput& input) {
    if (holds_nothing(input.result)) {
      report(make_empty_input_finding(input));
      return true;
    }
    bool found = false;
    FindingMaker maker(input);
    const ValidationOptions options = validation_options(options_.unknown);
    for (const ValidationIssue& issue : input.schema.validate(input.result.data, options)) {
      if (!is_about_remark(issue, input)) {
        report(maker.make(issue));
        found = true;
      }
    }
    return found;
  }

  void report(const Finding& finding) {
    const bool is_error = finding.severity == ValidationSeverity::Error;
    ++(is_error ? totals_.errors : totals_.warnings);
    if (is_error || options_.strict) {
      status_ = worse_of(status_, ExitStatus::Findings);
    }
    if (!session_.options.quiet) {
      print(human_ ? human_report(finding, colour_) : concise_report(finding));
    }
  }

  const CheckOptions& options_;
  Session& session_;
  bool colour_;
  bool human_;
  Totals totals_;
  ExitStatus status_ = ExitStatus::Success;
};

}  // namespace

void add_check(CLI::App& app, Session& session) {
  const auto options = std::make_shared<CheckOptions>();
  CLI::App* const command = app.add_subcommand("check", "Report findings");
  command->add_option("input", options->inputs, "Files, folders (searched for *.inp and *.bdf), -")
      ->required()
      ->type_name("FILE|DIR|-");
  command->add_option("--unknown", options->unknown, "What unknown names are: error, warn, ignore")
      ->check(CLI::IsMember({"error", "warn", "ignore"}))
      ->capture_default_str()
      ->take_last();
  command->add_option("--format", options->format, "human or concise (a line for each finding)")
      ->check(CLI::IsMember({"human", "concise"}))
      ->capture_default_str()
      ->take_last();
  command->add_flag("--strict", options->strict, "Let warnings fail, too");
  add_common_options(*command, session.options);
  command->callback([options, &session] {
    session.run = [options, &session] { return Check(*options, session).run(); };
  });
}

}  // namespace kelp::app
