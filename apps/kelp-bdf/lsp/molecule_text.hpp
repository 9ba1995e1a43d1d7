#pragma once

#include <optional>
#include <string>
#include <vector>

#include "kelp/input/bdf/parsed_input.hpp"

namespace kelp::app::lsp {

/// What there is to say about a geometry, on one line, and where it begins.
struct GeometryText {
  input::bdf::RecordId geometry;  ///< the geometry block, or the entry of a `$compass`
  std::string text;               ///< "C6H6, 42 electrons, multiplicity 1"
};

/// Returns what is certain about each geometry of an input, in order.
std::vector<GeometryText> geometry_texts(const input::bdf::ParsedInput& input);

/// Returns what there is to say about the atom on a line, in Markdown; unset where none stands.
std::optional<std::string> atom_text(const input::bdf::ParsedInput& input, std::size_t line);

}  // namespace kelp::app::lsp
