#pragma once

#include <CLI/CLI.hpp>

#include "cli/session.hpp"

namespace kelp::app {

/// The heading above the options that every command has.
inline constexpr const char* shared_group = "Options of every command";

/// Adds the options that every command has.
void add_common_options(CLI::App& command, CommonOptions& options);

/// Adds all commands. The one that is named becomes `Session::run` while the options are read.
void add_commands(CLI::App& app, Session& session);

}  // namespace kelp::app
