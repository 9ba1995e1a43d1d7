// The options of `check`.

#include <memory>
#include <sstream>
#include <string>

#include "cli/option_parts.hpp"
#include "commands/commands.hpp"

namespace kelp::app {
namespace {

using input::bdf::SeverityAction;

constexpr int most_jobs = 1024;

std::string complaint_about_count(const std::string& text) {
  constexpr std::size_t most_digits = 9;
  const bool is_count = !text.empty() && text.size() <= most_digits &&
                        text.find_first_not_of("0123456789") == std::string::npos;
  return is_count ? "" : "'" + text + "' is no number of findings";
}

/// Adds an option that says what becomes of some findings. Rules are kept in the order in which
/// they are given, whichever option gives them.
void add_rule(CLI::App& command, const std::string& name, SeverityAction action,
              const std::shared_ptr<CheckOptions>& options, const std::string& description) {
  const auto add = [options, action](const CLI::results_t& given) {
    for (const std::string& codes : given) {
      std::istringstream list(codes + ',');
      for (std::string code; std::getline(list, code, ',');) {
        options->rules.push_back({code, action});
      }
    }
    return true;
  };
  command.add_option(name, add, description)->type_name("CODE,...")->trigger_on_parse();
}

void add_amounts(CLI::App& command, CheckOptions& options) {
  CLI::Option* const most = command
                                .add_option("--max-findings", options.max_findings,
                                            "Print no more than these, and count all")
                                ->check(complaint_about_count)
                                ->type_name("N")
                                ->take_last();
  command
      .add_flag("--summary", options.summary,
                "Print how many findings there are of each code and in each file, instead of them")
      ->excludes(most);
  command
      .add_option("-j,--jobs", options.jobs, "Check so many files at once; else as many as cores")
      ->check(CLI::Range(1, most_jobs).description(""))
      ->type_name("N")
      ->take_last();
}

void add_severities(CLI::App& command, const std::shared_ptr<CheckOptions>& options) {
  command.add_flag("--strict", options->strict, "Let warnings fail, too");
  add_rule(command, "--allow", SeverityAction::Allow, options, "Leave these findings out");
  add_rule(command, "--warn", SeverityAction::Warn, options, "Make these findings warnings");
  add_rule(command, "--deny", SeverityAction::Deny, options, "Make these findings errors");
  command.add_flag("--list-codes", options->list_codes,
                   "Print the codes of all findings, with severity and meaning");
  command.footer(
      "A '*' at the end of a CODE stands for anything: 'bdf.unknown_*'. Of several options about "
      "one code the last counts. In an input, '# kelp-bdf: allow CODE' leaves findings out: on a "
      "line of its own, those of the next line and of what begins there, an entry or a module; "
      "behind a line, those of that line; 'allow-file CODE', those of the whole input. Notes never "
      "fail.");
}

}  // namespace

void add_check(CLI::App& app, Session& session) {
  const auto options = std::make_shared<CheckOptions>();
  CLI::App* const command = app.add_subcommand("check", "Report findings");
  add_inputs(*command, *options);
  command->add_option("--unknown", options->unknown, "What unknown names are")
      ->check(one_of({"error", "warn", "ignore"}))
      ->type_name("error|warn|ignore")
      ->capture_default_str()
      ->take_last();
  add_form(*command, options->format);
  add_amounts(*command, *options);
  add_severities(*command, options);
  CLI::Option* const fix = command->add_flag("--fix", options->fix,
                                             "Mend in the files what has but one sensible remedy");
  command
      ->add_flag("--diff", options->diff,
                 "Print what --fix would change, as a unified diff, instead of findings")
      ->needs(fix);
  run_when_named(*command, session, options, run_check);
}

}  // namespace kelp::app
