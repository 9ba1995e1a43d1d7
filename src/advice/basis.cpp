// Basis sets: each atom needs one that has functions for its element. Which sets fit which
// Hamiltonian is said in `hamiltonian.cpp`. An input that brings basis data of its own, or that
// lies beside a file with the name of a set, is right whatever the library says.

#include <algorithm>
#include <array>
#include <set>

#include "advice/basis_uses.hpp"
#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/names.hpp"
#include "model/molecule_names.hpp"
#include "source/elements.hpp"

namespace kelp::input::bdf {
namespace {

constexpr const char* placeholder = "genbas";

bool names_basis(const Block& compass) {
  return compass.has("basis") || compass.has("basis-block");
}

// The header's basis set, as it is written; empty without one.
TextRange header_basis(const Job& job) {
  const auto specification = job.specification();
  return specification ? job.input.specification_ranges(*specification).basis : TextRange{};
}

bool has_digit(Word label) {
  return std::any_of(label.begin(), label.end(),
                     [](char byte) { return byte >= '0' && byte <= '9'; });
}

// Whether the text shows all that a system gets: a line of dots hides some of it.
bool shows_all(const Job& job, const System& system) {
  return job.is_complete() && system.compass != nullptr && !system.compass->is_elided;
}

void check_basis_missing(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    // A $compass alone is an excerpt.
    if (job.is_advanced() && shows_all(job, system) && !names_basis(*system.compass) &&
        system.blocks.size() > 1) {
      report.add("$compass names no basis set.")
          .at(*system.compass, "no basis set")
          .help("add an entry 'basis' with the set's name on the next line");
    }
  }
}

void check_genbas_without_basis(const Job& job, Report& report) {
  const TextRange basis = header_basis(job);
  const bool has_real = std::any_of(job.systems.begin(), job.systems.end(), [](const auto& system) {
    return system.compass != nullptr && (names_basis(*system.compass) || system.compass->is_elided);
  });
  if (job.is_complete() && !has_real && job.basis() == placeholder) {
    report.add("'genbas' stands for basis sets that $compass gives, and there are none.")
        .at(basis, "which basis sets?")
        .help("add $compass with 'basis' or 'basis-block', or name a basis set here");
  }
}

void check_basis_header_and_compass(const Job& job, Report& report) {
  const TextRange basis = header_basis(job);
  for (const System& system : job.systems) {
    if (!basis.empty() && job.basis() != placeholder && system.compass != nullptr &&
        names_basis(*system.compass)) {
      report.add("The header and $compass both name a basis set.")
          .at(basis, "one basis set")
          .related(system.basis.setting.keyword(), "another one")
          .help("write 'genbas' in the header when $compass gives the basis sets")
          .ask("write 'genbas' in the header", {basis, placeholder});
      return;
    }
  }
}

void check_basis_set_twice(const Job& job, Report& report) {
  for (const Block* const compass : job.all(compass_module)) {
    if (compass->has("basis") && compass->has("basis-block")) {
      report.add("$compass has both 'basis' and 'basis-block'.")
          .at_keyword(compass->get("basis"), "one way to name basis sets")
          .related(compass->get("basis-block").keyword(), "another way")
          .help("leave one of them; a line without '=' in basis-block holds for all other atoms")
          .ask("delete 'basis'", removed(job, compass->get("basis")));
    }
  }
}

// Atoms of each label once, of those that are atoms.
std::vector<const Centre*> labelled_atoms(const System& system) {
  std::set<std::string> seen;
  std::vector<const Centre*> atoms;
  for (const Centre& centre : system.geometry.centres) {
    if (centre.element > 0 && seen.insert(core::text::to_lower(centre.label)).second) {
      atoms.push_back(&centre);
    }
  }
  return atoms;
}

bool is_assigned(const BasisChoice& basis, Word label) {
  return basis.by_label.find(core::text::to_lower(label)) != basis.by_label.end();
}

bool is_block(const BasisChoice& basis) {
  return basis.setting && basis.setting.record().kind == RecordKind::Entry &&
         core::text::to_lower(basis.setting.name()).starts_with("basis-");
}

void check_label_basis_missing(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    const BasisChoice& basis = system.basis;
    if (!basis.setting || basis.has_inline || !shows_all(job, system)) {
      continue;
    }
    for (const Centre* const atom : labelled_atoms(system)) {
      if (!has_digit(atom->label) || is_assigned(basis, atom->label)) {
        continue;
      }
      const std::string label(atom->label);
      Finding& finding = report.add("No basis set is given for the atoms '{}'.", {label})
                             .at(atom->label, "a label of its own")
                             .related(basis.setting.keyword(), "knows elements only");
      if (is_block(basis)) {
        finding.help("add a line '" + label +
                     "=SET' to basis-block: the set of the element does "
                     "not hold for a label with a number");
      } else {
        finding.as(Severity::Warning)
            .help("write the element alone, or give the label a set in basis-block");
      }
    }
  }
}

