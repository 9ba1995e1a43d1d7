#pragma once

#include <string>

#include "kelp/input/bdf/document.hpp"

namespace kelp::input::bdf {

/// Says everything that a document holds, one item to a line, but for what writing and reading
/// cannot keep: locations, warnings, the flags of missing ends, and of what the schema knows the
/// lines as read. An easy and a mixed input look alike: their modules tell them apart.
std::string describe(const BDFData& data);

}  // namespace kelp::input::bdf
