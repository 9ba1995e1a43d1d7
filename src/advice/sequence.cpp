// The order of modules, and what nuclear magnetic resonance, perturbation theory and the gradient
// of Hartree-Fock want of the modules before them. Where `$bdfopt` runs the others, their order
// means nothing, and it is only asked whether they are there. That the driving modules stand once
// is said by the vocabulary.

#include <algorithm>
#include <array>

#include "advice/geometry.hpp"
#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

bool has_elision(const SourceText& source) {
  for (std::size_t line = 1; line <= source.line_count(); ++line) {
    if (is_elision(source.line(line))) {
      return true;
    }
  }
  return false;
}

bool knows_all_modules(const Job& job) {
  return std::all_of(job.data().modules.begin(), job.data().modules.end(),
                     [](const Module& module) { return module.known; });
}

// An excerpt of an input may show an SCF alone, or bare modules, but not integrals followed by an
// SCF that is set up.
bool is_more_than_excerpt(const Job& job) {
  return std::any_of(job.scfs.begin(), job.scfs.end(), [&](const Scf& scf) {
    return scf.block != nullptr && !scf.block->entries.empty() &&
           job.last_before(*scf.block, "xuanyuan") != nullptr;
  });
}

void check_compass_missing(const Job& job, Report& report) {
  if (is_more_than_excerpt(job) && !job.has("compass") && job.is_advanced() &&
      knows_all_modules(job) && !has_elision(job.input.source())) {
    report.add("There is no $compass, which says what molecule this is.")
        .at(*job.all("xuanyuan").front(), "needs $compass before it")
        .help("begin the input with a $compass that has the basis set and the geometry");
  }
}

void check_xuanyuan_needs_compass(const Job& job, Report& report) {
  const Block* const compass = job.systems.front().compass;
  if (compass == nullptr || !job.lists_all_modules()) {
    return;
  }
  for (const Block* const block : job.all("xuanyuan")) {
    if (block->index < compass->index) {
      report.add("$xuanyuan stands before $compass, and has no molecule yet.")
          .at(*block, "runs first")
          .related(*compass, "comes too late")
          .help("the order is $compass, $xuanyuan, $scf")
          .ask_all("move it behind $compass",
                   moved_behind(job, block->record(), compass->record()));
      return;
    }
  }
}

bool has_integrals(const Job& job, const Block& scf) {
  return job.is_driven() ? job.has("xuanyuan") : job.last_before(scf, "xuanyuan") != nullptr;
}

void check_scf_needs_xuanyuan(const Job& job, Report& report) {
  for (const Block* const scf : job.all("scf")) {
    const bool is_first = job.last_before(*scf, "scf") == nullptr;
    if (!job.lists_all_modules() || !is_first || has_integrals(job, *scf)) {
      continue;
    }
    const std::vector<const Block*> later = job.all_after(*scf, "xuanyuan");
    const Block* const compass = job.system_of(*scf).compass;
    Finding& finding = report.add("$scf has no $xuanyuan before it, which computes the integrals.")
                           .at(*scf, "needs $xuanyuan before it")
                           .help("the order is $compass, $xuanyuan, $scf");
    if (!later.empty()) {
      finding.related(*later.front(), "comes too late")
          .ask_all("move $scf behind $xuanyuan",
                   moved_behind(job, scf->record(), later.front()->record()));
    } else if (compass != nullptr && compass->index < scf->index) {
      const TextEdit edit = block_added(job, *compass, "xuanyuan");
      const std::string title = "add $xuanyuan behind $compass";
      job.has("xuanyuan") ? finding.ask(title, edit) : finding.fix(title, edit);
    }
  }
}

void check_bdfopt_before_compass(const Job& job, Report& report) {
  const Block* const compass = job.systems.front().compass;
  const std::vector<const Block*> drivers = job.all("bdfopt");
  if (compass != nullptr && !drivers.empty() && drivers.front()->index < compass->index &&
      job.lists_all_modules()) {
    report.add("$bdfopt stands before $compass, and has no molecule to optimise yet.")
        .at(*drivers.front(), "runs first")
        .related(*compass, "comes too late")
        .ask_all("move it behind $compass",
                 moved_behind(job, drivers.front()->record(), compass->record()));
  }
}

// Tells whether an entry is not there, or the integer 0.
bool is_off(const Block& block, std::string_view entry) {
  return !block.has(entry) || block.is(entry, 0);
}

