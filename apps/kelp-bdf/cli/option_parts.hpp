#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "cli/command_options.hpp"
#include "commands/commands.hpp"

namespace kelp::app {

// What the options of several commands are made of.

/// Makes a command the one to run when it was named.
template <typename Options>
void run_when_named(CLI::App& command, Session& session, std::shared_ptr<Options> options,
                    ExitStatus (*run)(const Options&, Session&)) {
  add_common_options(command, session.options);
  command.callback([&command, options = std::move(options), run, &session] {
    session.options.command = command.get_name();
    session.run = [options, run, &session] { return run(*options, session); };
  });
}

/// Refuses an empty name: that is a shell variable that was not set, and would pass for an option
/// not given.
CLI::Validator not_empty();

/// Takes these words alone.
CLI::Validator one_of(std::vector<std::string> words);

/// Adds which inputs are meant.
void add_inputs(CLI::App& command, InputOptions& options);

/// Adds how findings are printed.
void add_form(CLI::App& command, std::string& form);

// The commands with the most options.
void add_check(CLI::App& app, Session& session);
void add_format(CLI::App& app, Session& session);
void add_set(CLI::App& app, Session& session);
void add_sweep(CLI::App& app, Session& session);
void add_schema(CLI::App& app, Session& session);

}  // namespace kelp::app
