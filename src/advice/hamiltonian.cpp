// Basis sets and the Hamiltonian: a set is contracted for one kind of Hamiltonian, and a core
// potential has the effects of relativity in it. The Hamiltonian is that of $xuanyuan, else that of
// the header; where neither says it, the program may choose, and nothing is said.

#include <algorithm>
#include <array>

#include "advice/basis_uses.hpp"
#include "advice/gradients.hpp"
#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "source/elements.hpp"

namespace kelp::input::bdf {
namespace {

constexpr int argon = 18;
constexpr int hafnium = 72;

/// The Hamiltonian of the integrals that a `$xuanyuan` computes, or that the header names.
struct Hamiltonian {
  const System* system = nullptr;
  const Block* block = nullptr;      ///< null for the header
  Setting setting;                   ///< `heff`, or `hamilton` of the header; or none
  std::optional<std::int64_t> heff;  ///< unset when it is not certain

  bool is_relativistic() const { return heff && *heff != 0; }
  bool is_nonrelativistic() const { return heff == 0; }
};

std::optional<std::int64_t> heff_of_header(const Setting& hamilton) {
  constexpr std::int64_t sf_x2c = 21;
  if (!hamilton) {
    return std::nullopt;
  }
  if (hamilton.is("nonrel")) {
    return 0;
  }
  return hamilton.text().starts_with("sf-x2c") ? std::optional<std::int64_t>(sf_x2c) : std::nullopt;
}

// Whether what a block does not say is its default.
bool shows_all(const Job& job, const Block& block) {
  return job.is_complete() && !block.is_elided && !block.has_unknown_words;
}

Hamiltonian hamiltonian_of(const Job& job, const Block& xuanyuan) {
  Hamiltonian it{&job.system_of(xuanyuan), &xuanyuan, xuanyuan.get("heff"), std::nullopt};
  if (it.setting) {
    it.heff = it.setting.integer();
  } else if (!job.is_advanced()) {
    it.setting = job.header("hamilton");
    it.heff = heff_of_header(it.setting);
  } else if (shows_all(job, xuanyuan)) {
    it.heff = 0;
  }
  return it;
}

std::vector<Hamiltonian> hamiltonians_of(const Job& job, const System& system) {
  std::vector<Hamiltonian> all;
  for (const Block* const block : system.blocks) {
    if (block->name == "xuanyuan") {
      all.push_back(hamiltonian_of(job, *block));
    }
  }
  if (const Setting hamilton = job.header("hamilton"); all.empty() && hamilton) {
    all.push_back({&system, nullptr, hamilton, heff_of_header(hamilton)});
  }
  return all;
}

// Shows each Hamiltonian with each set that is used with it.
template <typename Look>
void for_each_use(const Job& job, Look look) {
  for (const System& system : job.systems) {
    const std::vector<Hamiltonian> hamiltonians = hamiltonians_of(job, system);
    if (hamiltonians.empty()) {
      continue;
    }
    const std::vector<BasisUse> uses = basis_uses(job, system);
    for (const Hamiltonian& hamiltonian : hamiltonians) {
      for (const BasisUse& use : uses) {
        look(hamiltonian, use);
      }
    }
  }
}

template <typename Look>
void for_each_xuanyuan(const Job& job, Look look) {
  for (const Block* const block : job.all("xuanyuan")) {
    look(*block, hamiltonian_of(job, *block));
  }
}

// What a Hamiltonian is called in its input: "heff 21".
std::string name_of(const Hamiltonian& it) {
  return std::string(it.setting.name()) + " " + it.setting.text();
}

void offer_entry(const Job& job, const Block& block, const char* name, const char* value,
                 Finding& finding, bool is_safe = false) {
  const Setting setting = block.get(name);
  TextEdit edit = setting ? value_replaced(setting, value) : entry_added(job, block, name, value);
  const std::string title = "set " + std::string(name) + " to " + value;
  is_safe ? finding.fix(title, std::move(edit)) : finding.ask(title, std::move(edit));
}

bool is_contracted_for_relativity(const BasisSet& set) {
  return set.relativity != Relativity::None && set.relativity != Relativity::Any;
}

void check_ecp_with_heff(const Job& job, Report& report) {
  for_each_use(job, [&](const Hamiltonian& hamiltonian, const BasisUse& use) {
    if (hamiltonian.is_relativistic() && use.has_core()) {
      report
          .add("'{}' has a core potential for {}, which does not go with '{}'.",
               {use.written, symbol_of(use.element()), name_of(hamiltonian)})
          .at(use.written, "has relativity in its core potential")
          .related(hamiltonian.setting, "a relativistic Hamiltonian as well")
          .help(
              "take a set for all electrons made for it, such as x2c-TZVPall or cc-pVTZ-DK; or "
              "leave the Hamiltonian out");
    }
  });
}

void check_relativistic_basis_without_heff(const Job& job, Report& report) {
  for_each_use(job, [&](const Hamiltonian& hamiltonian, const BasisUse& use) {
    if (!hamiltonian.is_nonrelativistic() || !is_contracted_for_relativity(*use.set)) {
      return;
    }
    Finding& finding =
        report
            .add("'{}' is contracted for a relativistic Hamiltonian, and there is none.",
                 {use.written})
            .at(use.written, "for relativistic calculations only")
            .related(hamiltonian.setting, "not relativistic")
            .help(
                "switch on one, as a rule sf-X2C (heff 21); or take the set without "
                "relativity");
    if (hamiltonian.block == nullptr ||
        hamiltonian.setting.record().kind == RecordKind::EasyToken) {
      finding.ask("use sf-X2C", value_replaced(hamiltonian.setting, "sf-x2c"));
    } else {
      offer_entry(job, *hamiltonian.block, "heff", "21", finding);
    }
  });
}

bool is_uncontracted(const System& system) {
  return system.compass != nullptr &&
         (system.compass->has("uncontract") || system.compass->has("primitive"));
}

void check_heff_basis_mismatch(const Job& job, Report& report) {
  for_each_use(job, [&](const Hamiltonian& hamiltonian, const BasisUse& use) {
    if (hamiltonian.is_relativistic() && use.element() > argon &&
        use.set->relativity == Relativity::None && use.set->covers(use.element()) &&
        !use.has_core() && !use.set->is_auxiliary && !is_uncontracted(*hamiltonian.system)) {
      report
          .add("'{}' is not contracted for '{}', which matters for {}.",
               {use.written, name_of(hamiltonian), symbol_of(use.element())})
          .at(use.written, "contracted without relativity")
          .related(hamiltonian.setting, "a relativistic Hamiltonian")
          .help(
              "take a set that is made for it, such as x2c-TZVPall or cc-pVTZ-DK; from K on the "
              "inner shells differ too much");
    }
  });
}

void check_finite_nucleus_basis(const Job& job, Report& report) {
  for_each_use(job, [&](const Hamiltonian& hamiltonian, const BasisUse& use) {
    if (hamiltonian.block != nullptr && hamiltonian.is_relativistic() &&
        use.set->has_finite_nucleus && !hamiltonian.block->is("nuclear", 1) &&
        shows_all(job, *hamiltonian.block)) {
      Finding& finding =
          report
              .add("'{}' is contracted for nuclei of finite size, and here they are points.",
                   {use.written})
              .at(use.written, "made with finite nuclei")
              .related(*hamiltonian.block, "no 'nuclear 1'")
              .help("set nuclear to 1");
      offer_entry(job, *hamiltonian.block, "nuclear", "1", finding);
    }
  });
}

void check_dkh2_basis_heavy(const Job& job, Report& report) {
  for_each_use(job, [&](const Hamiltonian& hamiltonian, const BasisUse& use) {
    if (hamiltonian.is_relativistic() && use.set->relativity == Relativity::Dkh2 &&
        use.set->covers(use.element()) && use.element() >= hafnium) {
      report
          .add("'{}' is contracted to second order only, too low for {}.",
               {use.written, symbol_of(use.element())})
          .at(use.written, "a DKH2 set")
          .related(hamiltonian.setting, "the Hamiltonian")
          .help("from Hf on take a set for DKH3 or X2C, such as cc-pVTZ-DK3 or x2c-TZVPall");
    }
  });
}

void check_nuclear_without_heff(const Job& job, Report& report) {
  for_each_xuanyuan(job, [&](const Block& block, const Hamiltonian& hamiltonian) {
    if (block.is("nuclear", 1) && hamiltonian.is_nonrelativistic()) {
      report.add("Nuclei of finite size are meant for relativistic calculations, and this is none.")
          .at(block.get("nuclear"), "finite nuclei")
          .related(hamiltonian.setting, "not relativistic")
          .help("set heff as well, or leave nuclear out");
    }
  });
}

void check_nuclearradii_without_nuclear(const Job& job, Report& report) {
  for_each_xuanyuan(job, [&](const Block& block, const Hamiltonian&) {
    if (block.has("nuclearradii") && !block.is("nuclear", 1) && shows_all(job, block)) {
      Finding& finding = report.add("'nuclearradii' has no effect without 'nuclear 1'.")
                             .at_keyword(block.get("nuclearradii"), "radii of point nuclei")
                             .help("set nuclear to 1");
      offer_entry(job, block, "nuclear", "1", finding);
    }
  });
}

void check_heff5_needs_hsoc(const Job& job, Report& report) {
  for_each_xuanyuan(job, [&](const Block& block, const Hamiltonian&) {
    if (block.is("heff", 5) && !block.has("hsoc") && shows_all(job, block)) {
      report.add("'heff 5' is only the part without spin, and 'hsoc' is missing.")
          .at(block.get("heff"), "the spin-free part")
          .help("add hsoc with its number, or take another heff: 21 as a rule");
    }
  });
}

void check_hsoc_with_ecp(const Job& job, Report& report) {
  constexpr std::int64_t of_potentials = 10;
  for_each_use(job, [&](const Hamiltonian& hamiltonian, const BasisUse& use) {
    if (hamiltonian.block == nullptr || !use.has_core()) {
      return;
    }
    const Setting hsoc = hamiltonian.block->get("hsoc");
    if (hsoc.integer() && *hsoc.integer() != of_potentials) {
      report
          .add("'{}' has a core potential for {}, so that hsoc {} is taken as 10.",
               {use.written, symbol_of(use.element()), text_of(*hsoc.integer())})
          .at(hsoc, "taken as 10")
          .related(range_of(job.input, use.written), "with core potentials")
          .help("write 10")
          .ask("set hsoc to 10", value_replaced(hsoc, "10"));
    }
  });
}

void check_heff_without_derivatives(const Job& job, Report& report) {
  constexpr std::int64_t last_without = 5;
  for (const System& system : job.systems) {
    const std::vector<GradientRequest> gradients = gradients_of(job, system);
    for (const Hamiltonian& it : hamiltonians_of(job, system)) {
      if (gradients.empty() || !it.is_relativistic() || *it.heff > last_without || *it.heff < 1) {
        continue;
      }
      Finding& finding = report.add("There are no derivatives with heff {}.", {text_of(*it.heff)})
                             .at(it.setting, "energies only")
                             .related(gradients.front().word, "needs derivatives")
                             .help("21, 22 and 23 have derivatives");
      const bool is_same = *it.heff == 3 || *it.heff == 4;
      TextEdit edit = value_replaced(it.setting, "21");
      is_same ? finding.fix("set heff to 21, the same Hamiltonian", std::move(edit))
              : finding.ask("set heff to 21", std::move(edit));
    }
  }
}

/// An SCF that computes a property at the nuclei, with the integrals that it works with.
struct NuclearProperty {
  Setting setting;
  Hamiltonian hamiltonian;
};

std::vector<NuclearProperty> nuclear_properties(const Job& job) {
  std::vector<NuclearProperty> all;
  for (const Block* const scf : job.all("scf")) {
    const Block* integrals = job.last_before(*scf, "xuanyuan");
    if (const auto later = job.all_after(*scf, "xuanyuan");
        integrals == nullptr && job.is_driven() && !later.empty()) {
      integrals = later.front();
    }
    for (const char* const name : {"reled", "relefg"}) {
      if (integrals != nullptr && scf->has(name)) {
        all.push_back({scf->get(name), hamiltonian_of(job, *integrals)});
      }
    }
  }
  return all;
}

void check_relprop_needs_heff(const Job& job, Report& report) {
  static constexpr std::array<std::int64_t, 3> with_properties = {21, 22, 23};
  for (const auto& [setting, hamiltonian] : nuclear_properties(job)) {
    if (hamiltonian.heff && std::find(with_properties.begin(), with_properties.end(),
                                      *hamiltonian.heff) == with_properties.end()) {
      Finding& finding = report
                             .add("'{}' needs heff 21, 22 or 23, and it is {}.",
                                  {setting.name(), text_of(*hamiltonian.heff)})
                             .at_keyword(setting, "not with this Hamiltonian")
                             .related(hamiltonian.setting, "the Hamiltonian")
                             .help("set heff to 23 or 21");
      offer_entry(job, *hamiltonian.block, "heff", "23", finding);
      offer_entry(job, *hamiltonian.block, "heff", "21", finding);
    }
  }
}

void check_relprop_needs_nuclear(const Job& job, Report& report) {
  for (const auto& [setting, hamiltonian] : nuclear_properties(job)) {
    if (!hamiltonian.block->is("nuclear", 1) && shows_all(job, *hamiltonian.block)) {
      Finding& finding =
          report
              .add("'{}' needs nuclei of finite size, and here they are points.", {setting.name()})
              .at_keyword(setting, "needs 'nuclear 1' in $xuanyuan")
              .related(*hamiltonian.block, "no 'nuclear 1'")
              .help("set nuclear to 1");
      offer_entry(job, *hamiltonian.block, "nuclear", "1", finding, true);
    }
  }
}

void check_maxmem_format(const Job& job, Report& report) {
  for_each_xuanyuan(job, [&](const Block& block, const Hamiltonian&) {
    const Setting setting = block.get("maxmem");
    const std::string text = setting.text();
    const bool has_unit = text.ends_with("mw") || text.ends_with("gw");
    if (text.empty() || is_elision(text) ||
        (has_unit && core::number::parse_float(text.substr(0, text.size() - 2)))) {
      return;
    }
    report.add("'{}' is no amount of memory.", {setting.words().front()})
        .at(setting, "a number and MW or GW, without a blank")
        .help("write 512MW or 2GW: millions or thousands of millions of words of 8 bytes");
  });
}

constexpr auto rules = std::to_array<Rule>({
    {"basis.ecp_with_heff", check_ecp_with_heff},
    {"basis.relativistic_basis_without_heff", check_relativistic_basis_without_heff},
    {"basis.heff_basis_mismatch", check_heff_basis_mismatch},
    {"basis.finite_nucleus_basis", check_finite_nucleus_basis},
    {"basis.dkh2_basis_heavy", check_dkh2_basis_heavy},
    {"basis.nuclear_without_heff", check_nuclear_without_heff},
    {"basis.nuclearradii_without_nuclear", check_nuclearradii_without_nuclear},
    {"basis.heff5_needs_hsoc", check_heff5_needs_hsoc},
    {"basis.hsoc_with_ecp", check_hsoc_with_ecp},
    {"basis.heff_without_derivatives", check_heff_without_derivatives},
    {"basis.relprop_needs_heff", check_relprop_needs_heff},
    {"basis.relprop_needs_nuclear", check_relprop_needs_nuclear},
    {"basis.maxmem_format", check_maxmem_format},
});

}  // namespace

std::span<const Rule> hamiltonian_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
