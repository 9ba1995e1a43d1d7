#pragma once

/// @file
/// Comments that allow a finding where it stands, for an editor that offers to write one.

#include <optional>

#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "kelp/input/bdf/source.hpp"

namespace kelp::input::bdf {

/// Returns the edit that adds a comment which allows a finding (`# kelp-bdf: allow CODE`) as near
/// to it as one may stand: behind its line, above it, above the record, or at the end for the whole
/// input. With the edit the finding is gone, and findings of all other codes stay. Unset when no
/// comment does that, and for a finding that is not one of the input. Reads the input several
/// times. May be called from any number of threads at once; only a failed allocation throws.
KELP_BDF_INP_EXPORT std::optional<TextEdit> allowing_edit(const ParsedInput& input,
                                                          const Diagnostic& diagnostic);

}  // namespace kelp::input::bdf