void check_basis_missing_for_element(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    const BasisChoice& basis = system.basis;
    if (!is_block(basis) || basis.has_inline || !basis.name.empty() || !shows_all(job, system)) {
      continue;
    }
    for (const Centre* const atom : labelled_atoms(system)) {
      const std::string label(atom->label);
      if (!has_digit(atom->label) && !is_assigned(basis, atom->label)) {
        report.add("No basis set is given for {}.", {label})
            .at(basis.setting.keyword(), "nothing for " + label)
            .related(range_of(job.input, atom->label), "the first of these atoms")
            .help("add a line '" + label + "=SET'");
      }
    }
  }
}

void check_basis_for_absent_element(const Job& job, Report& report) {
  if (job.systems.size() != 1 || job.has("autofrag")) {
    return;
  }
  const System& system = job.systems.front();
  const std::vector<const Centre*> atoms = labelled_atoms(system);
  if (!system.geometry.size() || atoms.empty()) {
    return;
  }
  for (const BasisChoice::Assignment& it : system.basis.assignments) {
    const bool is_there = std::any_of(atoms.begin(), atoms.end(), [&](const Centre* atom) {
      return core::text::equals_ignoring_case(atom->label, it.label) ||
             core::text::equals_ignoring_case(symbol_of(atom->element), it.label);
    });
    if (!is_there && element_of_label(it.label) > 0) {
      report.add("The molecule has no atom '{}'.", {it.label})
          .at(it.label, "gives no atom a basis set")
          .help("perhaps a slip; otherwise the line can go");
    }
  }
}

void check_basis_assigned_twice(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    const std::vector<BasisChoice::Assignment>& all = system.basis.assignments;
    for (std::size_t i = 0; i < all.size(); ++i) {
      const auto first = system.basis.by_label.find(core::text::to_lower(all[i].label));
      if (first != system.basis.by_label.end() && first->second < i) {
        report.add("'{}' is given a basis set twice.", {all[i].label})
            .at(all[i].label, "given another one before")
            .related(range_of(job.input, all[first->second].label), "the first one")
            .help("keep the one that is meant; which of them counts is not said");
      }
    }
  }
}

void check_basis_for_unknown_element(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    for (const BasisChoice::Assignment& it : system.basis.assignments) {
      if (!it.label.empty() && element_of_label(it.label) < 0 && !is_elision(it.label)) {
        report.add("'{}' is no element.", {it.label})
            .at(it.label, "not a chemical symbol")
            .help("write a symbol, 'Fe=SET', or one with the number of its atoms, 'Fe1=SET'");
      }
    }
  }
}

// Sets of the library that have functions for an element, those that are mostly used.
std::vector<std::string> sets_that_cover(const Job& job, int element) {
  static constexpr std::array<const char*, 5> usual = {"cc-pVDZ", "Def2-TZVP", "x2c-TZVPall",
                                                       "CRENBL", "Dirac-Dyall.3zp"};
  std::vector<std::string> names;
  for (const char* const name : usual) {
    const BasisSet* const set = job.knowledge().basis_set(name);
    if (set != nullptr && set->covers(element)) {
      names.push_back("'" + std::string(name) + "'");
    }
  }
  return names;
}

void check_basis_element_not_covered(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    for (const BasisUse& use : basis_uses(job, system)) {
      if (use.set->covers(use.element())) {
        continue;
      }
      const std::string symbol(symbol_of(use.element()));
      Finding& finding =
          report.add("The basis set '{}' has no functions for {}.", {use.written, symbol})
              .at(use.written, "not for " + symbol)
              .related(range_of(job.input, use.atom->label), "the first " + symbol);
      if (const auto names = sets_that_cover(job, use.element()); !names.empty()) {
        finding.help("among the sets that have them: " + core::text::join(names, ", "));
      }
    }
  }
}

