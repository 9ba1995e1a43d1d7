#pragma once

#include <vector>

#include "advice/job.hpp"
#include "kelp/input/bdf/calculation.hpp"

namespace kelp::input::bdf {

/// Returns where a record stands, with the range of what it says there.
Calculation::Origin origin_of(const ParsedInput& input, const RecordId& record,
                              const TextRange& range);

/// Tells whether the header names a method that the schema knows, or a functional that it knows
/// where a method could stand. Anything else is neither one for sure.
bool has_known_method(const Job& job);

/// Returns what an input computes, in order.
std::vector<Calculation::Task> tasks_of(const Job& job);

}  // namespace kelp::input::bdf
