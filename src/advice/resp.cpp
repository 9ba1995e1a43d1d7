// Gradients and dipoles of `$resp`: which states they are of, and whether these have been computed
// and stored in a way that allows it. The states of couplings stand in rows, those of the rest are
// told by `nfiles` and `iroot`.

#include <algorithm>
#include <array>

#include "advice/evident_symmetry.hpp"
#include "advice/excited_states.hpp"
#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/number.hpp"

namespace kelp::input::bdf {
namespace {

bool stands_before(const Job& job, const Block& block, std::string_view module) {
  return job.last_before(block, module) != nullptr;
}

// Whether the orbitals of a module can come from elsewhere than from a `$scf` of its molecule.
bool has_other_orbitals(const Job& job, const Block& block) {
  if (block.name == "grad") {
    return stands_before(job, block, "mcscf");
  }
  if (block.name == "elecoup") {
    // Orbitals of the fragments, which are molecules of their own.
    return !job.all("scf").empty() && job.all("scf").front()->index < block.index;
  }
  if (block.name == "localmo") {
    return block.has("orbread") || block.has("orbital") || block.has("analyze") ||
           stands_before(job, block, "mcscf") || stands_before(job, block, "expandmo");
  }
  return false;
}

void check_needs_scf(const Job& job, Report& report) {
  if (!job.is_complete() || !job.is_advanced() || job.is_driven()) {
    return;
  }
  for (const char* const module : {"resp", "grad", "nmr", "mp2", "elecoup", "localmo"}) {
    for (const Block* const block : job.all(module)) {
      if (stands_before(job, *block, "scf") || has_other_orbitals(job, *block)) {
        continue;
      }
      const std::string name(block->name);
      Finding& finding = report.add("${} needs the orbitals of an SCF before it.", {name})
                             .at(*block, "no $scf before it")
                             .help("let $scf stand before $" + name);
      if (const auto later = job.all_after(*block, "scf"); !later.empty()) {
        finding.related(*later.front(), "runs later");
      }
    }
  }
}

void check_excited_without_tddft(const Job& job, Report& report) {
  for (const Block* const block : job.all("resp")) {
    const bool is_added = !job.is_advanced() && has_excited_method(job);
    if (!is_about_excited_states(*block) || !job.is_complete() || is_added ||
        !excitations_before(job, *block).empty()) {
      continue;
    }
    const bool is_coupling = block->has("fnac");
    const Setting wish = is_coupling ? block->get("fnac") : block->get("imethod");
    Finding& finding =
        report
            .add("'{}' asks for excited states, and no $tddft computes any before.", {wish.name()})
            .at(wish, "of which states?")
            .help("let a $tddft with istore stand before $resp");
    if (const auto later = job.all_after(*block, "tddft"); !later.empty()) {
      finding.related(*later.front(), "runs later");
    }
  }
}

// Blocks about the states of one file, which `nfiles` tells.
std::vector<const Block*> readers_of_one_file(const Job& job) {
  std::vector<const Block*> blocks = job.all("resp");
  blocks.erase(std::remove_if(blocks.begin(), blocks.end(),
                              [](const Block* block) {
                                return !block->is("imethod", 2) || block->has("fnac");
                              }),
               blocks.end());
  return blocks;
}

void offer_storing(const Job& job, const Block& resp, const std::string& number, Finding& finding) {
  const std::vector<const Block*> earlier = excitations_before(job, resp);
  if (earlier.size() == 1 && !earlier.front()->has("istore")) {
    finding.ask("store the states as " + number,
                entry_added(job, *earlier.front(), "istore", number));
  }
}

void check_nfiles_istore(const Job& job, Report& report) {
  for (const Block* const block : readers_of_one_file(job)) {
    const auto file = block->get("nfiles").integer();
    const StoredStates stored = stored_before(job, *block);
    if (!file || !stored.is_certain || stored.find(*file) != nullptr || !job.is_complete() ||
        excitations_before(job, *block).empty()) {
      continue;
    }
    Finding& finding =
        report
            .add("No $tddft before stores its states as {}; stored are: {}.",
                 {text_of(*file), stored.numbers()})
            .at(block->get("nfiles"), "must be an istore")
            .help("nfiles of $resp is the istore of the $tddft, not a number of files");
    for (const auto& [number, source] : stored.by_number) {
      finding.related(source->get("istore"), "stored as " + text_of(number))
          .ask("read " + text_of(number), value_replaced(block->get("nfiles"), text_of(number)));
    }
    offer_storing(job, *block, text_of(*file), finding);
  }
}

void check_nfiles_missing(const Job& job, Report& report) {
  for (const Block* const block : readers_of_one_file(job)) {
    if (block->has("nfiles") || is_open_to_additions(*block) || !job.is_complete()) {
      continue;
    }
    const StoredStates stored = stored_before(job, *block);
    Finding& finding =
        report.add("'nfiles' is missing: which stored states are meant?")
            .at(block->get("imethod"), "of which $tddft?")
            .help("nfiles is the istore of the $tddft; stored are: " + stored.numbers());
    for (const auto& [number, source] : stored.by_number) {
      finding.ask("add nfiles " + text_of(number),
                  entry_added(job, *block, "nfiles", text_of(number)));
    }
  }
}

// How many states a `$tddft` computes in all; 0 where symmetry or a window decides.
std::int64_t states_of(const Job& job, const Block& tddft) {
  const bool is_by_energy =
      tddft.has("iwindow") || tddft.has("iact") || (tddft.has("idiag") && !tddft.is("idiag", 1));
  if (is_open_to_additions(tddft) || is_by_energy) {
    return 0;
  }
  const bool has_one_representation = is_without_symmetry(job, job.system_of(tddft));
  if (tddft.has("iroot")) {
    const std::int64_t wanted = tddft.get("iroot").integer().value_or(0);
    constexpr std::int64_t most = 1'000'000;
    const bool is_total = wanted < 0 || has_one_representation;
    return is_total && wanted > -most && wanted < most ? std::max(wanted, -wanted) : 0;
  }
  return has_one_representation ? tddft.get("nroot").integer().value_or(0) : 0;
}

void report_root(const Job& job, const Block& source, Word root, Report& report) {
  const std::string states = text_of(states_of(job, source));
  report.add("The state {} is not computed: $tddft computes {}.", {root, states})
      .at(root, "beyond the last state")
      .related(source.has("iroot") ? source.get("iroot") : source.get("nroot"), states + " states")
      .help("compute more states, or choose one of them");
}

// Tells whether a state is beyond those of a block, which may be null.
bool is_beyond(const Job& job, const Block* source, Word root) {
  const std::int64_t states = source == nullptr ? 0 : states_of(job, *source);
  const std::int64_t number = core::number::parse_integer(root).value_or(0);
  return states > 0 && (number > states || number < -states);
}

void check_root_range(const Job& job, Report& report) {
  for (const Block* const block : job.all("resp")) {
    const StoredStates stored = stored_before(job, *block);
    for (const CoupledState& state : coupled_states(*block)) {
      const Block* const source = state.file ? stored.find(*state.file) : nullptr;
      if (is_beyond(job, source, state.root_word)) {
        report_root(job, *source, state.root_word, report);
      }
    }
  }
  for (const Block* const block : readers_of_one_file(job)) {
    const std::vector<const Block*> sources = states_used_by(job, *block);
    for (const Word root : block->get("iroot").words()) {
      if (!sources.empty() && is_beyond(job, sources.front(), root)) {
        report_root(job, *sources.front(), root, report);
      }
    }
  }
}

void check_state_tracking_needs_c1(const Job& job, Report& report) {
  for (const Block* const block : readers_of_one_file(job)) {
    const Setting iroot = block->get("iroot");
    const auto roots = iroot.integers();
    const bool is_tracking = roots && std::any_of(roots->begin(), roots->end(),
                                                  [](std::int64_t root) { return root < 0; });
    const System& system = job.system_of(*block);
    if (is_tracking && !is_without_symmetry(job, system) && has_evident_symmetry(system.geometry)) {
      Finding& finding =
          report.add("States are followed (a negative 'iroot') without symmetry only.")
              .at(iroot, "follows a state")
              .help("switch symmetry off: nosymm in $compass");
      if (system.compass != nullptr && !system.compass->has("group")) {
        finding.ask("add nosymm", entry_added(job, *system.compass, "nosymm"));
      }
    }
  }
}

void check_norder2(const Job& job, Report& report) {
  for (const Block* const block : job.all("resp")) {
    if (block->is("norder", 2)) {
      report.add("$resp computes no second derivatives.")
          .at(block->get("norder"), "not supported")
          .help("for a Hessian use $bdfopt with hess");
    }
  }
}

// States that were computed in a way that only energies can be had of.
void report_obstacle(const Job& job, Report& report, std::initializer_list<const char*> entries) {
  for (const Block* const block : job.all("resp")) {
    for (const Block* const source : states_used_by(job, *block)) {
      std::vector<Setting> obstacles;
      for (const char* const entry : entries) {
        const Setting setting = source->get(entry);
        if (setting && (setting.words().empty() || has_nonzero(setting))) {
          obstacles.push_back(setting);
        }
      }
      if (obstacles.empty()) {
        continue;
      }
      const Setting& first = obstacles.front();
      Finding& finding =
          report
              .add(
                  "Of states computed with '{}', $resp can have no gradients, dipoles or "
                  "couplings.",
                  {first.name()})
              .at_keyword(first, "gives energies only")
              .related(*block, "reads these states");
      if (obstacles.size() == 1) {
        finding.ask("remove '" + std::string(first.name()) + "'", removed(job, first));
      } else {
        finding.related(obstacles.back().keyword(), "likewise");
      }
    }
  }
}

void check_with_frozen_orbitals(const Job& job, Report& report) {
  report_obstacle(job, report, {"frzcore", "frzvirt"});
}

void check_with_grimmestd(const Job& job, Report& report) {
  report_obstacle(job, report, {"grimmestd"});
}

void check_with_itrans(const Job& job, Report& report) {
  report_obstacle(job, report, {"itrans"});
}

bool moves_atoms(const Job& job) {
  static constexpr std::array<const char*, 7> tasks = {"opt",     "freq",     "opt+freq", "ts+freq",
                                                       "optfreq", "scan+opt", "scanopt"};
  return job.is_driven() || std::any_of(tasks.begin(), tasks.end(), [&](const char* task) {
           return static_cast<bool>(job.header(task));
         });
}

void check_spinflip_gradient_kernel(const Job& job, Report& report) {
  for (const Block* const block : job.all("resp")) {
    if (!block->has("fnac") && !moves_atoms(job)) {
      continue;
    }
    for (const Block* const source : states_used_by(job, *block)) {
      if (spin_change_of(*source) != 0 && !source->is("ialda", 4) &&
          !is_open_to_additions(*source)) {
        report
            .add(
                "Gradients and couplings of states of another spin need the collinear kernel, "
                "'ialda' 4.")
            .at(source->get("isf"), "needs ialda 4")
            .related(source->get("ialda"), "another kernel")
            .related(*block, "reads these states")
            .ask("set ialda to 4", entry_set(job, *source, "ialda", "4"));
      }
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"resp.needs_scf", check_needs_scf},
    {"resp.excited_without_tddft", check_excited_without_tddft},
    {"resp.nfiles_istore", check_nfiles_istore},
    {"resp.nfiles_missing", check_nfiles_missing},
    {"resp.root_range", check_root_range},
    {"resp.state_tracking_needs_c1", check_state_tracking_needs_c1},
    {"resp.norder2", check_norder2},
    {"resp.with_frozen_orbitals", check_with_frozen_orbitals},
    {"resp.with_grimmestd", check_with_grimmestd},
    {"resp.with_itrans", check_with_itrans},
    {"resp.spinflip_gradient_kernel", check_spinflip_gradient_kernel},
});

}  // namespace

std::span<const Rule> resp_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
