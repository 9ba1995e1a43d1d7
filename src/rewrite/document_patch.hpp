#pragma once

#include <cstddef>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "rewrite/text_patch.hpp"

namespace kelp::input::bdf {

/// What a changed document leaves to its input.
struct PatchOptions {
  bool leaves_out_geometries = false;  ///< the document is without them, and they stay
  bool takes_comments = false;         ///< comments directly above what goes are taken along
};

/// Finds the edits that make a text say what a document says. The document is the input's own,
/// changed; records that keep their location are the same records.
void patch_document(const ParsedInput& input, const BDFData& edited, const PatchOptions& options,
                    TextPatch& patch);

// The parts of it.

/// Changes the script line and the words of the header.
void patch_header(const ParsedInput& input, const BDFData& edited, TextPatch& patch);

/// Changes the geometry block.
void patch_geometry(const ParsedInput& input, const BDFData& edited, TextPatch& patch);

/// Changes the entries of a module, by its index in the input.
void patch_entries(const ParsedInput& input, std::size_t module,
                   const std::vector<ModuleEntry>& entries, const PatchOptions& options,
                   TextPatch& patch);

/// Returns the number of the first of the comment lines directly above a line, or its own.
std::size_t first_line_with_comments(const ParsedInput& input, std::size_t line);

/// Returns the number of the last line of the header and the geometry; 0 when there are none.
std::size_t last_line_of_easy_section(const ParsedInput& input);

}  // namespace kelp::input::bdf
