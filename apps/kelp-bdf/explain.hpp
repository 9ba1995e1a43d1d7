#pragma once

#include <CLI/CLI.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session.hpp"

namespace kelp::app {

/// Adds the command `explain`, which tells what a finding's code or a keyword means.
void add_explain(CLI::App& app, Session& session);

/// Returns what there is to say about a code, a module, an entry, a word of the header; a bare
/// name may mean several. Nothing when the name is unknown.
std::optional<std::string> explanation(std::string_view name,
                                       const input::bdf::InputSchema& schema);

/// Returns what can be explained, for comparison with a misspelt name.
std::vector<std::string> explainable_names(std::string_view like,
                                           const input::bdf::InputSchema& schema);

}  // namespace kelp::app
