// Fragments that `$autofrag` makes or is given: what it and the analysis of their energy want of
// the rest of the input. How fragments are defined is the subject of `fragments_definition.cpp`.

#include <algorithm>
#include <array>

#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

// The `$autofrag` of the input, of which the first counts; null without one.
const Block* autofrag_of(const Job& job) {
  const std::vector<const Block*> all = job.all("autofrag");
  return all.empty() ? nullptr : all.front();
}

std::string method_of(const Block& autofrag) {
  return autofrag.has("method") ? autofrag.get("method").text() : "flmo";
}

bool analyses_energy(const Block& autofrag) {
  return method_of(autofrag) == "sobeda" || method_of(autofrag) == "sobedaw";
}

void check_autofrag_before_compass(const Job& job, Report& report) {
  const Block* const autofrag = autofrag_of(job);
  const Block* const compass = job.systems.front().compass;
  if (autofrag != nullptr && compass != nullptr && compass->index < autofrag->index) {
    report.add("$autofrag takes the molecule apart, and must stand before $compass.")
        .at(*autofrag, "comes too late")
        .related(*compass, "stands before it")
        .fix_all("move it before $compass",
                 moved_before(job, autofrag->record(), compass->record()));
  }
}

void check_autofrag_needs_localmo_flmo(const Job& job, Report& report) {
  const Block* const autofrag = autofrag_of(job);
  const std::vector<const Block*> all = job.all("localmo");
  const bool has_flmo = std::any_of(all.begin(), all.end(), [](const Block* localmo) {
    return localmo->has("flmo") || !localmo->is_whole();
  });
  if (autofrag == nullptr || has_flmo || !job.lists_all_modules() || !job.has("scf")) {
    return;
  }
  Finding& finding = report.add("$autofrag needs a $localmo with 'flmo'.")
                         .at(*autofrag, "joins local orbitals of the fragments")
                         .help("it is needed even where local orbitals are not of interest");
  if (all.empty()) {
    finding.fix("add $localmo with 'flmo'",
                block_added(job, job.blocks.back(), "localmo", {"flmo"}));
  } else {
    finding.related(*all.back(), "has no 'flmo'")
        .fix("add 'flmo' to $localmo", entry_added(job, *all.back(), "flmo"));
  }
}

void check_autofrag_needs_cartesian(const Job& job, Report& report) {
  const Block* const autofrag = autofrag_of(job);
  if (autofrag == nullptr) {
    return;
  }
  for (const System& system : job.systems) {
    const Geometry& geometry = system.geometry;
    if (system.compass != nullptr &&
        (geometry.form == GeometryForm::Internal || geometry.form == GeometryForm::File)) {
      const bool is_file = geometry.form == GeometryForm::File;
      report.add("$autofrag needs the atoms with their coordinates in $compass.")
          .at(is_file ? range_of(job.input, geometry.file)
                      : job.input.keyword_range(geometry.record),
              is_file ? "a file" : "distances and angles")
          .related(*autofrag, "reads coordinates")
          .help("write a line with label, x, y and z for each atom");
    }
  }
}

void check_autofrag_easy_input(const Job& job, Report& report) {
  const Block* const autofrag = autofrag_of(job);
  if (autofrag != nullptr && !job.is_advanced()) {
    report.add("$autofrag works in an input of modules only, and this one has a header.")
        .at(*autofrag, "not with a header")
        .help("write $compass, $xuanyuan and $scf in place of the header");
  }
}

void check_ioi_restricted_only(const Job& job, Report& report) {
  const Block* const autofrag = autofrag_of(job);
  if (autofrag == nullptr || method_of(*autofrag) != "ioi") {
    return;
  }
  for (const Scf& scf : job.scfs) {
    if (scf.is_open_shell()) {
      const std::string word(job.input.source().text_of(scf.reference_word));
      report.add("The method 'ioi' is for closed shells, and that of $scf is '{}'.", {word})
          .at(scf.reference_word, "an open shell")
          .related(autofrag->get("method"), "for closed shells")
          .help("use 'flmo' for an open shell");
    }
  }
}

void check_sobeda_functional(const Job& job, Report& report) {
  const Block* const autofrag = autofrag_of(job);
  if (autofrag == nullptr || !analyses_energy(*autofrag)) {
    return;
  }
  for (const Scf& scf : job.scfs) {
    if (job.knowledge().can(scf.functional, "sobeda") == false) {
      const std::string word(job.input.source().text_of(scf.functional_word));
      report.add("The energy of '{}' cannot be analysed.", {word})
          .at(scf.functional_word, "not for this analysis")
          .related(autofrag->get("method"), "the analysis");
    }
  }
}

void check_sobeda_needs_d3(const Job& job, Report& report) {
  const Block* const autofrag = autofrag_of(job);
  if (autofrag == nullptr || method_of(*autofrag) != "sobeda") {
    return;
  }
  for (const Scf& scf : job.scfs) {
    const bool is_open = scf.block != nullptr && scf.is_kohn_sham() && scf.block->is_whole() &&
                         !scf.block->has("d3") && !scf.block->has("d3zero") &&
                         job.knowledge().can(scf.functional, "sobeda") != false;
    if (is_open && job.is_complete()) {
      report.add("Without 'd3' the analysis has no dispersion in it.")
          .at(*scf.block, "has no 'd3'")
          .related(autofrag->get("method"), "the analysis")
          .ask("add 'd3'", entry_added(job, *scf.block, "d3"));
    }
  }
}

// Whether it is the level that the parameters are made for, unless they are given.
bool is_usual_level(const Job& job) {
  return std::all_of(job.scfs.begin(), job.scfs.end(), [](const Scf& scf) {
    const BasisChoice& basis = scf.system->basis;
    return scf.functional == "gb3lyp" && basis.assignments.empty() && !basis.has_inline &&
           core::text::equals_ignoring_case(basis.basis, "def2-tzvpd");
  });
}

void check_sobedaw_parameters(const Job& job, Report& report) {
  const Block* const autofrag = autofrag_of(job);
  if (autofrag == nullptr || method_of(*autofrag) != "sobedaw" || !autofrag->is_whole() ||
      !job.is_complete() || job.scfs.empty() || is_usual_level(job)) {
    return;
  }
  std::string missing;
  for (const char* const name : {"sobedaw_c", "sobedaw_a", "sobedaw_r"}) {
    if (!autofrag->has(name)) {
      missing += missing.empty() ? name : std::string(", ") + name;
    }
  }
  if (!missing.empty()) {
    const Scf& scf = job.scfs.front();
    report.add("The parameters of 'sobedaw' are not given for this level: {}.", {missing})
        .at(autofrag->get("method"), "has its own parameters for each level")
        .related(scf.functional_word, "the functional")
        .related(scf.system->basis.setting, "the basis set")
        .help("those that it has by itself are for GB3LYP-D3 with def2-TZVPD");
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"fragments.autofrag_before_compass", check_autofrag_before_compass},
    {"fragments.autofrag_needs_localmo_flmo", check_autofrag_needs_localmo_flmo},
    {"fragments.autofrag_needs_cartesian", check_autofrag_needs_cartesian},
    {"fragments.autofrag_easy_input", check_autofrag_easy_input},
    {"fragments.ioi_restricted_only", check_ioi_restricted_only},
    {"fragments.sobeda_functional", check_sobeda_functional},
    {"fragments.sobeda_needs_d3", check_sobeda_needs_d3},
    {"fragments.sobedaw_parameters", check_sobedaw_parameters},
});

}  // namespace

std::span<const Rule> fragments_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
