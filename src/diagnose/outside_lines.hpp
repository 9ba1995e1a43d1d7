#pragma once

#include <cstddef>

#include "diagnose/frame_faults.hpp"

namespace kelp::input::bdf {

/// What a line outside modules that is no shell line, database or comment says.
enum class Outside { Nothing, ModuleEnd, SettingBegin, SettingEnd, Elided, Stray };

struct OutsideLine {
  Outside what = Outside::Nothing;
  bool is_misspelt = false;
};

/// Tells what a statement says; nothing when it is a module, a database or a shell line.
OutsideLine outside_of(const Statement& statement);

/// Returns the line that a statement begins on; 0 when it was not read from the text.
std::size_t line_of(const Statement& statement);

/// Tells of lines between and behind the modules that are none of those that may stand there, once
/// for each run of them. Dots for lines that are left out may.
void tell_stray_lines(const ParsedInput& input, const DiagnosticSink& sink);

/// Tells of misspelt lines around the settings of modules, and of settings without begin or end.
void tell_settings(const ParsedInput& input, const DiagnosticSink& sink);

/// Returns the first line of a text that has no header and no module, though it says something that
/// is no part of an input; 0 for any other text. A page may show no more than a database, or dots.
std::size_t find_foreign_line(const BDFData& data);

}  // namespace kelp::input::bdf
