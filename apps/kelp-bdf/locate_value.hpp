#pragma once

#include <optional>

#include "checked_input.hpp"
#include "line_index.hpp"
#include "source_text.hpp"

namespace kelp::app {

/// Returns the value that makes an entry's values invalid: one field if a single one is at fault,
/// else a row, else all values; nothing when there are none.
///
/// The library says only that an entry is invalid. Which part of it is found by asking the library
/// again about each part alone, so that its rules are written nowhere else.
std::optional<LinePart> locate_invalid_value(const CheckedInput& input, const Place& place);

}  // namespace kelp::app
