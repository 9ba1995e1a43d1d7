// Electrons and the reference: how many there are, and whether charge, multiplicity, occupations
// and the kind of SCF fit them. Each `$scf` stands for itself: several of one input often compute
// ions of one geometry. Two rules are the vocabulary's own and not repeated here: `alpha` needs
// `beta`, and rhf, uhf and rohf exclude each other as rks, uks and roks do.

#include <algorithm>
#include <array>
#include <numeric>

#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::array<std::string_view, 6> reference_names = {"rhf", "uhf", "rohf",
                                                             "rks", "uks", "roks"};

bool is_even(std::int64_t number) {
  return number % 2 == 0;
}

// Electrons whose parity means something: a core with an open f shell may hold an odd number.
std::optional<std::int64_t> electrons_to_pair(const Job& job, const Scf& scf) {
  const auto electrons = scf.electrons();
  const bool is_sure = electrons && *electrons > 0 && !job.may_have_odd_core(*scf.system);
  return is_sure ? electrons : std::nullopt;
}

std::int64_t sum_of(const std::vector<std::int64_t>& numbers) {
  // Numbers that no calculation has would overflow.
  static constexpr std::int64_t most = 1'000'000;
  return std::accumulate(numbers.begin(), numbers.end(), std::int64_t{0},
                         [](std::int64_t sum, std::int64_t number) {
                           return std::clamp(sum + std::clamp(number, -most, most), -most, most);
                         });
}

// The word that is `from` as it stands, in the case in which it stands.
std::string in_case_of(std::string_view written, std::string text) {
  const bool is_upper = std::none_of(written.begin(), written.end(),
                                     [](char byte) { return byte >= 'a' && byte <= 'z'; });
  return is_upper ? core::text::to_upper(text) : text;
}

std::vector<std::string> open_shell_names(const Scf& scf) {
  return scf.is_kohn_sham() ? std::vector<std::string>{"uks", "roks"}
                            : std::vector<std::string>{"uhf", "rohf"};
}

void offer_open_shell(const Job& job, const Scf& scf, Finding& finding) {
  const std::string_view written = job.input.source().text_of(scf.reference_word);
  for (const std::string& name : open_shell_names(scf)) {
    finding.ask("use " + name, {scf.reference_word, in_case_of(written, name)});
  }
}

void check_no_electrons(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    const auto electrons = scf.electrons();
    if (scf.charge && electrons && *electrons <= 0 && scf.system->geometry.nuclear_charge() > 0) {
      const std::string nuclear = text_of(*scf.system->geometry.nuclear_charge());
      report
          .add("A charge of {} leaves no electron: the nuclei have a charge of {}.",
               {text_of(*scf.charge.integer()), nuclear})
          .at(scf.charge, "leaves no electron")
          .help("the charge must be less than " + nuclear);
    }
  }
}

void check_multiplicity_not_positive(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    const auto stated = scf.stated_multiplicity();
    // The vocabulary itself says it of the header.
    const bool is_entry = scf.multiplicity.record().kind == RecordKind::Entry;
    if (job.is_complete() && is_entry && stated && *stated < 1) {
      report.add("The multiplicity {} is impossible: it is 2S+1, at least 1.", {text_of(*stated)})
          .at(scf.multiplicity, "less than 1")
          .help("1 is a singlet, 2 a doublet, 3 a triplet");
    }
  }
}

void check_multiplicity_too_high(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    const auto electrons = scf.electrons();
    const auto stated = scf.stated_multiplicity();
    if (electrons && stated && *electrons > 0 && *stated > *electrons + 1) {
      report
          .add("{} electrons cannot have the multiplicity {}.",
               {text_of(*electrons), text_of(*stated)})
          .at(scf.multiplicity, "more unpaired electrons than there are")
          .related(scf.charge, "the charge")
          .help("it is at most " + text_of(*electrons + 1) + ", when no electron is paired");
    }
  }
}

void check_spin_parity(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    const auto electrons = electrons_to_pair(job, scf);
    const auto stated = scf.stated_multiplicity();
    if (!electrons || !stated || *stated < 1 || *stated > *electrons + 1 ||
        is_even(*electrons) == is_even(*stated - 1)) {
      continue;
    }
    Finding& finding =
        report
            .add("{} electrons cannot have the multiplicity {}.",
                 {text_of(*electrons), text_of(*stated)})
            .at(scf.multiplicity, is_even(*electrons) ? "must be odd" : "must be even")
            .related(scf.charge, "the charge")
            .help("with this charge the multiplicity is " +
                  std::string(is_even(*electrons) ? "1, 3, 5 ..." : "2, 4, 6 ..."));
    for (const std::int64_t other : {*stated - 1, *stated + 1}) {
      if (other >= 1 && other <= *electrons + 1) {
        finding.ask("set the multiplicity to " + text_of(other),
                    value_replaced(scf.multiplicity, text_of(other)));
      }
    }
  }
}

