#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/schema.hpp"

namespace kelp::input::bdf {

/// What is wrong with a row of basis-block, and what it was meant to be.
struct BasisRowFault {
  std::string label;
  std::string meant;  ///< the row put right; empty when that is not certain
  Severity severity = Severity::Error;
};

/// Returns what is wrong with the form of a row of basis-block, `O,H=def2-svp` or `def2-svp`; none
/// when it can be read. A row is no line of basis data, and holds no comment.
std::optional<BasisRowFault> fault_of_basis_row(std::string_view row, const InputSchema& schema);

}  // namespace kelp::input::bdf