void check_nmr_nothing_requested(const Job& job, Report& report) {
  for (const Block* const nmr : job.all("nmr")) {
    if (!job.is_complete() || !nmr->is_whole() || !is_off(*nmr, "igiao") || !is_off(*nmr, "icg")) {
      continue;
    }
    const Setting giao = nmr->get("igiao");
    report.add("$nmr computes nothing: neither 'igiao' nor 'icg' is 1.")
        .at(*nmr, "prints no shieldings")
        .related(giao, "turned off")
        .related(nmr->get("icg"), "turned off")
        .ask("compute shieldings with GIAO",
             giao ? value_replaced(giao, "1") : entry_added(job, *nmr, "igiao", "1"));
  }
}

void check_nmr_needs_restricted(const Job& job, Report& report) {
  for (const Block* const nmr : job.all("nmr")) {
    const Scf* const scf = job.scf_of(*nmr);
    if (scf != nullptr && scf->is_open_shell()) {
      const std::string word(job.input.source().text_of(scf->reference_word));
      report.add("$nmr is for closed shells (rhf, rks), and the method is '{}'.", {word})
          .at(*nmr, "for closed shells only")
          .related(scf->reference_word, "an open shell");
    }
  }
}

void check_nmr_needs_nosymm(const Job& job, Report& report) {
  for (const Block* const nmr : job.all("nmr")) {
    const System& system = job.system_of(*nmr);
    if (!job.is_complete() || !job.may_have_symmetry(system)) {
      continue;
    }
    const Setting group = job.group_of(system);
    Finding& finding = report.add("$nmr knows no symmetry, and the calculation may use it.")
                           .at(*nmr, "needs 'nosymm' or the group C(1)")
                           .related(group, "the point group");
    if (group) {
      finding.fix("write 'C(1)'", value_replaced(group, "C(1)"));
    } else if (system.compass != nullptr) {
      finding.fix("add 'nosymm' to $compass", entry_added(job, *system.compass, "nosymm"));
    }
  }
}

void check_functional_no_nmr(const Job& job, Report& report) {
  for (const Block* const nmr : job.all("nmr")) {
    const Scf* const scf = job.scf_of(*nmr);
    if (scf != nullptr && job.knowledge().can(scf->functional, "nmr") == false) {
      const std::string word(job.input.source().text_of(scf->functional_word));
      report.add("Shieldings cannot be computed with the functional '{}'.", {word})
          .at(scf->functional_word, "not for $nmr")
          .related(*nmr, "computes shieldings")
          .help("use an LDA, GGA or hybrid GGA functional");
    }
  }
}

void check_nmr_gauge_without_icg(const Job& job, Report& report) {
  for (const Block* const nmr : job.all("nmr")) {
    const Setting origin = nmr->has("igatom") ? nmr->get("igatom") : nmr->get("cgcoord");
    if (origin && nmr->is_whole() && is_off(*nmr, "icg")) {
      report.add("'{}' chooses a common gauge origin, and none is used.", {origin.name()})
          .at_keyword(origin, "has no effect")
          .related(nmr->get("icg"), "turned off")
          .help("set 'icg' to 1 to compute with a common gauge origin");
    }
  }
}

void check_nmr_gauge_twice(const Job& job, Report& report) {
  for (const Block* const nmr : job.all("nmr")) {
    const Setting atom = nmr->get("igatom");
    const Setting point = nmr->get("cgcoord");
    if (atom && point) {
      const bool is_atom_first = atom.keyword().begin < point.keyword().begin;
      const Setting& first = is_atom_first ? atom : point;
      const Setting& last = is_atom_first ? point : atom;
      report.add("The gauge origin is chosen twice; '{}' counts.", {last.name()})
          .at_keyword(first, "has no effect")
          .related(last.keyword(), "counts")
          .ask("leave it out", removed(job, first));
    }
  }
}

void check_nmr_cgunit_without_cgcoord(const Job& job, Report& report) {
  for (const Block* const nmr : job.all("nmr")) {
    if (nmr->has("cgunit") && !nmr->has("cgcoord") && nmr->is_whole()) {
      const Setting unit = nmr->get("cgunit");
      report.add("'{}' is the unit of 'cgcoord', which is not given.", {unit.name()})
          .at_keyword(unit, "has no effect")
          .ask("leave it out", removed(job, unit));
    }
  }
}

// Tells whether integrals are stored in symmetry-adapted orbitals; when it is not certain, too.
bool may_store_integrals(const Job& job, const System& system) {
  return (system.compass != nullptr &&
          (system.compass->has("saorb") || system.compass->is_elided)) ||
         job.group_of(system).text().starts_with("gen");
}

void offer_saorb(const Job& job, const System& system, Finding& finding, bool is_safe) {
  if (system.compass == nullptr || system.compass->has("skeleton")) {
    return;
  }
  const TextEdit edit = entry_added(job, *system.compass, "saorb");
  if (is_safe) {
    finding.fix("add 'saorb' to $compass", edit);
  } else {
    finding.ask("add 'saorb' to $compass", edit);
  }
}

