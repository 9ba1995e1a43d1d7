#pragma once

#include <CLI/CLI.hpp>

#include "session.hpp"

namespace kelp::app {

/// Adds the command `explain`, which tells what a finding's code or a keyword means.
void add_explain(CLI::App& app, Session& session);

}  // namespace kelp::app
