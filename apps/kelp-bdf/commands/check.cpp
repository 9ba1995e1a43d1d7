#include "commands/commands.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "cli/in_order.hpp"
#include "cli/output.hpp"
#include "cli/progress.hpp"
#include "cli/sources.hpp"
#include "commands/fixes.hpp"
#include "kelp/core/fs.hpp"
#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/explain.hpp"
#include "report/findings.hpp"
#include "report/findings_report.hpp"
#include "report/summary.hpp"
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

/// One run of the command. Inputs are read and diagnosed in any thread; what is told of them is
/// counted and printed in one, in their order.
class Check {
 public:
  Check(const CheckOptions& options, Session& session)
      : options_(options),
        session_(session),
        schema_(session.schema()),
        wanted_(diagnose_options(options)),
        report_(make_findings_report(options.format, use_colour(session.options.colour))),
        sources_(expand_sources(options, session.options)),
        progress_(sources_.list.size(), !session.options.quiet) {}

  ExitStatus run() {
    show(report_->begin());
    for (const std::string& error : sources_.errors) {
      fail(error);
    }
    OrderedWork works;
    works.count = sources_.list.size();
    works.jobs = jobs();
    works.work = [this](std::size_t index, Teller& teller) {
      check(sources_.list[index], teller);
      teller.tell([this] { progress_.advance(); });
    };
    works.has_ended = output_ended;
    works.while_waiting = [this] { progress_.show(); };
    do_in_order(works);
    progress_.clear();
    print_end();
    return status_;
  }

 private:
  // One fix may lead to another one in the same file, which may be named twice.
  unsigned jobs() const {
    const bool writes = options_.fix && !options_.diff;
    return writes ? 1 : options_.jobs.value_or(cores());
  }

  void fail(const std::string& error) {
    progress_.clear();
    complain(error);
    show(report_->fail(error));
    status_ = ExitStatus::Failure;
  }

  void show(const std::string& text) {
    if (!reports() || text.empty()) {
      return;
    }
    progress_.clear();
    if (report_->is_data()) {
      print_contents(text);
    } else {
      print(text);
    }
  }

  void check(const Source& source, Teller& teller) {
    teller.tell([this, &source] { show(report_->begin_file(source.name)); });
    try {
      const ParsedInput input = read(source, teller);
      const bool found = diagnose_all(input, source, teller);
      teller.tell([this, found] {
        ++totals_.files_checked;
        totals_.files_with_findings += found ? 1 : 0;
      });
    } catch (const std::exception& error) {
      teller.tell([this, text = failure_text(source, error)] { fail(text); });
    }
    teller.tell([this] { show(report_->end_file()); });
  }

  ParsedInput read(const Source& source, Teller& teller) {
    if (source.path == "-") {
      if (options_.fix && !options_.diff) {
        throw std::runtime_error("standard input cannot be changed in place");
      }
      teller.wait_for_turn();
    }
    ParsedInput input("", schema_);
    do_undisturbed([&] {
      input = ParsedInput(read_source(source, session_.options), schema_);
      if (options_.fix) {
        input = fixed(source, input, teller);
      }
    });
    return input;
  }

  // With a difference on standard output, only the status tells of what would remain.
  bool reports() const { return !session_.options.quiet && !options_.diff; }

  bool lists() const { return reports() && !options_.summary; }

  DiagnoseOptions wanted_of(const Source& source) const {
    DiagnoseOptions wanted = wanted_;
    if (source.path != "-") {
      wanted.folder = input::bdf::input_folder_of(source.path);
    }
    return wanted;
  }

  ParsedInput fixed(const Source& source, const ParsedInput& input, Teller& teller) {
    SafeFixes fixes;
    diagnose(input, wanted_of(source),
             [&fixes](const Diagnostic& diagnostic) { fixes.add(diagnostic); });
    if (fixes.count() == 0) {
      return input;
    }
    const std::string text = fixes.apply_to(input.source().text());
    if (options_.diff) {
      teller.tell([this, difference = unified_diff(source.name, input.source().text(), text)] {
        progress_.clear();
        print_contents(difference);
      });
    } else {
      core::fs::replace_text_file(source.path, input.source().text(), text);
      teller.tell([this, count = fixes.count()] { totals_.fixed += count; });
    }
    return {text, schema_};
  }

  // Findings are told as they are made: there may be more of them than fit into memory.
  bool diagnose_all(const ParsedInput& input, const Source& source, Teller& teller) {
    std::size_t found = 0;
    diagnose(input, wanted_of(source), [&](const Diagnostic& diagnostic) {
      if (options_.summary) {
        teller.tell([this, &source, severity = diagnostic.severity, code = diagnostic.code] {
          summary_.add(source.name, severity, code);
        });
      }
      const bool fails = makes_fail(diagnostic.severity);
      WrittenFinding written;
      if (lists() && (!options_.max_findings || found < *options_.max_findings)) {
        written = report_->write({diagnostic, input.source(), source.name, fails});
      }
      teller.tell([this, fails, severity = diagnostic.severity, finding = std::move(written)] {
        count(severity, fails);
        show(finding);
      });
      ++found;
    });
    return found > 0;
  }

  void show(const WrittenFinding& finding) {
    if (options_.max_findings && shown_ >= *options_.max_findings) {
      ++totals_.not_shown;
    } else if (lists()) {
      ++shown_;
      show(report_->add(finding));
    }
  }

  bool makes_fail(Severity severity) const {
    return severity == Severity::Error || (severity == Severity::Warning && options_.strict);
  }

  void count(Severity severity, bool fails) {
    totals_.count(severity);
    if (fails) {
      status_ = worse_of(status_, ExitStatus::Findings);
    }
  }

  void print_end() {
    if (options_.summary) {
      show(summary_.text());
    }
    show(report_->end(totals_));
    if (reports() && !report_->tells_what_is_not_shown() && totals_.not_shown > 0) {
      complain(fmt::format("... and {} more", totals_.not_shown));
    }
  }

  const CheckOptions& options_;
  Session& session_;
  const input::bdf::InputSchema& schema_;
  const DiagnoseOptions wanted_;
  const std::unique_ptr<FindingsReport> report_;
  const Sources sources_;
  Progress progress_;
  Totals totals_;
  Summary summary_;
  std::size_t shown_ = 0;
  ExitStatus status_ = ExitStatus::Success;
};

}  // namespace

ExitStatus run_check(const CheckOptions& options, Session& session) {
  if (options.list_codes) {
    print(list_of_codes());
    return ExitStatus::Success;
  }
  if (options.summary && options.format != "human" && options.format != "concise") {
    throw std::runtime_error("--summary goes with --format=human or concise, not " +
                             options.format);
  }
  refuse_unknown_codes(options.rules);
  return Check(options, session).run();
}

}  // namespace kelp::app
