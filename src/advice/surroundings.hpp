#pragma once

#include "advice/job.hpp"

namespace kelp::input::bdf {

/// Returns where the unit of a system's coordinates is chosen; one that is not there for angstrom.
Setting unit_of(const Job& job, const System& system);

/// Makes the atoms of a system in space; `Job::surroundings_of` keeps them.
Surroundings make_surroundings(const Job& job, const System& system);

}  // namespace kelp::input::bdf
