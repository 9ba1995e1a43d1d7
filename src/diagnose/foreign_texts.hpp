#pragma once

#include <optional>

#include "diagnose/draft.hpp"

namespace kelp::input::bdf {

/// Tells what a text is that was not written for BDF: a shell script, the input of another program,
/// a file of atoms. Then nothing else is to be said of it. Unset for any text with a part that only
/// inputs of BDF have: a block of atoms, a method specification that stands with it, a module.
std::optional<Diagnostic> find_foreign_text(const ParsedInput& input);

}  // namespace kelp::input::bdf
