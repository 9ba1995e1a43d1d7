#pragma once

#include <functional>

#include "diagnose/draft.hpp"
#include "kelp/input/bdf/diagnostics.hpp"

namespace kelp::input::bdf {

/// Takes diagnostics one by one. What it throws is passed on.
using DiagnosticSink = std::function<void(const Diagnostic&)>;

// Each finder hands over what it finds in the order of the text.

/// Returns the finding that every line of a text begins with the same sign, of a terminal or of a
/// mail, behind which an input stands.
std::optional<Diagnostic> find_prefixed_lines(const SourceText& source, const InputSchema& schema);

/// Looks for words of the header that are misspelt, cut or given twice.
void find_header_words(DiagnoseContext& context, const DiagnoseOptions& options,
                       const DiagnosticSink& use);

/// Tells whether the validator misses a specification in the header that is there, cut by blanks,
/// which `find_header_words` tells more exactly.
bool is_cut_specification(const Fault& fault, const ParsedInput& input);

/// Looks for misspelt names of functionals and basis sets among the values of entries.
void find_module_names(DiagnoseContext& context, const DiagnoseOptions& options,
                       const DiagnosticSink& use);

/// Looks for words behind keywords that are not read, and that can be no comment.
void find_surplus_words(DiagnoseContext& context, const DiagnosticSink& use);

/// Looks for lines of geometries that cannot be read, and for unknown elements.
void find_atom_lines(DiagnoseContext& context, const DiagnosticSink& use);

}  // namespace kelp::input::bdf
