#pragma once

#include <CLI/CLI.hpp>

#include "session.hpp"

namespace kelp::app {

/// Adds the command `format`, which lays inputs out in the canonical form.
void add_format(CLI::App& app, Session& session);

}  // namespace kelp::app
