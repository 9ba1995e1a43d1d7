// Excited states in a solvent: a kind of solvation, by linear response or by the state, in
// equilibrium or not, which has to be said in each module that works with the states.

#include <algorithm>
#include <array>

#include "advice/report.hpp"
#include "advice/solvation.hpp"
#include "advice/themes.hpp"

namespace kelp::input::bdf {
namespace {

constexpr auto kinds =
    std::to_array<std::string_view>({"solneqlr", "soleqlr", "solneqss", "soleqss"});

void check_optical_dielectric_missing(const Job& job, Report& report) {
  static constexpr std::array<std::string_view, 2> words = {"solneqlr", "solneqss"};
  for (const Block& block : job.blocks) {
    const Scf* const scf = job.scf_of(block);
    if ((block.name != "tddft" && block.name != "resp") || scf == nullptr ||
        scf->block == nullptr || scf->block->has("opticaldielectric") || scf->block->is_elided) {
      continue;
    }
    const Setting solvent = solvent_of(job, scf->block);
    const std::vector<Setting> found = present(block, words);
    if (is_user(solvent) && !found.empty()) {
      report
          .add("'{}' needs the optical dielectric constant of your solvent.",
               {found.front().name()})
          .at_keyword(found.front(), "the solvent follows with its electrons only")
          .related(solvent, "a solvent of your own")
          .help("add 'opticaldielectric' to $scf, the square of the refractive index");
    }
  }
}

void check_tddft_solvation_without_solvent(const Job& job, Report& report) {
  for (const Block& block : job.blocks) {
    const Scf* const scf = job.scf_of(block);
    if ((block.name != "tddft" && block.name != "resp") || scf == nullptr || !job.is_complete() ||
        solvent_of(job, scf->block) || (scf->block != nullptr && scf->block->is_elided)) {
      continue;
    }
    if (const auto found = present(block, kinds); !found.empty()) {
      Finding& finding =
          report.add("'{}' needs a solvent, and the SCF has none.", {found.front().name()})
              .at_keyword(found.front(), "of a solvent that is not there")
              .help("switch the solvent on with 'solvent' in $scf");
      if (scf->block != nullptr) {
        finding.related(*scf->block, "no 'solvent'");
      }
    }
  }
}

void check_solvation_kinds_conflict(const Job& job, Report& report) {
  for (const Block* const tddft : job.all("tddft")) {
    if (const auto found = present(*tddft, kinds); found.size() > 1) {
      report.add("'{}' and '{}' exclude each other.", {found[0].name(), found[1].name()})
          .at_keyword(found[1], "a second kind of solvation")
          .related(found[0].keyword(), "the first one")
          .help("choose one: 'neq' for absorption, 'eq' for relaxed geometries")
          .ask("delete '" + std::string(found[0].name()) + "'", removed(job, found[0]))
          .ask("delete '" + std::string(found[1].name()) + "'", removed(job, found[1]));
    }
  }
}

bool is_excited_gradient(const Block& resp) {
  return resp.name == "resp" && resp.has("geom") && resp.is("imethod", 2);
}

void check_excited_opt_solvation_half(const Job& job, Report& report) {
  for (const Block* const resp : job.all("resp")) {
    const System& system = job.system_of(*resp);
    const auto of_system = [&](const char* name) {
      const auto found = std::find_if(system.blocks.begin(), system.blocks.end(),
                                      [&](const Block* block) { return block->name == name; });
      return found == system.blocks.end() ? nullptr : *found;
    };
    const Block* const tddft = of_system("tddft");
    const Block* const scf = of_system("scf");
    if (of_system("bdfopt") == nullptr || tddft == nullptr || !is_excited_gradient(*resp) ||
        !solvent_of(job, scf) || tddft->has("soleqlr") == resp->has("soleqlr")) {
      continue;
    }
    const Block& with = tddft->has("soleqlr") ? *tddft : *resp;
    const Block& without = tddft->has("soleqlr") ? *resp : *tddft;
    Finding& finding =
        report.add("'soleqlr' is missing in ${}.", {without.name})
            .at(without, "an excited state in another solvent")
            .related(with.get("soleqlr").keyword(), "is there")
            .help("the gradient is that of the energy only when both have the same solvation");
    if (present(without, kinds).empty()) {
      finding.fix("add soleqlr to $" + std::string(without.name),
                  entry_added(job, without, "soleqlr"));
    }
  }
}

void check_emit_needs_equilibrium(const Job& job, Report& report) {
  static constexpr std::array<std::string_view, 2> words = {"soleqss", "soleqlr"};
  for (const Block* const scf : job.all("scf")) {
    if (!scf->has("emit") || !job.is_complete()) {
      continue;
    }
    const bool has_equilibrium =
        std::any_of(job.blocks.begin(), job.blocks.end(), [&](const Block& block) {
          return block.name == "resp" && (block.index < scf->index || !job.is_advanced()) &&
                 (block.is_elided || !present(block, words).empty());
        });
    if (!has_equilibrium) {
      report.add("'emit' needs the solvent of the excited state, and no $resp before has it.")
          .at_keyword(scf->get("emit"), "of which excited state?")
          .help("compute the excited state before: $tddft, and $resp with soleqss or soleqlr");
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"solvent.optical_dielectric_missing", check_optical_dielectric_missing},
    {"solvent.tddft_solvation_without_solvent", check_tddft_solvation_without_solvent},
    {"solvent.solvation_kinds_conflict", check_solvation_kinds_conflict},
    {"solvent.excited_opt_solvation_half", check_excited_opt_solvation_half},
    {"solvent.emit_needs_equilibrium", check_emit_needs_equilibrium},
});

}  // namespace

std::span<const Rule> excited_solvation_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
