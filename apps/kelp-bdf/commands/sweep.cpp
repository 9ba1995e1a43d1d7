// All variants are made before one is written, to see whether they can be made, what is wrong with
// them and what is in their way: nothing is written when one of them is refused. Where the texts
// are more than should be held, those that are left are made once more when they are written.

#include <fmt/format.h>

#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "cli/output.hpp"
#include "cli/sources.hpp"
#include "commands/commands.hpp"
#include "kelp/core/fs.hpp"
#include "kelp/core/resource.hpp"
#include "kelp/core/unicode.hpp"
#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "kelp/input/bdf/rewrite.hpp"
#include "kelp/input/bdf/sweep.hpp"
#include "report/findings.hpp"

namespace kelp::app {
namespace {

using input::bdf::DiagnoseOptions;
using input::bdf::Diagnostic;
using input::bdf::Edit;
using input::bdf::ParsedInput;
using input::bdf::Rewrite;
using input::bdf::Severity;
using input::bdf::SourceText;
using input::bdf::SweepAxis;
using input::bdf::SweepPlan;
using input::bdf::SweepVariant;

std::vector<SweepAxis> read_axes(const std::vector<std::string>& texts) {
  std::vector<SweepAxis> axes;
  for (const std::string& text : texts) {
    input::bdf::SweepAxisResult result = input::bdf::parse_sweep_axis(text);
    if (!result.axis) {
      throw std::runtime_error(result.error);
    }
    axes.push_back(*std::move(result.axis));
  }
  return axes;
}

std::string in_folder(const std::string& folder, const std::string& name) {
  const bool is_plain = folder.empty() || folder == ".";
  return is_plain ? name : folder + (folder.ends_with('/') ? "" : "/") + name;
}

// Lines move from variant to variant, so that findings are told by what they say.
using FindingCounts = std::map<std::pair<std::string, std::string>, std::size_t>;

constexpr std::size_t most_held = 64'000'000;  // bytes

/// One run of the command.
class Sweeping {
 public:
  Sweeping(const SweepOptions& options, Session& session)
      : options_(options),
        session_(session),
        source_(source_of(options.input, session.options)),
        settings_(session.settings_of(source_)),
        axes_(read_axes(options.axes)),
        input_(read_source(source_, session.options), *settings_.schema) {}

  ExitStatus run() {
    const SweepPlan plan = plan_sweep(axes_, options_.name, *settings_.schema);
    if (!plan.error.empty()) {
      throw std::runtime_error(plan.error);
    }
    count_findings();
    for (const SweepVariant& variant : plan.variants) {
      look_at(variant);
    }
    if (is_refused_) {
      complain("nothing is written");
      return ExitStatus::Failure;
    }
    for (std::size_t i = 0; i < plan.variants.size(); ++i) {
      deliver(i, plan.variants[i]);
    }
    if (unchanged_ > 0 && !session_.options.quiet) {
      complain(fmt::format("{} of {} files were there already, with their texts", unchanged_,
                           plan.variants.size()));
    }
    return has_errors_ ? ExitStatus::Findings : ExitStatus::Success;
  }

 private:
  Rewrite make(const SweepVariant& variant) const {
    Edit edit;
    edit.assignments = assignments_of(axes_, variant);
    edit.allow_unknown_names = options_.force;
    return edit_input(input_, edit);
  }

  std::string path_of(const SweepVariant& variant) const {
    return in_folder(options_.folder, variant.name);
  }

  DiagnoseOptions wanted_for(const std::string& path) const {
    DiagnoseOptions wanted;
    if (settings_.config != nullptr) {
      wanted.rules = settings_.config->rules;
    }
    if (path != "-") {
      wanted.folder = input::bdf::input_folder_of(path);
    }
    return wanted;
  }

  void count_findings() {
    std::size_t errors = 0;
    diagnose(input_, wanted_for(source_.path), [&](const Diagnostic& diagnostic) {
      ++known_[{diagnostic.code, diagnostic.message}];
      errors += diagnostic.severity == Severity::Error ? 1 : 0;
    });
    if (errors > 0) {
      has_errors_ = true;
      say(fmt::format("'{}' has errors of its own, {} of them, and so have all that are made of it",
                      source_.name, errors));
    }
  }

