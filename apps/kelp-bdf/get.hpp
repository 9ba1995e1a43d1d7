#pragma once

#include <CLI/CLI.hpp>

#include "session.hpp"

namespace kelp::app {

/// Adds the command `get`, which prints a value by its path.
void add_get(CLI::App& app, Session& session);

}  // namespace kelp::app
