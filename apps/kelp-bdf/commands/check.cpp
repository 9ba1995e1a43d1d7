#include "commands/commands.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <memory>
#include <optional>
#include <set>
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

/// What holds for an input, or why it cannot be checked.
struct SettingsOrError {
  const Session::Settings* settings = nullptr;
  std::string error = {};
  bool is_told = false;  // for an input before
};

SettingsOrError settings_of(const Source& source, Session& session, std::set<std::string>& told) {
  const ConfigFile* config = nullptr;
  try {
    config = session.config_of(source);
    if (config != nullptr) {
      return {&session.settings_of(source)};
    }
  } catch (const std::exception& error) {
    return {nullptr, error.what(), !told.insert(error.what()).second};
  }
  // Where this fails, it fails for all.
  return {&session.settings_of(source)};
}

std::vector<SettingsOrError> settings_of(const Sources& sources, Session& session) {
  std::set<std::string> told;
  std::vector<SettingsOrError> all;
  all.reserve(sources.list.size());
  for (const Source& source : sources.list) {
    all.push_back(settings_of(source, session, told));
  }
  return all;
}

/// One run of the command. Inputs are read and diagnosed in any thread; what is told of them is
/// counted and printed in one, in their order.
class Check {
 public:
  Check(const CheckOptions& options, Session& session)
      : options_(options),
        session_(session),
        wanted_(diagnose_options(options)),
        report_(make_findings_report(options.format, human_form(session.options.colour))),
        sources_(expand_sources(options, session)),
        settings_(settings_of(sources_, session)),
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
      check(index, teller);
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
    fail_silently(error);
  }

  void fail_silently(const std::string& error) {
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

  void check(std::size_t index, Teller& teller) {
    const Source& source = sources_.list[index];
    const SettingsOrError& found = settings_[index];
    teller.tell([this, &source] { show(report_->begin_file(source.name)); });
    if (found.settings != nullptr) {
      check(source, *found.settings, teller);
    } else {
      teller.tell(
          [this, &found] { found.is_told ? fail_silently(found.error) : fail(found.error); });
    }
    teller.tell([this] { show(report_->end_file()); });
  }

  void check(const Source& source, const Session::Settings& settings, Teller& teller) {
    try {
      const ParsedInput input = read(source, settings, teller);
      const bool found = diagnose_all(input, source, settings, teller);
      teller.tell([this, found] {
        ++totals_.files_checked;
        totals_.files_with_findings += found ? 1 : 0;
      });
    } catch (const std::exception& error) {
      teller.tell([this, text = failure_text(source, error)] { fail(text); });
    }
  }

  ParsedInput read(const Source& source, const Session::Settings& settings, Teller& teller) {
    if (source.path == "-") {
      if (options_.fix && !options_.diff) {
        throw std::runtime_error("standard input cannot be changed in place");
      }
      teller.wait_for_turn();
    }
    ParsedInput input("", *settings.schema);
    do_undisturbed([&] {
      input = ParsedInput(read_source(source, session_.options), *settings.schema);
      if (options_.fix) {
        input = fixed(source, input, settings, teller);
      }
    });
    return input;
  }

  // With a difference on standard output, only the status tells of what would remain.
  bool reports() const { return !session_.options.quiet && !options_.diff; }

  bool lists() const { return reports() && !options_.summary; }

  // What the command line says comes last, and counts.
  DiagnoseOptions wanted_of(const Source& source, const Session::Settings& settings) const {
    DiagnoseOptions wanted = wanted_;
    if (settings.config != nullptr) {
      wanted.rules.insert(wanted.rules.begin(), settings.config->rules.begin(),
                          settings.config->rules.end());
    }
    if (source.path != "-") {
      wanted.folder = input::bdf::input_folder_of(source.path);
    }
    return wanted;
  }

  ParsedInput fixed(const Source& source, const ParsedInput& input,
                    const Session::Settings& settings, Teller& teller) {
    SafeFixes fixes;
    diagnose(input, wanted_of(source, settings),
             [&fixes](const Diagnostic& diagnostic) { fixes.add(diagnostic); });
    if (fixes.count() == 0) {
      return input;
    }
    const std::string text = fixes.apply_to(input.source().text());
    if (options_.diff) {
      teller.tell([this, difference = unified_diff(source.name, input.source().text(), text)] {
        progress_.clear();
        print_diff(difference, use_colour(session_.options.colour));
      });
    } else {
      core::fs::replace_text_file(source.path, input.source().text(), text);
      teller.tell([this, count = fixes.count()] { totals_.fixed += count; });
    }
    return {text, *settings.schema};
  }

  // Findings are told as they are made: there may be more of them than fit into memory.
  bool diagnose_all(const ParsedInput& input, const Source& source,
                    const Session::Settings& settings, Teller& teller) {
    std::size_t found = 0;
    const std::size_t width = settings.width_or(ReportForm().width);
    diagnose(input, wanted_of(source, settings), [&](const Diagnostic& diagnostic) {
      if (options_.summary) {
        teller.tell([this, &source, severity = diagnostic.severity, code = diagnostic.code] {
          summary_.add(source.name, severity, code);
        });
      }
      const bool fails = makes_fail(diagnostic.severity);
      WrittenFinding written;
      if (lists() && (!options_.max_findings || found < *options_.max_findings)) {
        written = report_->write({diagnostic, input.source(), source.name, fails, width});
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
  const DiagnoseOptions wanted_;
  const std::unique_ptr<FindingsReport> report_;
  const Sources sources_;
  const std::vector<SettingsOrError> settings_;
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
