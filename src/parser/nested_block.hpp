#pragma once

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/parser.hpp"
#include "schema/impl.hpp"
#include "source/line_reader.hpp"

namespace kelp::input::bdf {

/// Moves the lines of a nested block from `reader` into the entry's children, up to its terminator,
/// the end of the module or the end of the input. `block` is the entry's description, or null.
///
/// A child's own values are gathered before the terminator is looked for again, so by the letter
/// they can run over it. As the program reads, they end there.
void gather_children(LineReader& reader, const EntrySpec* block, const ParseOptions& options,
                     ModuleEntry& entry);

}  // namespace kelp::input::bdf
