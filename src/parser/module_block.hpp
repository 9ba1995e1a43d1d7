#pragma once

#include <cstddef>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/parser.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "source/line_reader.hpp"

namespace kelp::input::bdf {

/// Reads the module whose header is the current line, up to its `$end`, the next module's header or
/// the end of the input. It will be the `index`-th one of the document.
Module parse_module(LineReader& reader, std::size_t index, const InputSchema& schema,
                    const ParseOptions& options);

}  // namespace kelp::input::bdf
