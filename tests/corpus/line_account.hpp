#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/document.hpp"

namespace kelp::input::bdf {

/// Looks up where each line of a text went in the document parsed from it, by line number, and
/// returns a sentence for every non-blank line that is nowhere or in two places, and for every
/// record that holds something else than the line it claims to be. Empty when nothing was lost.
///
/// The text must have been parsed with options that drop no line.
std::vector<std::string> lines_unaccounted_for(std::string_view text, const BDFData& data);

/// Returns a sentence for each rule about the document as a whole that a parsed one breaks: modules
/// and statements refer to each other one to one and in order, places agree, and the free lines are
/// those of the side statements.
std::vector<std::string> broken_invariants(const BDFData& data);

}  // namespace kelp::input::bdf
