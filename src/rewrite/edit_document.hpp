#pragma once

#include <string>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "kelp/input/bdf/rewrite.hpp"

namespace kelp::input::bdf {

/// A document after an edit.
struct EditedDocument {
  BDFData data;                       ///< without the atoms when they stay
  bool leaves_out_geometries = true;  ///< no geometry was touched, and all were left out
  std::vector<std::string> notes;     ///< what went along with the change unasked, a sentence each
  std::string error;  ///< why the edit is impossible, in words; empty when it is not
};

/// Makes all changes of an edit in a copy of an input's document.
EditedDocument edit_document(const ParsedInput& input, const Edit& edit);

}  // namespace kelp::input::bdf
