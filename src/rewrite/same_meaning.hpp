#pragma once

#include <string>

#include "kelp/input/bdf/document.hpp"

namespace kelp::input::bdf {

/// Compares a document that was read from an edited text with the one that was wanted: names,
/// values, header words, the lines between modules, and the geometry unless it was not touched.
/// Layout, comments and blank lines say nothing. Returns the path or the name of the first thing
/// that differs; empty when nothing does.
std::string first_difference(const BDFData& wanted, const BDFData& read, bool with_geometry);

}  // namespace kelp::input::bdf