// Names of sets that no library has, each once.
std::vector<Word> unlisted_names(const Job& job, const System& system) {
  std::vector<Word> names;
  const auto add = [&](Word name, const std::string& basis) {
    if (!name.empty() && basis != placeholder && !job.schema().is_known_basis(name) &&
        job.knowledge().basis_set(basis) == nullptr) {
      names.push_back(name);
    }
  };
  add(system.basis.name, system.basis.basis);
  for (const BasisChoice::Assignment& it : system.basis.assignments) {
    add(it.name, it.basis);
  }
  return names;
}

// What somebody calls a file that holds a basis set, other than BDF looks for it.
std::vector<std::string> other_file_names(Word name) {
  const std::string upper = core::text::to_upper(name);
  std::vector<std::string> names = {std::string(name), core::text::to_lower(name)};
  for (const char* const ending : {".bas", ".basis", ".txt", ".dat"}) {
    for (const std::string& base : {upper, std::string(name), core::text::to_lower(name)}) {
      names.push_back(base + ending);
    }
  }
  return names;
}

bool has_file(const Job& job, const std::vector<std::string>& names) {
  return std::any_of(names.begin(), names.end(), job.folder->has_file);
}

// Where a name is told of as a slip, this is left out.
void check_basis_unknown(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    if (job.folder == nullptr || system.basis.has_inline) {
      continue;
    }
    for (const Word name : unlisted_names(job, system)) {
      const std::string wanted = core::text::to_upper(name);
      if (!job.folder->has_file(wanted) && !has_file(job, other_file_names(name))) {
        report
            .add("The library has no basis set '{}' that is known, and there is no file '{}'.",
                 {name, wanted})
            .at(name, "neither known nor a file")
            .help("a basis set of your own must be a file '" + wanted + "' beside the input")
            .suggest(similar_names(name, job.knowledge().basis_set_names()));
      }
    }
  }
}

void check_basis_file_name_case(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    if (job.folder == nullptr || system.basis.has_inline) {
      continue;
    }
    for (const Word name : unlisted_names(job, system)) {
      const std::string wanted = core::text::to_upper(name);
      if (job.folder->has_file(wanted)) {
        continue;
      }
      const std::vector<std::string> others = other_file_names(name);
      const auto found = std::find_if(others.begin(), others.end(), job.folder->has_file);
      if (found != others.end()) {
        report.add("The basis set file '{}' is looked for as '{}'.", {*found, wanted})
            .at(name, "a file of your own")
            .help(
                "rename the file: capital letters only, without ending; here the name may be "
                "written in any case");
      }
    }
  }
}

void check_ano_rcc_in_basis_block(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    if (!is_block(system.basis) || system.basis.has_inline) {
      continue;
    }
    for (const BasisUse& use : basis_uses(job, system)) {
      if (core::text::to_lower(use.set->name).starts_with("ano-rcc-")) {
        report.add("In basis-block '{}' stands for the whole ANO-RCC.", {use.written})
            .at(use.written, "the contraction is not taken")
            .related(system.basis.setting.keyword(), "in a block of basis sets")
            .help("name it with 'basis', or give its data in the block or in a file");
      }
    }
  }
}

void check_auxiliary_basis_as_orbital(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    for (const BasisUse& use : basis_uses(job, system)) {
      if (use.set->is_auxiliary && core::text::to_lower(use.set->name).ends_with("-rifit")) {
        report.add("'{}' is a set for fitting, not for orbitals.", {use.written})
            .at(use.written, "for ri-j, ri-k and ri-c")
            .help("name the orbital set that it belongs to: the same without '-RIFIT'");
      }
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"basis.basis_missing", check_basis_missing},
    {"basis.genbas_without_basis", check_genbas_without_basis},
    {"basis.basis_header_and_compass", check_basis_header_and_compass},
    {"basis.basis_set_twice", check_basis_set_twice},
    {"basis.label_basis_missing", check_label_basis_missing},
    {"basis.basis_missing_for_element", check_basis_missing_for_element},
    {"basis.basis_for_absent_element", check_basis_for_absent_element},
    {"basis.basis_assigned_twice", check_basis_assigned_twice},
    {"basis.basis_for_unknown_element", check_basis_for_unknown_element},
    {"basis.basis_element_not_covered", check_basis_element_not_covered},
    {"basis.basis_unknown", check_basis_unknown},
    {"basis.basis_file_name_case", check_basis_file_name_case},
    {"basis.ano_rcc_in_basis_block", check_ano_rcc_in_basis_block},
    {"basis.auxiliary_basis_as_orbital", check_auxiliary_basis_as_orbital},
});

}  // namespace

std::span<const Rule> basis_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
