#pragma once

#include <string>

#include "kelp/input/bdf/document.hpp"

namespace kelp::input::bdf {

/// How what is read differs from what was wanted.
struct Difference {
  std::string path;    ///< of the first thing that differs; empty when nothing does
  std::string reason;  ///< what it is read as, in words
};

/// Compares a document that was read from an edited text with the one that was wanted: names,
/// values, header words, the lines between modules, and geometries unless they were left out.
/// Layout, comments and blank lines say nothing.
Difference first_difference(const BDFData& wanted, const BDFData& read, bool with_geometries);

}  // namespace kelp::input::bdf