void check_restricted_odd_electrons(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    const auto electrons = electrons_to_pair(job, scf);
    const bool may_state = scf.block != nullptr && scf.block->is_elided;
    if (!scf.is_restricted() || scf.multiplicity || may_state || !electrons ||
        is_even(*electrons)) {
      continue;
    }
    // Atoms among point charges are often an excerpt of what is computed.
    const Block* const compass = scf.system->compass;
    const bool is_embedded = compass != nullptr && compass->has("extcharge");
    const std::string word(job.input.source().text_of(scf.reference_word));
    Finding& finding = report
                           .add("'{}' needs an even number of electrons, and there are {}.",
                                {word, text_of(*electrons)})
                           .as(is_embedded ? Severity::Warning : Severity::Error)
                           .at(scf.reference_word, "one electron is left over")
                           .related(scf.charge, "the charge")
                           .help("use an open-shell method, or correct the charge");
    offer_open_shell(job, scf, finding);
  }
}

void check_restricted_with_open_shell(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    const auto stated = scf.stated_multiplicity();
    if (!scf.is_restricted() || !stated || *stated <= 1) {
      continue;
    }
    const std::string word(job.input.source().text_of(scf.reference_word));
    Finding& finding =
        report
            .add("'{}' is for closed shells, but the multiplicity is {}.", {word, text_of(*stated)})
            .at(scf.reference_word, "for closed shells only")
            .related(scf.multiplicity, "an open shell");
    offer_open_shell(job, scf, finding);
  }
}

void check_ro_with_singlet(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    if (scf.is_restricted_open() && scf.stated_multiplicity() == 1) {
      const std::string closed = scf.is(Reference::Roks) ? "rks" : "rhf";
      const std::string word(job.input.source().text_of(scf.reference_word));
      report.add("Of a singlet, '{}' is the same as '{}'.", {word, closed})
          .at(scf.reference_word)
          .related(scf.multiplicity, "a singlet")
          .ask("use " + closed, {scf.reference_word, in_case_of(word, closed)});
    }
  }
}

// Tells whether the vocabulary itself says that two entries exclude each other.
bool are_known_to_conflict(const Job& job, std::string_view left, std::string_view right) {
  const auto excludes = [&](std::string_view entry, std::string_view other) {
    const auto info = job.schema().entry_info("scf", entry);
    return info && std::find(info->conflicts.begin(), info->conflicts.end(), other) !=
                       info->conflicts.end();
  };
  return excludes(left, right) || excludes(right, left);
}

void check_methods_conflict(const Job& job, Report& report) {
  for (const Block* const block : job.all("scf")) {
    Setting first;
    for (const std::string_view name : reference_names) {
      const Setting setting = block->get(name);
      if (!setting) {
        continue;
      }
      if (first && !are_known_to_conflict(job, first.name(), name)) {
        report.add("'{}' and '{}' exclude each other.", {first.name(), setting.name()})
            .at_keyword(setting, "a second method")
            .related(first.keyword(), "the first one")
            .help("leave one of them: Hartree-Fock (rhf, uhf, rohf) or Kohn-Sham (rks, uks, roks)");
      }
      first = first ? first : setting;
    }
  }
}

void check_method_missing(const Job& job, Report& report) {
  for (const Block* const block : job.all("scf")) {
    if (!names_reference(*block) && job.is_complete() && job.is_advanced() && !block->is_elided) {
      report.add("$scf names no method.")
          .at(*block, "no method")
          .help("add one of rhf, uhf, rohf (Hartree-Fock), rks, uks, roks (Kohn-Sham)");
    }
  }
}

void check_ks_without_functional(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    if (scf.block != nullptr && scf.is_kohn_sham() && scf.functional.empty() &&
        !scf.block->has("dft") && job.is_complete() && job.is_advanced() && !scf.block->is_elided) {
      const std::string word(job.input.source().text_of(scf.reference_word));
      report.add("'{}' needs a functional.", {word})
          .at(scf.reference_word, "of which functional?")
          .help("add an entry 'dft' with the functional's name on the next line");
    }
  }
}

void check_occupy_with_unrestricted(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    if (scf.block != nullptr && scf.is_unrestricted() && scf.block->has("occupy")) {
      const std::string word(job.input.source().text_of(scf.reference_word));
      report.add("'occupy' is for closed shells, and the method is '{}'.", {word})
          .at_keyword(scf.block->get("occupy"), "not read with this method")
          .related(scf.reference_word, "the method")
          .help("give the occupations with 'alpha' and 'beta'");
    }
  }
}

