// Calculations beyond one determinant: the orbital spaces of `$mcscf` must hold the electrons, and
// the modules around it must stand in their order. The spaces are lists with a number for each
// irreducible representation; only their sums matter here.

#include <algorithm>
#include <array>

#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

bool stores_integrals(const Block& compass) {
  return compass.has("saorb") || compass.is_elided ||
         compass.get("group").text().starts_with("gen");
}

void check_posthf_needs_saorb(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    const auto found =
        std::find_if(system.blocks.begin(), system.blocks.end(), [](const Block* block) {
          const bool is_for_tddft = block->has("tddft") || block->has("utddft");
          return (block->name == "traint" && !is_for_tddft) || block->name == "drt" ||
                 block->name == "mrci" || block->name == "xianci";
        });
    if (found == system.blocks.end() || system.compass == nullptr || !job.is_complete() ||
        stores_integrals(*system.compass)) {
      continue;
    }
    Finding& finding = report
                           .add("${} needs integrals of symmetry orbitals, which 'saorb' stores.",
                                {(*found)->name})
                           .at(**found, "needs 'saorb' in $compass")
                           .related(*system.compass, "has no 'saorb'");
    const Setting skeleton = system.compass->get("skeleton");
    if (skeleton) {
      finding.ask("write 'saorb' for 'skeleton'", keyword_replaced(skeleton, "saorb"));
    } else {
      finding.fix("add 'saorb' to $compass", entry_added(job, *system.compass, "saorb"));
    }
  }
}

void check_ci_needs_mcscf(const Job& job, Report& report) {
  for (const char* const name : {"xianci", "mrci"}) {
    for (const Block* const block : job.all(name)) {
      if (job.lists_all_modules() && !job.last_before(*block, "mcscf") &&
          !job.last_before(*block, "traint")) {
        report
            .add("${} takes its orbitals and its space from $mcscf, which is not before it.",
                 {name})
            .at(*block, "needs $mcscf before it")
            .help("compute the active space with $mcscf, or transform integrals with $traint");
      }
    }
  }
}

// The sum of a list of orbitals; 0 without one, unset when it is no list of sensible numbers.
std::optional<std::int64_t> orbitals_in(const Setting& setting) {
  constexpr std::int64_t most = 100'000;
  std::int64_t sum = 0;
  const auto numbers = setting.integers();
  if (!numbers) {
    return std::nullopt;
  }
  for (const std::int64_t number : *numbers) {
    if (number < 0 || number > most) {
      return std::nullopt;
    }
    sum += number;
  }
  return sum;
}

void check_mcscf_too_many_active_electrons(const Job& job, Report& report) {
  for (const Block* const mcscf : job.all("mcscf")) {
    const auto orbitals = orbitals_in(mcscf->get("active"));
    const auto electrons = mcscf->get("actel").integer();
    if (mcscf->has("active") && orbitals && electrons && *electrons > 2 * *orbitals) {
      report
          .add("{} active electrons do not fit into {} orbitals.",
               {text_of(*electrons), text_of(*orbitals)})
          .at(mcscf->get("actel"), "at most " + text_of(2 * *orbitals))
          .related(mcscf->get("active"), "the active orbitals");
    }
  }
}

void check_mcscf_spin_parity(const Job& job, Report& report) {
  for (const Block* const mcscf : job.all("mcscf")) {
    const Setting spin = mcscf->get("spin");
    const auto electrons = mcscf->get("actel").integer();
    const auto multiplicity = spin.integer();
    if (!electrons || !multiplicity || *electrons < 1 || *multiplicity < 1 ||
        *electrons % 2 == (*multiplicity - 1) % 2) {
      continue;
    }
    report
        .add("{} active electrons cannot have the multiplicity {}.",
             {text_of(*electrons), text_of(*multiplicity)})
        .at(spin, *electrons % 2 == 0 ? "must be odd" : "must be even")
        .related(mcscf->get("actel"), "the active electrons")
        .help("'spin' is the multiplicity 2S+1");
  }
}

// How many electrons the spaces hold; unset when that is not certain.
std::optional<std::int64_t> electrons_in_spaces(const Block& mcscf) {
  const auto core = orbitals_in(mcscf.get("core"));
  const auto close = orbitals_in(mcscf.get("close"));
  const auto active = mcscf.get("actel").integer();
  const bool has_inactive = mcscf.has("core") || mcscf.has("close");
  constexpr std::int64_t most = 100'000;
  if (!core || !close || !active || *active < 0 || *active > most || !has_inactive ||
      mcscf.has("automc") || !mcscf.is_whole()) {
    return std::nullopt;
  }
  return 2 * (*core + *close) + *active;
}

