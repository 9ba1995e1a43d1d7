#pragma once

#include <cstdint>

namespace kelp::input::bdf {

/// How the value of a keyword is laid out on the lines that follow it. The numbers are part of the
/// interface.
enum class EntryValueKind : std::int32_t {
  Flag = 0,             ///< the keyword alone
  Scalar = 1,           ///< one value line
  Tuple = 2,            ///< one value line of several fields
  MultiLine = 3,        ///< value lines up to the next keyword
  CountedRows = 4,      ///< a count line followed by that many rows
  NestedBlock = 5,      ///< a block of child entries, closed by a terminator line
  TerminatedBlock = 6,  ///< free lines, closed by a terminator line
  Raw = 7,              ///< kept verbatim; also the answer for an unknown keyword
};

}  // namespace kelp::input::bdf
