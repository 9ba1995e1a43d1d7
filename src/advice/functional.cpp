// Functionals: what each of them can be used for, and the options of $scf that fit it. A functional
// that is not listed can be anything, and no more is said about it than that.

#include <algorithm>
#include <array>

#include "advice/excited_states.hpp"
#include "advice/gradients.hpp"
#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/names.hpp"

namespace kelp::input::bdf {
namespace {

std::string_view class_of(const Job& job, const Scf& scf) {
  return scf.functional.empty() ? std::string_view()
                                : job.knowledge().functional_class(scf.functional);
}

bool is_double_hybrid(const Job& job, const Scf& scf) {
  return class_of(job, scf) == "double-hybrid";
}

bool is_meta(const Job& job, const Scf& scf) {
  const std::string_view name = class_of(job, scf);
  return name == "meta-gga" || name == "hybrid-meta-gga";
}

// Hartree-Fock by its own word, and no functional in sight.
bool is_hartree_fock(const Job& job, const Scf& scf) {
  const bool is_named = scf.reference && !scf.is_kohn_sham();
  const bool is_easy = !scf.reference && job.specification() && job.method() == "hf";
  return scf.functional.empty() && (is_named || is_easy) &&
         (scf.block == nullptr || !scf.block->has("dft"));
}

Word functional_word(const Job& job, const Scf& scf) {
  return job.input.source().text_of(scf.functional_word);
}

// Where a name is told of as a slip, this is left out.
void check_functional_unlisted(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    const Word name = functional_word(job, scf);
    if (scf.functional.empty() || job.schema().is_known_functional(scf.functional) ||
        is_elision(name)) {
      continue;
    }
    Finding& finding =
        report.add("'{}' is no functional that is listed.", {name})
            .at(scf.functional_word, "of the library of functionals?")
            .help("BDF may know it all the same: the library that it is built on has more");
    const std::vector<std::string>& others = job.knowledge().functionals_elsewhere();
    if (std::find(others.begin(), others.end(), core::text::to_lower(name)) == others.end()) {
      finding.suggest(similar_names(name, NameLists(job.schema()).functionals()));
    }
  }
}

void check_double_hybrid_needs_mp2(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    if (scf.block != nullptr && job.is_advanced() && job.is_complete() &&
        is_double_hybrid(job, scf) && job.all_after(*scf.block, "mp2").empty()) {
      const std::string name(functional_word(job, scf));
      Finding& finding = report.add("'{}' is a double hybrid, and $mp2 is missing.", {name})
                             .at(scf.functional_word, "a part of the energy is that of $mp2");
      if (const Block* const early = job.last_before(*scf.block, "mp2")) {
        finding.related(*early, "comes too early")
            .help("move $mp2 behind $scf")
            .ask_all("move $mp2 behind $scf",
                     moved_behind(job, early->record(), scf.block->record()));
      } else {
        finding.help("add $mp2 behind $scf")
            .fix("add $mp2 behind $scf", block_added(job, *scf.block, "mp2"));
      }
    }
  }
}

void check_double_hybrid_tddft(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    if (!is_double_hybrid(job, scf) || job.has("elecoup")) {
      continue;
    }
    const std::string name(functional_word(job, scf));
    for (const Block* const tddft : job.all("tddft")) {
      if (job.scf_of(*tddft) == &scf) {
        report.add("TDDFT does not support the double hybrid '{}'.", {name})
            .at(scf.functional_word, "not for TDDFT")
            .related(*tddft, "excited states")
            .help("take a hybrid functional");
      }
    }
    if (has_excited_method(job) && !job.has("tddft")) {
      report.add("TDDFT does not support the double hybrid '{}'.", {name})
          .at(scf.functional_word, "not for TDDFT")
          .help("take a hybrid functional");
    }
  }
}

void check_mp2_on_kohn_sham(const Job& job, Report& report) {
  for (const Block* const mp2 : job.all("mp2")) {
    const Scf* const scf = job.scf_of(*mp2);
    if (scf != nullptr && scf->is_kohn_sham() && !class_of(job, *scf).empty() &&
        !is_double_hybrid(job, *scf)) {
      const std::string name(functional_word(job, *scf));
      report.add("$mp2 works with the orbitals of '{}', which is no double hybrid.", {name})
          .at(*mp2, "of no use here")
          .related(scf->functional_word, "no double hybrid")
          .help("take Hartree-Fock for MP2, or a double hybrid such as B2PLYP");
    }
  }
}