  // --- before anything is written

  void look_at(const SweepVariant& variant) {
    const std::string path = path_of(variant);
    Rewrite made = make(variant);
    if (!made.error.empty()) {
      throw std::runtime_error(fmt::format("{}: {}", path, made.error));
    }
    const SourceText text(made.text);
    for (const std::string& note : made.notes) {
      say(fmt::format("{}: {}", path, note));
    }
    for (const Diagnostic& loss : made.losses) {
      report(loss, text, path);
    }
    if (!made.losses.empty() && !options_.force) {
      refuse(fmt::format("'{}' would be wrong; --force writes it all the same", path));
    } else {
      report_new_findings(made, path);
    }
    look_for_file(path, made.text);
    hold(std::move(made.text));
  }

  void hold(std::string text) {
    held_bytes_ += text.size();
    if (held_bytes_ <= most_held) {
      held_.push_back(std::move(text));
    }
  }

  // What the input has, each variant has, and needs to be told once.
  void report_new_findings(const Rewrite& made, const std::string& path) {
    const ParsedInput input(made.text, *settings_.schema);
    FindingCounts known = known_;
    for (const Diagnostic& loss : made.losses) {
      ++known[{loss.code, loss.message}];
    }
    diagnose(input, wanted_for(path), [&](const Diagnostic& diagnostic) {
      has_errors_ = has_errors_ || diagnostic.severity == Severity::Error;
      std::size_t& count = known[{diagnostic.code, diagnostic.message}];
      if (count > 0) {
        --count;
      } else {
        report(diagnostic, input.source(), path);
      }
    });
  }

  void look_for_file(const std::string& path, const std::string& text) {
    if (source_.path != "-" &&
        core::resource::full_path(path) == core::resource::full_path(source_.path)) {
      refuse(fmt::format("'{}' is the input itself", path));
    } else if (!options_.overwrite && is_other_file(path, text)) {
      refuse(fmt::format("'{}' is there already; --overwrite replaces it", path));
    }
  }

  static bool is_other_file(const std::string& path, const std::string& text) {
    return core::resource::is_regular_file_path(path) && !core::fs::file_holds(path, text);
  }

  void refuse(const std::string& reason) {
    complain(reason);
    is_refused_ = true;
  }

  // --- writing

  void deliver(std::size_t index, const SweepVariant& variant) {
    const std::string path = path_of(variant);
    if (!options_.dry_run) {
      const std::string text = index < held_.size() ? std::move(held_[index]) : make(variant).text;
      if (core::fs::file_holds(path, text)) {
        ++unchanged_;
        return;
      }
      write(path, text);
    }
    if (!session_.options.quiet) {
      print(core::unicode::displayable(path) + '\n');
    }
  }

  // A file may have come meanwhile.
  void write(const std::string& path, const std::string& text) const {
    if (!options_.overwrite && core::resource::is_regular_file_path(path)) {
      throw std::runtime_error(fmt::format("'{}' is there since a moment ago", path));
    }
    if (const std::size_t slash = path.rfind('/'); slash != std::string::npos && slash > 0) {
      core::fs::make_folder(path.substr(0, slash));
    }
    core::fs::write_text_file(path, text);
  }

  // --- what is told on standard error

  void say(const std::string& text) const {
    if (!session_.options.quiet) {
      complain(text);
    }
  }

  void report(const Diagnostic& diagnostic, const SourceText& text, const std::string& path) const {
    if (!session_.options.quiet) {
      const ReportForm form = {false,
                               use_colour(session_.options.colour, core::console::Stream::Error)};
      print_aside(report_text(diagnostic, text, path, form));
    }
  }

  const SweepOptions& options_;
  Session& session_;
  const Source source_;
  const Session::Settings& settings_;
  const std::vector<SweepAxis> axes_;
  const ParsedInput input_;
  FindingCounts known_;
  std::vector<std::string> held_;  // the texts of the first variants
  std::size_t held_bytes_ = 0;
  std::size_t unchanged_ = 0;
  bool has_errors_ = false;
  bool is_refused_ = false;
};

}  // namespace

ExitStatus run_sweep(const SweepOptions& options, Session& session) {
  return Sweeping(options, session).run();
}

}  // namespace kelp::app