void check_mcscf_electron_count(const Job& job, Report& report) {
  for (const Block* const mcscf : job.all("mcscf")) {
    const Scf* const scf = job.scf_of(*mcscf);
    const auto held = electrons_in_spaces(*mcscf);
    const auto electrons = scf != nullptr ? scf->electrons() : std::nullopt;
    if (held && electrons && *held != *electrons && job.is_all_electron(*scf->system)) {
      report
          .add("The orbital spaces hold {} electrons, and there are {}.",
               {text_of(*held), text_of(*electrons)})
          .at(mcscf->get("actel"), "active electrons")
          .related(mcscf->get("core"), "doubly occupied")
          .related(mcscf->get("close"), "doubly occupied")
          .related(scf->charge, "the charge")
          .help("twice the orbitals of 'core' and 'close', and 'actel', make up all electrons");
    }
  }
}

bool is_before(const Job& job, std::string_view module, const Block& block) {
  const std::vector<const Block*> all = job.all(module);
  return !all.empty() && all.front()->index < block.index;
}

void check_automc_needs_expandmo(const Job& job, Report& report) {
  for (const Block* const mcscf : job.all("mcscf")) {
    if (mcscf->has("automc") && job.lists_all_modules() && !is_before(job, "expandmo", *mcscf)) {
      report.add("'automc' takes the active space from $expandmo, which is not before it.")
          .at_keyword(mcscf->get("automc"), "needs $expandmo before it")
          .help("choose the space with $expandmo, or give 'close', 'active' and 'actel'");
    }
  }
}

bool is_copied_before(const Job& job, const Block& block, std::string_view file) {
  return std::any_of(job.shell_lines.begin(), job.shell_lines.end(), [&](const ShellLine& line) {
    return line.before <= block.index &&
           core::text::to_lower(line.text).find(file) != std::string::npos;
  });
}

void check_expandmo_needs_checkfiles(const Job& job, Report& report) {
  for (const Block* const block : job.all("expandmo")) {
    if (!block->has("overlap") || block->has("sb2lb") || block->has("vcmo") || block->is_elided ||
        !job.lists_all_modules()) {
      continue;
    }
    std::string missing;
    for (const char* const file : {"chkfil1", "chkfil2", "inporb"}) {
      if (!is_copied_before(job, *block, file)) {
        missing += missing.empty() ? file : std::string(", ") + file;
      }
    }
    if (!missing.empty()) {
      report.add("'overlap' reads files that nothing makes: {}.", {missing})
          .at_keyword(block->get("overlap"), "needs " + missing)
          .help(
              "copy the check file of each $compass to .chkfil1 and .chkfil2, and the orbitals to "
              ".inporb, with lines that begin with '%'");
    }
  }
}

void check_vgmfci_diatomic(const Job& job, Report& report) {
  for (const Block* const block : job.all("vgmfci")) {
    const Geometry& geometry = job.system_of(*block).geometry;
    const auto atoms = std::count_if(geometry.centres.begin(), geometry.centres.end(),
                                     [](const Centre& centre) { return !centre.is_ghost(); });
    if (geometry.size() && !geometry.centres.empty() && atoms != 2) {
      report.add("$vgmfci is for two atoms, and there are {}.", {std::to_string(atoms)})
          .at(*block, "for diatomic molecules");
    }
  }
}

void check_localmo_two_methods(const Job& job, Report& report) {
  for (const Block* const block : job.all("localmo")) {
    if (block->has("pipek") && block->has("boys")) {
      const Setting boys = block->get("boys");
      const Setting pipek = block->get("pipek");
      const bool is_boys_first = boys.keyword().begin < pipek.keyword().begin;
      const Setting& second = is_boys_first ? pipek : boys;
      report.add("'boys' and 'pipek' are two ways of localising orbitals.")
          .at_keyword(second, "the second way")
          .related((is_boys_first ? boys : pipek).keyword(), "the first one")
          .ask("leave '" + std::string(second.name()) + "' out", removed(job, second));
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"sequence.localmo_two_methods", check_localmo_two_methods},
    {"sequence.posthf_needs_saorb", check_posthf_needs_saorb},
    {"sequence.ci_needs_mcscf", check_ci_needs_mcscf},
    {"sequence.mcscf_too_many_active_electrons", check_mcscf_too_many_active_electrons},
    {"sequence.mcscf_spin_parity", check_mcscf_spin_parity},
    {"sequence.mcscf_electron_count", check_mcscf_electron_count},
    {"sequence.automc_needs_expandmo", check_automc_needs_expandmo},
    {"sequence.expandmo_needs_checkfiles", check_expandmo_needs_checkfiles},
    {"sequence.vgmfci_diatomic", check_vgmfci_diatomic},
});

}  // namespace

std::span<const Rule> sequence_correlated_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
