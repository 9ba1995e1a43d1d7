#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "diagnose/draft.hpp"

namespace kelp::input::bdf {

/// Takes a finding.
using DiagnosticSink = std::function<void(const Diagnostic&)>;

/// Begins a finding, of the severity that the table of texts gives its code.
Diagnostic frame_finding(std::string_view code, std::string message);

/// Returns where a line's text is, without its comment and the white space around it.
TextRange statement_on(const ParsedInput& input, std::size_t line);

/// Tells of lines that bound a part of the input and are misspelt, and of an `$end` that ends
/// nothing.
void tell_misspelt_borders(DiagnoseContext& context, const DiagnosticSink& sink);

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
