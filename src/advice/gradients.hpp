#pragma once

#include <vector>

#include "advice/job.hpp"

namespace kelp::input::bdf {

/// Something that asks for derivatives of the energy.
struct GradientRequest {
  TextRange word;      ///< the module's name, or the word of the header
  const Block* block;  ///< null for the header
  bool is_excited;     ///< of an excited state, or a coupling of states
};

/// Returns what asks for derivatives in a system: $resp, $grad, $irc, an optimisation.
std::vector<GradientRequest> gradients_of(const Job& job, const System& system);

/// Tells whether derivatives are those of an SCF.
bool is_gradient_of(const Job& job, const GradientRequest& request, const Scf& scf);

}  // namespace kelp::input::bdf
