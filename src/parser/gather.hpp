#pragma once

#include <string_view>

#include "kelp/input/bdf/document.hpp"
#include "parser/keywords.hpp"
#include "source/line_reader.hpp"

namespace kelp::input::bdf {

/// Tells whether a line closes an entry's block.
bool is_terminator(std::string_view line, const ModuleEntry& entry);

/// Moves a known keyword's line from `reader` into its entry. As the program reads, what stands
/// behind the keyword is the value, if the entry takes one and none follows; so are numbers, where
/// they are what the entry takes and a word follows.
void take_keyword_line(LineReader& reader, const Keywords& keywords, ModuleEntry& entry);

/// Moves the value lines of an entry from `reader` into it, as its kind lays them out. The lines of
/// a `NestedBlock` are taken as those of a `MultiLine`: a block within a block is not read into
/// children of its own.
///
/// An entry that has its value already takes no more, unless it is a count, which rows follow.
/// Whatever the kind, values never go beyond the module's `$end`, the next module's header or the
/// end of the input.
void gather_values(LineReader& reader, const Keywords& keywords, ModuleEntry& entry);

/// Makes a new record the entry that keeps one line verbatim, and moves past the line.
void take_raw_entry(LineReader& reader, ModuleEntry& entry);

}  // namespace kelp::input::bdf
