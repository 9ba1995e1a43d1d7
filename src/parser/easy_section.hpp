#pragma once

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "source/line_reader.hpp"

namespace kelp::input::bdf {

/// Reads header lines and the geometry block of an easy input; stops at the first line of the body
/// or at the end of the input.
void parse_easy_section(LineReader& reader, const InputSchema& schema, BDFData& data);

}  // namespace kelp::input::bdf
