#include "commands/commands.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "cli/output.hpp"
#include "cli/sources.hpp"
#include "commands/fixes.hpp"
#include "kelp/core/fs.hpp"
#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/explain.hpp"
#include "report/findings.hpp"
#include "report/findings_report.hpp"
#include "report/unified_diff.hpp"

namespace kelp::app {
namespace {

using input::bdf::DiagnoseOptions;
using input::bdf::Diagnostic;
using input::bdf::FindingText;
using input::bdf::ParsedInput;
using input::bdf::Severity;
using input::bdf::SeverityRule;
using input::bdf::UnknownNames;

DiagnoseOptions diagnose_options(const CheckOptions& given) {
  DiagnoseOptions options;
  if (given.unknown == "ignore") {
    options.unknown = UnknownNames::Ignore;
  } else if (given.unknown == "error") {
    options.unknown = UnknownNames::Error;
  }
  options.rules = given.rules;
  return options;
}

void refuse_unknown_codes(const std::vector<SeverityRule>& rules) {
  for (const SeverityRule& rule : rules) {
    if (!input::bdf::means_any_code(rule.pattern)) {
      throw std::runtime_error(fmt::format("there is no code '{}'{}", rule.pattern,
                                           did_you_mean(input::bdf::similar_codes(rule.pattern))));
    }
  }
}

// Codes of schemas are not what this command finds.
std::string list_of_codes() {
  std::vector<FindingText> texts;
  std::size_t width = 0;
  for (const FindingText& text : input::bdf::finding_texts()) {
    if (!text.code.starts_with("schema.")) {
      texts.push_back(text);
      width = std::max(width, text.code.size());
    }
  }
  std::string list;
  for (const FindingText& text : texts) {
    list +=
        fmt::format("{:{}}  {:7}  {}\n", text.code, width, to_string(text.severity), text.meaning);
  }
  return list;
}

/// One run of the command.
class Check {
 public:
  Check(const CheckOptions& options, Session& session)
      : options_(options),
        session_(session),
        wanted_(diagnose_options(options)),
        report_(make_findings_report(options.format, use_colour(session.options.colour))) {}

  ExitStatus run() {
    session_.schema();
    show(report_->begin());
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
    show(report_->end(totals_));
    if (reports() && !report_->tells_what_is_not_shown() && totals_.not_shown > 0) {
      complain(fmt::format("... and {} more", totals_.not_shown));
    }
    return status_;
  }

 private:
  void fail(const std::string& error) {
    complain(error);
    show(report_->fail(error));
    status_ = ExitStatus::Failure;
  }

  void show(const std::string& text) const {
    if (!reports()) {
      return;
    }
    if (report_->is_data()) {
      print_contents(text);
    } else {
      print(text);
    }
  }

  void check(const Source& source) {
    show(report_->begin_file(source.name));
    try {
      if (options_.fix && !options_.diff && source.path == "-") {
        throw std::runtime_error("standard input cannot be changed in place");
      }
      wanted_.folder.reset();
      if (source.path != "-") {
        wanted_.folder = input::bdf::input_folder_of(source.path);
      }
      ParsedInput input("", session_.schema());
      do_undisturbed([&] {
        input = ParsedInput(read_source(source), session_.schema());
        if (options_.fix) {
          input = fixed(source, input);
        }
      });
      ++totals_.files_checked;
      totals_.files_with_findings += report_all(input, source) ? 1 : 0;
    } catch (const std::exception& error) {
      fail(failure_text(source, error));
    }
    show(report_->end_file());
  }

  // With a difference on standard output, only the status tells of what would remain.
  bool reports() const { return !session_.options.quiet && !options_.diff; }

  ParsedInput fixed(const Source& source, const ParsedInput& input) {
    SafeFixes fixes;
    diagnose(input, wanted_, [&fixes](const Diagnostic& diagnostic) { fixes.add(diagnostic); });
    if (fixes.count() == 0) {
      return input;
    }
    const std::string text = fixes.apply_to(input.source().text());
    if (options_.diff) {
      print_contents(unified_diff(source.name, input.source().text(), text));
    } else {
      core::fs::replace_text_file(source.path, input.source().text(), text);
      totals_.fixed += fixes.count();
    }
    return {text, session_.schema()};
  }

  // Findings are printed as they are made: there may be more of them than fit into memory.
  bool report_all(const ParsedInput& input, const Source& source) {
    bool found = false;
    diagnose(input, wanted_, [&](const Diagnostic& diagnostic) {
      const bool fails = count(diagnostic.severity);
      if (is_full()) {
        ++totals_.not_shown;
      } else if (reports()) {
        ++shown_;
        const Finding finding = {diagnostic, input.source(), source.name, fails};
        show(report_->add(report_->write(finding)));
      }
      found = true;
    });
    return found;
  }

  bool is_full() const { return options_.max_findings && shown_ >= *options_.max_findings; }

  // Returns whether a finding of that severity makes the command fail.
  bool count(Severity severity) {
    totals_.count(severity);
    const bool fails =
        severity == Severity::Error || (severity == Severity::Warning && options_.strict);
    if (fails) {
      status_ = worse_of(status_, ExitStatus::Findings);
    }
    return fails;
  }

  const CheckOptions& options_;
  Session& session_;
  DiagnoseOptions wanted_;
  std::unique_ptr<FindingsReport> report_;
  Totals totals_;
  std::size_t shown_ = 0;
  ExitStatus status_ = ExitStatus::Success;
};

}  // namespace

ExitStatus run_check(const CheckOptions& options, Session& session) {
  if (options.list_codes) {
    print(list_of_codes());
    return ExitStatus::Success;
  }
  if (options.inputs.empty()) {
    throw std::runtime_error("input is required; see 'kelp-bdf check --help'");
  }
  refuse_unknown_codes(options.rules);
  return Check(options, session).run();
}

}  // namespace kelp::app
