#pragma once

#include <CLI/CLI.hpp>

#include "session.hpp"

namespace kelp::app {

/// Adds the command `show`, which prints outlines of inputs.
void add_show(CLI::App& app, Session& session);

}  // namespace kelp::app