void check_alpha_beta_with_restricted(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    if (scf.block == nullptr || !scf.is_restricted() || scf.block->has("occupy")) {
      continue;
    }
    const Setting list = scf.block->has("alpha") ? scf.block->get("alpha") : scf.block->get("beta");
    if (list) {
      const std::string word(job.input.source().text_of(scf.reference_word));
      report.add("'{}' is for open shells, and the method is '{}'.", {list.name(), word})
          .at_keyword(list, "not read with this method")
          .related(scf.reference_word, "the method")
          .help("give the occupations with 'occupy'");
    }
  }
}

void check_occupation_lists_differ(const Job& job, Report& report) {
  for (const Block* const block : job.all("scf")) {
    const auto alpha = block->get("alpha").integers();
    const auto beta = block->get("beta").integers();
    if (alpha && beta && !alpha->empty() && !beta->empty() && alpha->size() != beta->size() &&
        !block->is_elided) {
      report
          .add("'alpha' has {} numbers and 'beta' has {}.",
               {std::to_string(alpha->size()), std::to_string(beta->size())})
          .at(block->get("beta"), std::to_string(beta->size()) + " numbers")
          .related(block->get("alpha"), std::to_string(alpha->size()) + " numbers")
          .help("both need one number for each irreducible representation");
    }
  }
}

struct Occupation {
  Setting setting;
  std::int64_t electrons;
};

// What the occupations of a block add up to; unset when there are none, or not all are read.
std::optional<Occupation> occupation_of(const Scf& scf) {
  const Setting occupy = scf.block->get("occupy");
  const Setting alpha = scf.block->get("alpha");
  const Setting beta = scf.block->get("beta");
  if (scf.is_restricted() && occupy && occupy.integers()) {
    return Occupation{occupy, 2 * sum_of(*occupy.integers())};
  }
  if (scf.is_open_shell() && alpha && beta && alpha.integers() && beta.integers()) {
    return Occupation{alpha, sum_of(*alpha.integers()) + sum_of(*beta.integers())};
  }
  return std::nullopt;
}

void check_occupation_sum(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    if (scf.block == nullptr || scf.block->is_elided) {
      continue;
    }
    const auto occupation = occupation_of(scf);
    const auto electrons = scf.electrons();
    // A core potential takes electrons off, how many depends on the set.
    if (occupation && electrons && occupation->electrons != *electrons &&
        job.is_all_electron(*scf.system)) {
      report
          .add("The occupations hold {} electrons, and there are {}.",
               {text_of(occupation->electrons), text_of(*electrons)})
          .at(occupation->setting, text_of(occupation->electrons) + " electrons")
          .related(scf.block->get("beta"), "added to them")
          .related(scf.charge, "the charge")
          .help("correct the occupations or the charge");
    }
  }
}

void check_occupation_vs_multiplicity(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    const auto stated = scf.stated_multiplicity();
    if (scf.block == nullptr || scf.block->is_elided || !stated || *stated < 1 ||
        scf.block->is("iaufbau", 2) || scf.block->has("ifpair")) {
      continue;
    }
    const Setting alpha = scf.block->get("alpha");
    const Setting beta = scf.block->get("beta");
    if (!alpha || !beta || !alpha.integers() || !beta.integers()) {
      continue;
    }
    const std::int64_t unpaired = sum_of(*alpha.integers()) - sum_of(*beta.integers());
    if (unpaired != *stated - 1) {
      report
          .add("The occupations have {} unpaired electrons, the multiplicity {} has {}.",
               {text_of(unpaired), text_of(*stated), text_of(*stated - 1)})
          .at(scf.multiplicity, "needs " + text_of(*stated - 1) + " unpaired electrons")
          .related(alpha, "the occupations")
          .related(beta, "the occupations")
          .help("correct one of them");
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"electrons.no_electrons", check_no_electrons},
    {"electrons.multiplicity_not_positive", check_multiplicity_not_positive},
    {"electrons.multiplicity_too_high", check_multiplicity_too_high},
    {"electrons.spin_parity", check_spin_parity},
    {"electrons.restricted_odd_electrons", check_restricted_odd_electrons},
    {"electrons.restricted_with_open_shell", check_restricted_with_open_shell},
    {"electrons.ro_with_singlet", check_ro_with_singlet},
    {"electrons.methods_conflict", check_methods_conflict},
    {"electrons.method_missing", check_method_missing},
    {"electrons.ks_without_functional", check_ks_without_functional},
    {"electrons.occupy_with_unrestricted", check_occupy_with_unrestricted},
    {"electrons.alpha_beta_with_restricted", check_alpha_beta_with_restricted},
    {"electrons.occupation_lists_differ", check_occupation_lists_differ},
    {"electrons.occupation_sum", check_occupation_sum},
    {"electrons.occupation_vs_multiplicity", check_occupation_vs_multiplicity},
});

}  // namespace

std::span<const Rule> electrons_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
