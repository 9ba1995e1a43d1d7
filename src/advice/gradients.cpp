// Derivatives are asked for by a module or by a task of the header. $bdfopt counts where no $resp
// and no $grad says of which state: then it is the ground state.

#include "advice/gradients.hpp"

#include <array>

#include "advice/excited_states.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::array<const char*, 8> tasks = {"opt",     "freq", "opt+freq", "ts+freq",
                                              "optfreq", "irc",  "scan+opt", "scanopt"};

void add_of_modules(const Job& job, const System& system, std::vector<GradientRequest>& all) {
  for (const Block* const block : system.blocks) {
    const TextRange name = job.input.keyword_range(block->record());
    const bool is_coupling = block->name == "resp" && block->has("fnac");
    const bool is_geometric = block->name == "resp" && block->has("geom");
    if ((is_coupling || is_geometric) && !block->is("norder", 0)) {
      all.push_back({name, block, is_coupling || block->is("imethod", 2)});
    } else if (block->name == "grad" || block->name == "irc") {
      all.push_back({name, block, false});
    }
  }
}

void add_of_header(const Job& job, std::vector<GradientRequest>& all) {
  const bool is_excited = has_excited_method(job);
  for (const char* const task : tasks) {
    const Setting setting = job.header(task);
    if (setting && !setting.is("false")) {
      all.push_back({setting.keyword(), nullptr, is_excited});
    }
  }
}

}  // namespace

std::vector<GradientRequest> gradients_of(const Job& job, const System& system) {
  std::vector<GradientRequest> all;
  add_of_modules(job, system, all);
  // Numerical gradients are made of energies.
  const bool is_numerical = job.has("numgrad");
  for (const Block* const block : system.blocks) {
    if (block->name == "bdfopt" && all.empty() && !is_numerical) {
      all.push_back({job.input.keyword_range(block->record()), block, false});
    }
  }
  if (&system == &job.systems.front() && job.specification()) {
    add_of_header(job, all);
  }
  return all;
}

bool is_gradient_of(const Job& job, const GradientRequest& request, const Scf& scf) {
  const Scf* const nearest = request.block == nullptr ? nullptr : job.scf_of(*request.block);
  return nearest == nullptr || nearest == &scf;
}

}  // namespace kelp::input::bdf
