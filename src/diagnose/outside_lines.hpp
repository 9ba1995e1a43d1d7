#pragma once

#include <cstddef>

#include "diagnose/frame_faults.hpp"

namespace kelp::input::bdf {

/// Tells of lines between and behind the modules that are none of those that may stand there, once
/// for each run of them. Dots for lines that are left out may.
void tell_stray_lines(const ParsedInput& input, const DiagnosticSink& sink);

/// Tells of misspelt lines around the settings of modules, and of settings that have no end.
void tell_settings(const ParsedInput& input, const DiagnosticSink& sink);

/// Returns the first line of a text that has no header and no module, though it says something that
/// is no part of an input; 0 for any other text. A page may show no more than a database, or dots.
std::size_t find_foreign_line(const BDFData& data);

}  // namespace kelp::input::bdf
