#pragma once

#include <string>

#include "kelp/input/bdf/editor.hpp"
#include "kelp/input/bdf/parser.hpp"

namespace kelp::input::bdf {

/// Reads a text with the shared vocabulary; findings do not matter.
BDFData read(const std::string& text, const ParseOptions& options = {});

/// Writes a document as the editor does.
std::string written(const BDFData& data);

/// Returns what reading the written document must give, which is the document itself but for
///  - an easy input: the geometry block is always written, and an empty line follows it;
///  - a module input: it has no header, and its geometry is written into a compass module, where it
///    is read as an entry of that module;
///  - empty lines at the end, and those between the entries of a module, which are not written.
BDFData as_read_back(BDFData data);

}  // namespace kelp::input::bdf
