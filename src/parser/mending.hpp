#pragma once

#include "kelp/input/bdf/schema.hpp"
#include "schema/impl.hpp"
#include "source/line_reader.hpp"

namespace kelp::input::bdf {

// As the program reads, a line that bounds a part of the input and is misspelt would take all that
// follows along. Where such a line can mean one thing only, the reader is told to read it as that.
// By the letter, these do nothing.

/// Looks over the lines of the module whose header was taken, up to the border behind them.
/// `module` is the module's description, or null.
void mend_module(LineReader& reader, const ModuleSpec* module, const InputSchema& schema);

/// Looks over the lines of the geometry block whose first line was taken.
void mend_geometry(LineReader& reader);

/// Where a line stands that belongs to no module.
enum class Outside { Header, Body };

/// Looks at the current line, which belongs to no module: it may open a module or the geometry.
void mend_opening(LineReader& reader, const InputSchema& schema, Outside where);

}  // namespace kelp::input::bdf
