#pragma once

#include <span>

#include "advice/advice.hpp"

namespace kelp::input::bdf {

// The rules of each theme, one file for each; `all_rules` joins them.

std::span<const Rule> electrons_rules();
std::span<const Rule> guess_rules();

}  // namespace kelp::input::bdf
