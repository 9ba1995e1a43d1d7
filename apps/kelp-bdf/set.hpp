#pragma once

#include <CLI/CLI.hpp>

#include "session.hpp"

namespace kelp::app {

/// Adds the command `set`, which changes values of an input.
void add_set(CLI::App& app, Session& session);

}  // namespace kelp::app
