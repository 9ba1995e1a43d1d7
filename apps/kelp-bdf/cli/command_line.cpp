#include "cli/command_line.hpp"

#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include <algorithm>
#include <exception>

#include "cli/command_options.hpp"
#include "cli/output.hpp"
#include "cli/session.hpp"
#include "kelp/core/unicode.hpp"
#include "kelp/input/bdf/names.hpp"
#include "kelp/input/bdf/version.hpp"

namespace kelp::app {
namespace {

std::string version_text(Session& session) {
  using core::unicode::displayable;
  std::string text = fmt::format("kelp-bdf {}\nlibkelp_bdf_inp {}\n", KELP_BDF_APP_VERSION,
                                 input::bdf::library_version());
  try {
    const input::bdf::SchemaMetadata& metadata = session.schema().metadata();
    text += fmt::format("schema {} (version {}, BDF {})\n", displayable(session.schema_path()),
                        metadata.schema_version, displayable(metadata.bdf_version));
  } catch (const std::exception& error) {
    text += fmt::format("no schema: {}\n", displayable(error.what()));
  }
  return text;
}

std::vector<std::string> command_names(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* const command : app.get_subcommands({})) {
    names.push_back(command->get_name());
  }
  return names;
}

std::vector<std::string> option_names(const CLI::App& command) {
  std::vector<std::string> names;
  for (const CLI::Option* const option : command.get_options()) {
    for (const std::string& name : option->get_lnames()) {
      names.push_back("--" + name);
    }
  }
  return names;
}

const CLI::App& chosen_command(const CLI::App& app) {
  const std::vector<CLI::App*> chosen = app.get_subcommands();
  return chosen.empty() ? app : chosen_command(*chosen.front());
}

// What is left over is a misspelt option or one argument too many.
std::string explain_extra(const CLI::App& app, const std::string& extra) {
  const CLI::App& command = chosen_command(app);
  if (extra.starts_with('-')) {
    const std::string name = extra.substr(0, extra.find('='));
    return fmt::format("unknown option '{}'{}", name,
                       did_you_mean(input::bdf::similar_names(name, option_names(command))));
  }
  if (!command.get_subcommands({}).empty()) {
    return fmt::format("unknown command '{}'{}", extra,
                       did_you_mean(input::bdf::similar_names(extra, command_names(command))));
  }
  return fmt::format("unexpected argument '{}'", extra);
}

std::string help_call(const CLI::App& command) {
  const CLI::App* const parent = command.get_parent();
  return (parent == nullptr ? "" : help_call(*parent) + ' ') + command.get_name();
}

std::string explain(const CLI::App& app, const CLI::ParseError& error) {
  const std::vector<std::string> extras = app.remaining(true);
  if (!extras.empty()) {
    return explain_extra(app, extras.front());
  }
  // The parser's own text names the type: "--schema: 1 required FILE missing".
  std::string text = error.what();
  if (text.ends_with(" missing")) {
    text = fmt::format("option '{}' needs a value", text.substr(0, text.find(':')));
  }
  return fmt::format("{}; see '{} --help'", text, help_call(chosen_command(app)));
}

ExitStatus usage_error(const CLI::App& app, const CLI::ParseError& error) {
  complain(explain(app, error));
  return ExitStatus::Failure;
}

// The parser forgets a "--" once the command has the arguments that it cannot do without. What
// follows is made to look like no option instead; for a path that changes nothing.
std::vector<std::string> without_end_of_options(std::vector<std::string> arguments) {
  const auto mark = std::find(arguments.begin(), arguments.end(), "--");
  if (mark == arguments.end()) {
    return arguments;
  }
  for (auto argument = arguments.erase(mark); argument != arguments.end(); ++argument) {
    if (argument->starts_with('-') && *argument != "-") {
      argument->insert(0, "./");
    }
  }
  return arguments;
}

// The parser would take the next argument for the value of "--output=", and write to a file of that
// name. Returns the option; empty when all have values.
std::string option_without_value(const std::vector<std::string>& arguments) {
  for (const std::string& argument : arguments) {
    if (argument == "--") {
      break;
    }
    if (argument.starts_with("--") && argument.find('=') == argument.size() - 1) {
      return argument.substr(0, argument.size() - 1);
    }
  }
  return {};
}

// Returns false when the options already said all that there is to do; `status` is then final.
bool read_options(CLI::App& app, std::vector<std::string> arguments, ExitStatus& status) {
  if (const std::string option = option_without_value(arguments); !option.empty()) {
    complain(fmt::format("option '{}' needs a value", option));
    status = ExitStatus::Failure;
    return false;
  }
  arguments = without_end_of_options(std::move(arguments));
  std::reverse(arguments.begin(), arguments.end());
  try {
    app.parse(std::move(arguments));
    return true;
  } catch (const CLI::CallForHelp&) {
    const CLI::App& command = chosen_command(app);
    print(&command == &app ? app.help() : command.help(app.get_name()));
  } catch (const CLI::ParseError& error) {
    status = usage_error(app, error);
  }
  return false;
}

void describe(CLI::App& app, Session& session, bool& show_version) {
  // A path may well begin with a slash.
  app.allow_windows_style_options(false);
  app.description("Checks, lays out and changes input files of the BDF program");
  app.set_help_flag("-h,--help", "Print this help");
  app.add_flag("--version", show_version, "Print the versions of program, library and schema");
  app.require_subcommand(0, 1);
  add_common_options(app, session.options);
  add_commands(app, session);
}

ExitStatus run_command(Session& session, bool show_version) {
  if (show_version) {
    print(version_text(session));
    return ExitStatus::Success;
  }
  if (!session.run) {
    complain("no command given; 'kelp-bdf --help' lists them");
    return ExitStatus::Failure;
  }
  try {
    return session.run();
  } catch (const std::exception& error) {
    complain(error.what());
    return ExitStatus::Failure;
  }
}

}  // namespace

ExitStatus run(std::vector<std::string> arguments) {
  Session session;
  bool show_version = false;
  CLI::App app("", "kelp-bdf");
  describe(app, session, show_version);
  ExitStatus status = ExitStatus::Success;
  if (read_options(app, std::move(arguments), status)) {
    status = run_command(session, show_version);
  }
  if (output_failed()) {
    complain("cannot write to standard output");
    status = worse_of(status, ExitStatus::Failure);
  }
  return status;
}

}  // namespace kelp::app
