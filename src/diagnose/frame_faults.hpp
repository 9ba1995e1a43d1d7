#pragma once

#include <functional>

#include "diagnose/draft.hpp"

namespace kelp::input::bdf {

/// Takes a finding.
using DiagnosticSink = std::function<void(const Diagnostic&)>;

/// Tells of lines that bound a part of the input and are misspelt, and of an `$end` that ends
/// nothing.
void tell_misspelt_borders(DiagnoseContext& context, const DiagnosticSink& sink);

/// Tells of lines between and behind the modules that are none of those that may stand there, once
/// for each run of them. Dots for lines that are left out may.
void tell_stray_lines(const ParsedInput& input, const DiagnosticSink& sink);

/// Tells of misspelt lines around the settings of modules, and of settings that have no end.
void tell_settings(const ParsedInput& input, const DiagnosticSink& sink);

/// What the first lines of an input are when they are no header.
struct StrangeStart {
  Diagnostic diagnostic;
  bool is_all = false;  ///< nothing else is to be said of the text
};

/// Returns what a text is that begins like none of the inputs there are: a shell script, lines
/// before the first module that are no header, or a text without header and module. Unset for any
/// other input, one whose header lacks its method included.
std::optional<StrangeStart> find_strange_start(const ParsedInput& input);

}  // namespace kelp::input::bdf
