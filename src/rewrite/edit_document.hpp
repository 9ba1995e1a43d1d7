#pragma once

#include <string>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "kelp/input/bdf/rewrite.hpp"

namespace kelp::input::bdf {

/// A document after an edit.
struct EditedDocument {
  BDFData data;                ///< without the atoms of the geometry block when they stay
  bool keeps_geometry = true;  ///< the geometry block was not touched
  std::string error;           ///< why the edit is impossible, in words; empty when it is not
};

/// Makes all changes of an edit in a copy of an input's document.
EditedDocument edit_document(const ParsedInput& input, const Edit& edit);

/// Adds a module where the order of execution wants it: `$compass`, `$xuanyuan`, `$scf`, then the
/// others; within `Module Setting`, and not behind a `$bdfopt` that ends the input. Returns its
/// index.
std::size_t add_module(BDFData& data, Module module);

/// Changes one part of the method specification of a header, "method", "functional" or "basis".
/// Returns why that is impossible, or nothing.
std::string set_specification_part(BDFData& data, const InputSchema& schema, std::string_view part,
                                   const std::string& value, bool allow_unknown_names);

/// Tells whether a path names a part of the method specification.
bool is_specification_part(const ValuePath& path);

/// Takes the place of a geometry's atoms, in the input's unit. Returns why that is impossible, or
/// nothing.
std::string set_geometry(BDFData& data, const InputSchema& schema, const NewGeometry& geometry,
                         bool& keeps_geometry);

/// Tells whether two lines of values say the same, however they are spelt.
bool same_value_line(std::string_view left, std::string_view right);

}  // namespace kelp::input::bdf