void check_mp2_unrestricted_direct(const Job& job, Report& report) {
  for (const Block* const mp2 : job.all("mp2")) {
    const Scf* const scf = job.scf_of(*mp2);
    if (scf == nullptr || !scf->is_unrestricted() || !job.is_complete() ||
        may_store_integrals(job, job.system_of(*mp2))) {
      continue;
    }
    const std::string word(job.input.source().text_of(scf->reference_word));
    Finding& finding =
        report
            .add("$mp2 after '{}' needs 'saorb': without it only closed shells are known.", {word})
            .at(*mp2, "for closed shells only")
            .related(scf->reference_word, "an open shell");
    offer_saorb(job, job.system_of(*mp2), finding, false);
  }
}

// Whether the electrons of an easy input are run as an open shell.
bool is_open(const Job& job, const Scf& scf) {
  if (scf.multiplicity) {
    return scf.stated_multiplicity() > 1;
  }
  const auto electrons = scf.electrons();
  return electrons && *electrons > 0 && *electrons % 2 != 0 && !job.may_have_odd_core(*scf.system);
}

void check_mp2_open_shell(const Job& job, Report& report) {
  const std::string method = job.method();
  if ((method != "mp2" && method != "ri-mp2") || job.scfs.empty()) {
    return;
  }
  const Scf& scf = job.scfs.front();
  if (is_open(job, scf) && !may_store_integrals(job, *scf.system)) {
    const TextRange word = job.input.specification_ranges(job.specification().value_or(0)).method;
    report.add("'{}' in a header is for closed shells.", {job.input.source().text_of(word)})
        .at(word, "for closed shells only")
        .related(scf.multiplicity, "an open shell")
        .related(scf.charge, "the charge")
        .help("compute an open shell with modules: 'saorb' in $compass, 'uhf' in $scf, and $mp2");
  }
}

void check_mp2_ro(const Job& job, Report& report) {
  for (const Block* const mp2 : job.all("mp2")) {
    const Scf* const scf = job.scf_of(*mp2);
    if (scf != nullptr && scf->is_restricted_open()) {
      const std::string word(job.input.source().text_of(scf->reference_word));
      report.add("$mp2 cannot start from '{}'.", {word})
          .at(*mp2, "for rhf and uhf only")
          .related(scf->reference_word, "the method")
          .help("use 'uhf', and 'saorb' in $compass");
    }
  }
}

void check_grad_for_dft(const Job& job, Report& report) {
  for (const Block* const grad : job.all("grad")) {
    const Scf* const scf = job.scf_of(*grad);
    if (scf == nullptr || !scf->is_kohn_sham() || !job.all_before(*grad, "mcscf").empty()) {
      continue;
    }
    const std::string word(job.input.source().text_of(scf->reference_word));
    Finding& finding =
        report.add("$grad is the gradient of Hartree-Fock, and the method is '{}'.", {word})
            .at(*grad, "for Hartree-Fock and MCSCF only")
            .related(scf->reference_word, "Kohn-Sham")
            .help("use $resp with 'geom'");
    if (grad->entries.empty()) {
      finding.fix_all("use $resp with 'geom'", {{job.input.keyword_range(grad->record()), "$resp"},
                                                entry_added(job, *grad, "geom")});
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"sequence.compass_missing", check_compass_missing},
    {"sequence.xuanyuan_needs_compass", check_xuanyuan_needs_compass},
    {"sequence.scf_needs_xuanyuan", check_scf_needs_xuanyuan},
    {"sequence.bdfopt_before_compass", check_bdfopt_before_compass},
    {"sequence.nmr_nothing_requested", check_nmr_nothing_requested},
    {"sequence.nmr_needs_restricted", check_nmr_needs_restricted},
    {"sequence.nmr_needs_nosymm", check_nmr_needs_nosymm},
    {"sequence.functional_no_nmr", check_functional_no_nmr},
    {"sequence.nmr_gauge_without_icg", check_nmr_gauge_without_icg},
    {"sequence.nmr_gauge_twice", check_nmr_gauge_twice},
    {"sequence.nmr_cgunit_without_cgcoord", check_nmr_cgunit_without_cgcoord},
    {"sequence.mp2_unrestricted_direct", check_mp2_unrestricted_direct},
    {"sequence.mp2_open_shell", check_mp2_open_shell},
    {"sequence.mp2_ro", check_mp2_ro},
    {"sequence.grad_for_dft", check_grad_for_dft},
});

}  // namespace

std::span<const Rule> sequence_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
