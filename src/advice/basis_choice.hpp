#pragma once

#include "advice/job.hpp"

namespace kelp::input::bdf {

/// Reads which basis sets a system uses: what its `$compass` says, else the header.
BasisChoice basis_choice_of(const Job& job, const System& system);

}  // namespace kelp::input::bdf
