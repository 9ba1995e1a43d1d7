#pragma once

#include <CLI/CLI.hpp>

#include "session.hpp"

namespace kelp::app {

/// Adds the command `schema`, which is about the vocabulary itself.
void add_schema(CLI::App& app, Session& session);

}  // namespace kelp::app
