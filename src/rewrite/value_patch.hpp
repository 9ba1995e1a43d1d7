#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/parsed_input.hpp"
#include "rewrite/text_patch.hpp"

namespace kelp::input::bdf {

/// Changes the value lines of an entry or child from the ones read to others. Lines that say the
/// same stay; a line that changes keeps its indentation and its comment, and in a geometry also its
/// columns, its label and the digits of numbers that stay equal.
void patch_values(const ParsedInput& input, const RecordId& record,
                  const std::vector<std::string>& values, const std::string& indentation,
                  TextPatch& patch);

/// Changes an atom on its line. `range` is the line without its comment. What stands behind the
/// coordinates stays; of another element it goes, comment and all.
void patch_atom(const ParsedInput& input, const TextRange& range, const AtomRecord& atom,
                TextPatch& patch);

/// Tells whether the labels of two atoms are of one element: `H1` and `h`.
bool same_element(std::string_view left, std::string_view right);

/// Returns a new line for an atom.
std::string atom_line(const AtomRecord& atom, std::string_view indentation);

}  // namespace kelp::input::bdf