/// Derivatives that are asked of an SCF.
struct Demand {
  const Scf* scf;
  GradientRequest request;
};

// The first demand of each SCF, of excited states or of the ground state.
std::vector<Demand> demands(const Job& job, bool is_excited) {
  std::vector<Demand> all;
  for (const System& system : job.systems) {
    const std::vector<GradientRequest> requests = gradients_of(job, system);
    for (const Scf& scf : job.scfs) {
      if (requests.empty() || scf.system != &system) {
        continue;
      }
      const auto found =
          std::find_if(requests.begin(), requests.end(), [&](const GradientRequest& request) {
            return request.is_excited == is_excited && is_gradient_of(job, request, scf);
          });
      if (found != requests.end()) {
        all.push_back({&scf, *found});
      }
    }
  }
  return all;
}

void check_functional_no_gradient(const Job& job, Report& report) {
  for (const auto& [scf, request] : demands(job, false)) {
    if (!scf->functional.empty() && job.knowledge().can(scf->functional, "gradient") == false) {
      const std::string name(functional_word(job, *scf));
      report.add("'{}' has no gradients.", {name})
          .at(scf->functional_word, "energies only")
          .related(request.word, "needs gradients")
          .help("take a similar functional that has them, such as PBE or B3LYP");
    }
  }
}

void check_functional_no_excited_gradient(const Job& job, Report& report) {
  for (const auto& [scf, request] : demands(job, true)) {
    if (!scf->functional.empty() &&
        job.knowledge().can(scf->functional, "excited_gradient") == false) {
      const std::string name(functional_word(job, *scf));
      report.add("'{}' has no gradients and couplings of excited states.", {name})
          .at(scf->functional_word, "not of excited states")
          .related(request.word, "needs them")
          .help("take an LDA, a GGA or a hybrid of GGA, such as PBE0 or B3LYP");
    }
  }
}

// `d3` or `d3zero` of an SCF.
Setting dispersion_of(const Scf& scf) {
  if (scf.block == nullptr) {
    return {};
  }
  return scf.block->has("d3") ? scf.block->get("d3") : scf.block->get("d3zero");
}

void check_d3_doubled(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    const Setting d3 = dispersion_of(scf);
    if (!d3 || scf.functional.empty() ||
        job.knowledge().can(scf.functional, "built_in_dispersion") != true) {
      continue;
    }
    const std::string name(functional_word(job, scf));
    Finding& finding = report.add("'{}' has its dispersion built in.", {name})
                           .at_keyword(d3, "would count dispersion twice")
                           .related(scf.functional_word, "has its own")
                           .help("leave '" + std::string(d3.name()) + "' out");
    const std::string title = "delete '" + std::string(d3.name()) + "'";
    // The manual forbids it in words of this one only.
    if (scf.functional == "wb97x-d3") {
      finding.fix(title, removed(job, d3));
    } else {
      finding.ask(title, removed(job, d3));
    }
  }
}

// Whether a functional is listed, and is not in a list of those that can be used for something.
bool is_outside(const Job& job, const Scf& scf, std::string_view use) {
  return !class_of(job, scf).empty() && job.knowledge().can(scf.functional, use) != true;
}

// An entry that is there for some functionals only, and the functional is none of them.
void report_unfit(const Job& job, const Scf& scf, const char* entry, std::string_view message,
                  Report& report) {
  const std::string name(functional_word(job, scf));
  report.add(message, {name})
      .at_keyword(scf.block->get(entry), "not for this functional")
      .related(scf.functional_word, "the functional")
      .help("it is there for " + quoted_choice(job.knowledge().functionals_for(entry)));
}

void check_d3_functional(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    if (scf.block != nullptr && scf.block->has("d3") && is_outside(job, scf, "d3") &&
        job.knowledge().can(scf.functional, "built_in_dispersion") != true) {
      report_unfit(job, scf, "d3", "D3 has no parameters for '{}'.", report);
    }
  }
}

