#pragma once

#include <span>

#include "advice/advice.hpp"

namespace kelp::input::bdf {

// The rules of each theme, one file for each; `all_rules` joins them.

std::span<const Rule> atom_number_rules();
std::span<const Rule> basis_rules();
std::span<const Rule> database_line_rules();
std::span<const Rule> distance_rules();
std::span<const Rule> electrons_rules();
std::span<const Rule> excited_solvation_rules();
std::span<const Rule> fragments_definition_rules();
std::span<const Rule> fragments_rules();
std::span<const Rule> functional_rules();
std::span<const Rule> geometry_rules();
std::span<const Rule> guess_rules();
std::span<const Rule> hamiltonian_rules();
std::span<const Rule> header_rules();
std::span<const Rule> internal_coordinate_rules();
std::span<const Rule> irrep_rules();
std::span<const Rule> line_between_rules();
std::span<const Rule> mixed_input_rules();
std::span<const Rule> number_rules();
std::span<const Rule> optimisation_hessian_rules();
std::span<const Rule> optimisation_paths_rules();
std::span<const Rule> optimisation_rules();
std::span<const Rule> optimisation_steps_rules();
std::span<const Rule> resp_couplings_rules();
std::span<const Rule> resp_rules();
std::span<const Rule> scf_option_rules();
std::span<const Rule> sequence_correlated_rules();
std::span<const Rule> sequence_fragments_rules();
std::span<const Rule> sequence_rules();
std::span<const Rule> soc_rules();
std::span<const Rule> solvent_rules();
std::span<const Rule> symmetry_rules();
std::span<const Rule> tddft_rules();
std::span<const Rule> tddft_states_rules();

}  // namespace kelp::input::bdf
