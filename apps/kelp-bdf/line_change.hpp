#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>

#include "checked_input.hpp"

namespace kelp::app {

/// A text in which no lines were replaced but those that a change concerns.
struct LineChange {
  std::string text;
  std::set<std::size_t> replaced;  ///< numbers of the old lines that are not in the text
};

/// Carries a change over to a text in any layout. The change is given by two texts in the canonical
/// form: that of the input, and the one wanted. Lines keep their layout, their remarks and their
/// line ends.
///
/// The result is read again; there is none where it would not mean what is wanted.
std::optional<LineChange> change_lines(const CheckedInput& before, const std::string& canonical,
                                       const std::string& wanted);

/// Returns the numbers of the lines that begin a module, an entry, or an entry of a block.
std::set<std::size_t> record_lines(const input::bdf::BDFData& data);

}  // namespace kelp::app