void check_d3_with_hf(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    const Setting d3 = dispersion_of(scf);
    if (d3 && is_hartree_fock(job, scf)) {
      report.add("'{}' corrects functionals, and this is Hartree-Fock.", {d3.name()})
          .at_keyword(d3, "for functionals")
          .related(scf.reference_word, "Hartree-Fock")
          .help("leave it out, or use a functional");
    }
  }
}

void check_facex_functional(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    if (scf.block != nullptr && scf.block->has("facex") && is_outside(job, scf, "facex")) {
      report_unfit(job, scf, "facex", "'facex' does not change the exchange of '{}'.", report);
    }
  }
}

void check_facco_functional(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    if (scf.block != nullptr && scf.block->has("facco") &&
        (is_outside(job, scf, "facco") || is_hartree_fock(job, scf))) {
      report.add("'facco' scales the MP2 part of a double hybrid, and there is none.")
          .at_keyword(scf.block->get("facco"), "for B2PLYP only")
          .related(scf.functional_word, "no double hybrid")
          .help("leave it out, or use B2PLYP");
    }
  }
}

/// The number that separates the ranges of a functional, where the manual gives one.
struct Separation {
  std::string_view functional;
  const char* omega;
};

constexpr auto separations = std::to_array<Separation>({{"cam-b3lyp", "0.33"},
                                                        {"lc-blyp", "0.33"},
                                                        {"wb97", "0.40"},
                                                        {"wb97x", "0.30"},
                                                        {"wb97x-d", "0.20"}});

void check_rs_needed_nondirect(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    const Block* const compass = scf.system->compass;
    const Block* const xuanyuan =
        scf.block == nullptr ? nullptr : job.last_before(*scf.block, "xuanyuan");
    if (class_of(job, scf) != "range-separated" || compass == nullptr || xuanyuan == nullptr ||
        !compass->has("saorb") || xuanyuan->has("rsomega") || xuanyuan->is_elided ||
        scf.block->has("rsomega") || xuanyuan->has("direct")) {
      continue;
    }
    const std::string name(functional_word(job, scf));
    Finding& finding = report.add("Stored integrals of '{}' need its separation of ranges.", {name})
                           .at(*xuanyuan, "no 'rsomega'")
                           .related(scf.functional_word, "separates ranges")
                           .related(compass->get("saorb").keyword(), "stores the integrals")
                           .help("give the number with 'rsomega' in $xuanyuan, or leave saorb out");
    for (const Separation& it : separations) {
      if (scf.functional == it.functional) {
        finding.fix("set rsomega to " + std::string(it.omega),
                    entry_added(job, *xuanyuan, "rsomega", it.omega));
      }
    }
  }
}

void check_meta_gga_coarse_grid(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    const Setting grid = scf.block == nullptr ? Setting() : scf.block->get("grid");
    if (is_meta(job, scf) && (grid.is("medium") || grid.is("coarse") || grid.is("ultra coarse"))) {
      const std::string name(functional_word(job, scf));
      report.add("The grid is too coarse for '{}'.", {name})
          .at(grid, "below the program's own choice")
          .related(scf.functional_word, "has the kinetic energy density in it")
          .help("leave 'grid' out, the program takes 'fine'; or write 'fine' or 'ultra fine'")
          .ask("set the grid to fine", value_replaced(grid, "fine"));
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"functional.functional_unlisted", check_functional_unlisted},
    {"functional.double_hybrid_needs_mp2", check_double_hybrid_needs_mp2},
    {"functional.double_hybrid_tddft", check_double_hybrid_tddft},
    {"functional.mp2_on_kohn_sham", check_mp2_on_kohn_sham},
    {"functional.functional_no_gradient", check_functional_no_gradient},
    {"functional.functional_no_excited_gradient", check_functional_no_excited_gradient},
    {"functional.d3_doubled", check_d3_doubled},
    {"functional.d3_functional", check_d3_functional},
    {"functional.d3_with_hf", check_d3_with_hf},
    {"functional.facex_functional", check_facex_functional},
    {"functional.facco_functional", check_facco_functional},
    {"functional.rs_needed_nondirect", check_rs_needed_nondirect},
    {"functional.meta_gga_coarse_grid", check_meta_gga_coarse_grid},
});

}  // namespace

std::span<const Rule> functional_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
