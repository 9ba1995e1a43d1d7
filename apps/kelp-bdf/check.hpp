#pragma once

#include <CLI/CLI.hpp>

#include "session.hpp"

namespace kelp::app {

/// Adds the command `check`, which reports findings.
void add_check(CLI::App& app, Session& session);

}  // namespace kelp::app
