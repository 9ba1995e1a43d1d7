// Excited states and the reference that they start from: spin flips, spin adaptation, simplified
// kernels. A header asks for some of it in its own words; the rest is said in `$tddft`. Blocks that
// couple stored states start from nothing, and have a theme of their own.

#include <algorithm>

#include "advice/excited_states.hpp"
#include "advice/report.hpp"
#include "advice/themes.hpp"

namespace kelp::input::bdf {
namespace {

void check_needs_scf(const Job& job, Report& report) {
  for (const Block* const block : job.all("tddft")) {
    if (job.is_complete() && job.is_advanced() && !job.is_driven() &&
        job.last_before(*block, "scf") == nullptr) {
      const std::vector<const Block*> later = job.all_after(*block, "scf");
      Finding& finding = report.add("$tddft needs the orbitals of an SCF before it.")
                             .at(*block, "no $scf before it")
                             .help("let $scf stand before $tddft");
      if (!later.empty()) {
        finding.related(*later.front(), "runs later");
      }
    }
  }
}

// A change of spin that is asked for, in a block or in the header.
struct SpinFlip {
  Setting setting;
  std::int64_t change;
  const Block* block;  ///< null for the header
  const Scf* scf;
  bool is_tda;
};

std::optional<SpinFlip> header_spin_flip(const Job& job) {
  const Setting setting = job.header("spinflip");
  const auto numbers = setting.integers();
  if (!numbers || !has_excited_method(job) || job.scfs.empty()) {
    return std::nullopt;
  }
  const auto change = std::find_if(numbers->begin(), numbers->end(),
                                   [](std::int64_t number) { return number != 0; });
  // Whatever a block of its own says counts for the states of the header.
  const std::vector<const Block*> blocks = job.all("tddft");
  const bool is_tda =
      has_tda_method(job) || std::any_of(blocks.begin(), blocks.end(), [](const Block* block) {
        return block->has("itda") || is_open_to_additions(*block);
      });
  return change == numbers->end() ? std::nullopt
                                  : std::optional<SpinFlip>(SpinFlip{setting, *change, nullptr,
                                                                     &job.scfs.front(), is_tda});
}

std::vector<SpinFlip> spin_flips(const Job& job) {
  std::vector<SpinFlip> flips;
  if (const auto flip = header_spin_flip(job)) {
    flips.push_back(*flip);
  }
  for (const Block* const block : job.all("tddft")) {
    const std::int64_t change = spin_change_of(*block);
    if (change != 0 && !is_coupling_step(*block) && !block->is_elided) {
      const bool is_tda =
          block->has("itda") ? block->is("itda", 1) : !job.is_advanced() && has_tda_method(job);
      flips.push_back({block->get("isf"), change, block, job.scf_of(*block), is_tda});
    }
  }
  return flips;
}

// `tda` for `tddft` in the header's method.
void offer_tda(const Job& job, const SpinFlip& flip, bool is_safe, Finding& finding) {
  if (flip.block != nullptr) {
    const TextEdit edit = entry_set(job, *flip.block, "itda", "1");
    const std::string title = "set itda to 1";
    is_safe ? finding.fix(title, edit) : finding.ask(title, edit);
    return;
  }
  const TextRange word = job.input.specification_ranges(job.specification().value_or(0)).method;
  std::string method = job.method();
  method.replace(method.find("tddft"), std::string_view("tddft").size(), "tda");
  finding.ask("use " + method, {word, method});
}

void check_spinflip_needs_tda(const Job& job, Report& report) {
  for (const SpinFlip& flip : spin_flips(job)) {
    const bool is_unrestricted = flip.block != nullptr && flip.block->is("imethod", 2) &&
                                 shell_of(job, flip.scf) == Shell::Unknown;
    if (flip.is_tda || (!is_open(shell_of(job, flip.scf)) && !is_unrestricted)) {
      continue;
    }
    Finding& finding =
        report
            .add(
                "A change of spin ('{}' {}) from {} is computed with the Tamm-Dancoff "
                "approximation only.",
                {flip.setting.name(), text_of(flip.change), shell_name(job, flip.scf)})
            .as(flip.block != nullptr ? Severity::Error : Severity::Warning)
            .at(flip.setting, "needs the Tamm-Dancoff approximation");
    if (flip.scf != nullptr) {
      finding.related(flip.scf->reference_word, "an open shell");
    }
    offer_tda(job, flip, true, finding);
  }
}

void check_spinflip_down_from_singlet(const Job& job, Report& report) {
  for (const SpinFlip& flip : spin_flips(job)) {
    const auto numbers = flip.setting.integers();
    const auto flips_down = numbers && std::count(numbers->begin(), numbers->end(), -1) > 0;
    if (flips_down && shell_of(job, flip.scf) == Shell::Closed) {
      report.add("No spin can be flipped down in {}.", {shell_name(job, flip.scf)})
          .at(flip.setting, "needs an open shell")
          .related(flip.scf->reference_word, "a closed shell")
          .help("for triplets from a closed shell, use 1");
    }
  }
}

void check_scan_spinflip(const Job& job, Report& report) {
  for (const SpinFlip& flip : spin_flips(job)) {
    const bool is_unfit =
        flip.scf != nullptr && !flip.scf->functional.empty() &&
        job.knowledge().can(flip.scf->functional, "full_spin_flip").value_or(true) == false;
    // An open shell needs the approximation anyway, which is said already.
    if (is_unfit && !flip.is_tda && !is_open(shell_of(job, flip.scf))) {
      const std::string word(job.input.source().text_of(flip.scf->functional_word));
      Finding& finding =
          report
              .add(
                  "With '{}', states of another spin are often unstable without the Tamm-Dancoff "
                  "approximation.",
                  {word})
              .at(flip.setting)
              .related(flip.scf->functional_word, "the functional");
      offer_tda(job, flip, false, finding);
    }
  }
}

void check_imethod_vs_reference(const Job& job, Report& report) {
  for (const Block* const block : job.all("tddft")) {
    const Shell shell = shell_of(job, *block);
    const bool is_restricted_method = block->is("imethod", 1);
    const bool is_opposite = (is_restricted_method && is_open(shell)) ||
                             (block->is("imethod", 2) && shell == Shell::Closed);
    if (is_opposite && !is_coupling_step(*block)) {
      const Scf* const scf = job.scf_of(*block);
      const Setting imethod = block->get("imethod");
      report
          .add("'imethod' {} starts from {} shell, but the SCF is {}.",
               {is_restricted_method ? "1" : "2", is_restricted_method ? "a closed" : "an open",
                shell_name(job, scf)})
          .at(imethod, is_restricted_method ? "a closed shell" : "an open shell")
          .related(scf->reference_word, "the reference")
          .help("without 'imethod' the program chooses the right one")
          .fix("remove 'imethod'", removed(job, imethod));
    }
  }
}

void check_itest_without_icorrect(const Job& job, Report& report) {
  for (const Block* const block : job.all("tddft")) {
    const bool has_test = block->is("itest", 1);
    if (has_test != block->is("icorrect", 1) && !block->is_elided) {
      const std::string given = has_test ? "itest" : "icorrect";
      const std::string missing = has_test ? "icorrect" : "itest";
      report.add("'{}' 1 needs '{}' 1: spin-adapted excited states need both.", {given, missing})
          .at_keyword(block->get(given), "only one of two")
          .related(block->get(missing), "is not 1")
          .ask("set " + missing + " to 1", entry_set(job, *block, missing, "1"));
    }
  }
}

void check_xtddft_needs_ro(const Job& job, Report& report) {
  for (const Block* const block : job.all("tddft")) {
    const Shell shell = shell_of(job, *block);
    if (block->is("itest", 1) && (shell == Shell::Closed || shell == Shell::Unrestricted)) {
      const Scf* const scf = job.scf_of(*block);
      report
          .add("Spin-adapted excited states ('itest' 1) start from 'rohf' or 'roks', not from {}.",
               {shell_name(job, scf)})
          .at(block->get("itest"))
          .related(scf->reference_word, "the reference")
          .help("use roks, or leave itest and icorrect out");
    }
  }
}

void check_itrans_needs_roks(const Job& job, Report& report) {
  for (const Block* const block : job.all("tddft")) {
    const Shell shell = shell_of(job, *block);
    if (block->is("itrans", 1) && (shell == Shell::Closed || shell == Shell::Unrestricted)) {
      const Scf* const scf = job.scf_of(*block);
      const Setting itrans = block->get("itrans");
      report.add("'itrans' 1 is for 'roks', and the SCF is {}.", {shell_name(job, scf)})
          .at(itrans, "for restricted open shells only")
          .related(scf->reference_word, "the reference")
          .ask("remove 'itrans'", removed(job, itrans));
    }
  }
}

void check_itrans_with_nto(const Job& job, Report& report) {
  for (const Block* const block : job.all("tddft")) {
    const Setting analysis = block->get("ntoanalyze");
    if (block->is("itrans", 1) && has_nonzero(analysis)) {
      report.add("Natural transition orbitals cannot be had together with 'itrans' 1.")
          .at_keyword(analysis, "not with itrans 1")
          .related(block->get("itrans"), "transforms the states")
          .help("do the analysis in a calculation without itrans");
    }
  }
}

void check_grimmestd_isf(const Job& job, Report& report) {
  for (const Block* const block : job.all("tddft")) {
    if (block->has("grimmestd") && spin_change_of(*block) == -1) {
      report.add("The simplified method 'grimmestd' cannot flip spins down.")
          .at(block->get("isf"), "not with grimmestd")
          .related(block->get("grimmestd"), "the simplified method");
    }
  }
}

void check_grimmestd_functional(const Job& job, Report& report) {
  for (const Block* const block : job.all("tddft")) {
    const Scf* const scf = job.scf_of(*block);
    if (!block->has("grimmestd") || scf == nullptr || scf->functional.empty()) {
      continue;
    }
    const bool is_meta =
        job.knowledge().functional_class(scf->functional).find("meta") != std::string_view::npos;
    if (is_meta || job.knowledge().can(scf->functional, "built_in_dispersion").value_or(false)) {
      const std::string word(job.input.source().text_of(scf->functional_word));
      report.add("The simplified method 'grimmestd' has no parameters for '{}'.", {word})
          .at_keyword(block->get("grimmestd"), "not with this functional")
          .related(scf->functional_word, "the functional")
          .help("it knows pure and hybrid functionals, HF, wB97, wB97X, LC-BLYP and CAM-B3LYP");
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"tddft.needs_scf", check_needs_scf},
    {"tddft.spinflip_needs_tda", check_spinflip_needs_tda},
    {"tddft.spinflip_down_from_singlet", check_spinflip_down_from_singlet},
    {"tddft.scan_spinflip", check_scan_spinflip},
    {"tddft.imethod_vs_reference", check_imethod_vs_reference},
    {"tddft.itest_without_icorrect", check_itest_without_icorrect},
    {"tddft.xtddft_needs_ro", check_xtddft_needs_ro},
    {"tddft.itrans_needs_roks", check_itrans_needs_roks},
    {"tddft.itrans_with_nto", check_itrans_with_nto},
    {"tddft.grimmestd_isf", check_grimmestd_isf},
    {"tddft.grimmestd_functional", check_grimmestd_functional},
});

}  // namespace

std::span<const Rule> tddft_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
