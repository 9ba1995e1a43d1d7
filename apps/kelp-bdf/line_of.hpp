#pragma once

#include <cstddef>
#include <optional>

#include "kelp/input/bdf/document.hpp"

namespace kelp::app {

/// Returns the number of the line at a place, counted from 1; 0 for no place.
inline std::size_t line_of(const std::optional<input::bdf::SourceSpan>& location) {
  return location ? static_cast<std::size_t>(location->line) : 0;
}

/// Returns the number of the line that a record begins on; 0 if it was not read from a text.
template <typename Record>
auto line_of(const Record& record) -> decltype(line_of(record.location)) {
  return line_of(record.location);
}

}  // namespace kelp::app
