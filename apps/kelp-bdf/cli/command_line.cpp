#include "cli/command_line.hpp"

#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include <algorithm>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "cli/command_options.hpp"
#include "cli/completion.hpp"
#include "cli/manual.hpp"
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

std::string unknown_command(const CLI::App& command, const std::string& name) {
  return fmt::format("unknown command '{}'{}", name,
                     did_you_mean(input::bdf::similar_names(name, command_names(command))));
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
    return unknown_command(command, extra);
  }
  return fmt::format("unexpected argument '{}'", extra);
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
  return fmt::format("{}; see '{} --help'", text, call_of(chosen_command(app)));
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
    print(help_text(chosen_command(app)));
  } catch (const CLI::ParseError& error) {
    status = usage_error(app, error);
  }
  return false;
}

ExitStatus print_help(const CLI::App& app, const std::vector<std::string>& names) {
  const CLI::App* command = &app;
  for (const std::string& name : names) {
    const CLI::App* const child = child_of(*command, name);
    if (child == nullptr) {
      complain(unknown_command(*command, name));
      return ExitStatus::Failure;
    }
    command = child;
  }
  print(help_text(*command));
  return ExitStatus::Success;
}

void add_help(CLI::App& app, Session& session) {
  struct Options {
    std::vector<std::string> names;
    bool manual = false;
  };
  const auto options = std::make_shared<Options>();
  CLI::App* const command = app.add_subcommand("help", "Tell how a command is used");
  command->add_option("command", options->names, "A command, such as 'check' or 'schema list'")
      ->type_name("COMMAND");
  command->add_flag("--man", options->manual, "Print the manual page of all commands, for man");
  add_common_options(*command, session.options);
  command->callback([&app, &session, options] {
    session.run = [&app, options] {
      if (options->manual) {
        print(manual_page(app));
        return ExitStatus::Success;
      }
      return print_help(app, options->names);
    };
  });
}

void add_completion(CLI::App& app, Session& session) {
  const auto shell = std::make_shared<std::string>();
  CLI::App* const command =
      app.add_subcommand("completion", "Print what makes a shell complete words of the command");
  command->add_option("shell", *shell, "The shell that it is for")
      ->required()
      ->check(CLI::IsMember({"bash", "zsh", "fish", "powershell"}).description(""))
      ->type_name("bash|zsh|fish|powershell");
  command->footer(
      "To be read when the shell starts: bash in ~/.bashrc 'source <(kelp-bdf completion bash)', "
      "zsh "
      "in ~/.zshrc behind compinit the like, fish in config.fish 'kelp-bdf completion fish | "
      "source', "
      "PowerShell in its profile 'kelp-bdf completion powershell | Out-String | "
      "Invoke-Expression'. "
      "Where the command is installed for all, bash, zsh and fish find it by themselves.");
  add_common_options(*command, session.options);
  command->callback([&session, shell] {
    session.run = [shell] {
      print(shell_script(*shell));
      return ExitStatus::Success;
    };
  });
}

// What goes wrong is nothing to tell while somebody types.
ExitStatus print_candidates(const CLI::App& app, const std::vector<std::string>& arguments,
                            Session& session) {
  try {
    const std::vector<std::string> words(arguments.begin() + 1, arguments.end());
    print(candidates_text(complete(app, words_of_script(words), session)));
  } catch (const std::exception&) {
    return ExitStatus::Failure;
  }
  return ExitStatus::Success;
}

void describe(CLI::App& app, Session& session, bool& show_version) {
  // A path may well begin with a slash.
  app.allow_windows_style_options(false);
  app.description("Checks, lays out and changes input files of the BDF program");
  app.add_flag("--version", show_version, "Print the versions of program, library and schema");
  app.require_subcommand(0, 1);
  add_common_options(app, session.options);
  add_commands(app, session);
  add_help(app, session);
  add_completion(app, session);
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
  if (!arguments.empty() && arguments.front() == completing_command) {
    return print_candidates(app, arguments, session);
  }
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
