// Options of $scf that do not go together. That smeartemp excludes vshift and smh, and that iviop
// needs blkiop, is said by the vocabulary.

#include <algorithm>
#include <array>

#include "advice/report.hpp"
#include "advice/themes.hpp"

namespace kelp::input::bdf {
namespace {

Word reference_word(const Job& job, const Scf& scf) {
  return job.input.source().text_of(scf.reference_word);
}

void check_nodirectgrid_direct(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    const Block* const compass = scf.system->compass;
    if (scf.block != nullptr && scf.block->has("nodirectgrid") && job.is_advanced() &&
        job.is_complete() && compass != nullptr && !compass->has("saorb") && !compass->is_elided) {
      report.add("A direct SCF needs a direct grid, and 'nodirectgrid' switches it off.")
          .at_keyword(scf.block->get("nodirectgrid"), "for stored integrals only")
          .related(*compass, "no 'saorb': the integrals are not stored")
          .help("leave it out, or store the integrals with saorb");
    }
  }
}

void check_optscreen_with_mpec(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    const Setting optscreen = scf.block == nullptr ? Setting() : scf.block->get("optscreen");
    if (!optscreen || optscreen.integer() == 0) {
      continue;
    }
    const Block* const compass = scf.system->compass;
    Setting fast = scf.block->has("mpec") ? scf.block->get("mpec") : scf.block->get("mpec+cosx");
    if (!fast && compass != nullptr) {
      fast = compass->get("mpec+cosx");
    }
    fast = fast ? fast : job.header("mpec+cosx");
    if (fast && !fast.is("false")) {
      report.add("'optscreen' works only without '{}'.", {fast.name()})
          .at_keyword(optscreen, "screens the integrals that are not computed")
          .related(fast.keyword(), "replaces them")
          .help("leave one of them out");
    }
  }
}

void check_smh_with_ro(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    if (scf.block != nullptr && scf.block->has("smh") && scf.is_restricted_open()) {
      report.add("'smh' does not work with '{}'.", {reference_word(job, scf)})
          .at_keyword(scf.block->get("smh"), "not for restricted open shells")
          .related(scf.reference_word, "the method")
          .help("leave it out");
    }
  }
}

void check_smeartemp_conflict(const Job& job, Report& report) {
  for (const Block* const scf : job.all("scf")) {
    const Setting smeartemp = scf->get("smeartemp");
    if (smeartemp.number() && *smeartemp.number() > 0 && job.has("autofrag")) {
      report.add("'smeartemp' does not work with $autofrag.")
          .at_keyword(smeartemp, "not for fragments")
          .related(*job.all("autofrag").front(), "fragments")
          .help("leave it out");
    }
  }
}

// The integrals that an SCF works with have a relativistic Hamiltonian.
Setting relativity_of(const Job& job, const Block& scf) {
  const Block* const xuanyuan = job.last_before(scf, "xuanyuan");
  const Setting heff = xuanyuan == nullptr ? Setting() : xuanyuan->get("heff");
  return heff.integer() && *heff.integer() != 0 ? heff : Setting();
}

void check_second_order_unsupported(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    if (scf.block == nullptr) {
      continue;
    }
    for (const char* const name : {"enablesecondorderscf", "enableapproxsecondorderscf"}) {
      const Setting setting = scf.block->get(name);
      const Setting heff = relativity_of(job, *scf.block);
      if (!setting || !(scf.is_restricted_open() || heff || job.has("autofrag"))) {
        continue;
      }
      Finding& finding = report.add("Second-order SCF does not work here.")
                             .at_keyword(setting, "second order")
                             .help(
                                 "leave it out: it is there for closed shells and for uhf and "
                                 "uks, without relativity and fragments");
      if (scf.is_restricted_open()) {
        finding.related(scf.reference_word, "a restricted open shell");
      }
      finding.related(heff, "a relativistic Hamiltonian");
      if (job.has("autofrag")) {
        finding.related(*job.all("autofrag").front(), "fragments");
      }
    }
  }
}

void check_iviop_needs_blkiop7(const Job& job, Report& report) {
  for (const Block* const scf : job.all("scf")) {
    const Setting blkiop = scf->get("blkiop");
    if (scf->has("iviop") && blkiop.integer() && *blkiop.integer() != 7) {
      report
          .add("'iviop' is an option of 'blkiop 7', and blkiop is {}.",
               {text_of(*blkiop.integer())})
          .at(blkiop, "not 7")
          .related(scf->get("iviop"), "needs 7")
          .help("set blkiop to 7")
          .fix("set blkiop to 7", value_replaced(blkiop, "7"));
    }
  }
}

void check_restrainspin_singlet(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    if (scf.block == nullptr || !scf.block->has("restrainspin") || !scf.reference ||
        scf.is_unrestricted()) {
      continue;
    }
    const auto electrons = scf.electrons();
    const bool is_even = electrons && *electrons % 2 == 0 && !job.may_have_odd_core(*scf.system);
    if (scf.multiplicity ? scf.stated_multiplicity() != 1 : !is_even || scf.block->is_elided) {
      continue;
    }
    const std::string open = scf.is_kohn_sham() ? "uks" : "uhf";
    report.add("'restrainspin' has no spins to restrain in '{}'.", {reference_word(job, scf)})
        .at_keyword(scf.block->get("restrainspin"), "needs broken symmetry")
        .related(scf.reference_word, "the method")
        .help("a singlet with spins on its atoms needs " + open)
        .ask("use " + open, {scf.reference_word, open});
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"functional.nodirectgrid_direct", check_nodirectgrid_direct},
    {"functional.optscreen_with_mpec", check_optscreen_with_mpec},
    {"functional.smh_with_ro", check_smh_with_ro},
    {"functional.smeartemp_conflict", check_smeartemp_conflict},
    {"functional.second_order_unsupported", check_second_order_unsupported},
    {"functional.iviop_needs_blkiop7", check_iviop_needs_blkiop7},
    {"functional.restrainspin_singlet", check_restrainspin_singlet},
});

}  // namespace

std::span<const Rule> scf_option_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
