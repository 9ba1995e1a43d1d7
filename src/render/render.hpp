#pragma once

#include <string>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/schema.hpp"

namespace kelp::input::bdf {

/// The decimals of a coordinate in the canonical layout.
inline constexpr int coordinate_decimals = 10;

/// Appends a coordinate in fixed notation.
void append_coordinate(std::string& out, double value, int decimals = coordinate_decimals);

/// Returns a document as text in the canonical layout, with exactly one line feed at the end.
std::string render_document(const BDFData& data, const InputSchema& schema);

}  // namespace kelp::input::bdf
