// Advice is what can be said of an input as a whole once it is read as a calculation. Each theme is
// a table of rules; a rule looks at the one view that is made for all of them, and reports.

#include "advice/advice.hpp"

#include "advice/job.hpp"
#include "advice/report.hpp"
#include "advice/themes.hpp"

namespace kelp::input::bdf {
namespace {

// Rules compare modules with each other. No calculation has so many of them.
bool is_calculation(const BDFData& data) {
  constexpr std::size_t most = 1000;
  return data.modules.size() <= most && data.easy_tokens.size() <= most;
}

}  // namespace

std::vector<std::span<const Rule>> all_rules() {
  return {
      atom_number_rules(),           //
      basis_rules(),                 //
      database_line_rules(),         //
      distance_rules(),              //
      electrons_rules(),             //
      excited_solvation_rules(),     //
      fragments_definition_rules(),  //
      fragments_rules(),             //
      functional_rules(),            //
      geometry_rules(),              //
      guess_rules(),                 //
      hamiltonian_rules(),           //
      header_rules(),                //
      internal_coordinate_rules(),   //
      irrep_rules(),                 //
      line_between_rules(),          //
      mixed_input_rules(),           //
      number_rules(),                //
      optimisation_hessian_rules(),  //
      optimisation_paths_rules(),    //
      optimisation_rules(),          //
      optimisation_steps_rules(),    //
      resp_couplings_rules(),        //
      resp_rules(),                  //
      scf_option_rules(),            //
      sequence_correlated_rules(),   //
      sequence_fragments_rules(),    //
      sequence_rules(),              //
      soc_rules(),                   //
      solvent_rules(),               //
      symmetry_rules(),              //
      tddft_rules(),                 //
      tddft_states_rules(),          //
  };
}

void advise(const ParsedInput& input, const InputFolder* folder,
            const std::function<void(const Diagnostic&)>& use) {
  if (!is_calculation(input.data())) {
    return;
  }
  const Job job(input, folder);
  Report report(job);
  for (const std::span<const Rule> theme : all_rules()) {
    for (const Rule& rule : theme) {
      report.begin(rule);
      rule.check(job, report);
    }
  }
  for (const Diagnostic& diagnostic : report.take()) {
    use(diagnostic);
  }
}

}  // namespace kelp::input::bdf
