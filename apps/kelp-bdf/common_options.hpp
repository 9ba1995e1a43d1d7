#pragma once

#include <CLI/CLI.hpp>

#include "session.hpp"

namespace kelp::app {

/// Adds the options that every command has.
void add_common_options(CLI::App& command, CommonOptions& options);

}  // namespace kelp::app
