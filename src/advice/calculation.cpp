// A calculation as plain records, made from the view that advice is drawn from. That view answers
// with what is stated; here each answer is left out where a line that is missing, or a word that
// nobody knows, could say otherwise.

#include "kelp/input/bdf/calculation.hpp"

#include <algorithm>
#include <set>
#include <utility>

#include "advice/excited_states.hpp"
#include "advice/job.hpp"
#include "advice/tasks.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "model/molecule_names.hpp"
#include "path/resolver.hpp"
#include "source/elements.hpp"

namespace kelp::input::bdf {
namespace {

using Number = Calculation::Number;
using Name = Calculation::Name;

// Tells whether every word of the header is known, a value of one that is, or in a comment.
bool knows_all_header_words(const Job& job) {
  const std::vector<EasyToken>& tokens = job.data().easy_tokens;
  std::vector<bool> is_known = tokens_in_comments(tokens);
  std::set<std::string> looked_at;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const bool is_keyword = !is_known[i] && tokens[i].known && tokens[i].category != "method_spec";
    is_known[i] = is_known[i] || tokens[i].category != "unknown";
    if (is_keyword && looked_at.insert(job.schema().canonical_easy_key(tokens[i].key)).second) {
      for (const EasyKeyword& it : find_easy_keywords(job.data(), job.schema(), tokens[i].key)) {
        std::fill(is_known.begin() + static_cast<std::ptrdiff_t>(it.first),
                  is_known.begin() + static_cast<std::ptrdiff_t>(it.last), true);
      }
    }
  }
  return std::find(is_known.begin(), is_known.end(), false) == is_known.end();
}

bool has_elision(const SourceText& source) {
  for (std::size_t line = 1; line <= source.line_count(); ++line) {
    if (is_elision(source.line(line))) {
      return true;
    }
  }
  return false;
}

class CalculationMaker {
 public:
  explicit CalculationMaker(const Job& job)
      : job_(job), is_header_known_(knows_all_header_words(job)) {}

  Calculation run() {
    made_.is_complete = job_.is_complete() && !has_elision(job_.input.source());
    if (has_known_method(job_) && !job_.method().empty()) {
      made_.method = name_at(job_.method(), specification(), specification_ranges().method);
    }
    for (const System& system : job_.systems) {
      made_.systems.push_back(system_from(system));
    }
    for (const Scf& scf : job_.scfs) {
      if (scf.block == nullptr && !has_known_method(job_)) {
        continue;
      }
      made_.scfs.push_back(scf_from(scf));
    }
    made_.tasks = tasks_of(job_);
    return std::move(made_);
  }

 private:
  RecordId specification() const {
    return RecordId::of(RecordKind::EasyToken, job_.specification().value_or(0));
  }

  SpecificationRanges specification_ranges() const {
    return job_.input.specification_ranges(job_.specification().value_or(0));
  }

  Calculation::Origin origin(const RecordId& record, const TextRange& range) const {
    return origin_of(job_.input, record, range);
  }

  Name name_at(std::string name, const RecordId& record, const TextRange& range) const {
    return {std::move(name), false, origin(record, range)};
  }

  // -- what is certain

  // A default is taken where nothing is stated, wherever it could be.
  bool may_take_default(const Scf& scf) const {
    return job_.is_complete() && is_header_known_ &&
           (scf.block == nullptr || !is_open_to_additions(*scf.block));
  }

  // Of the header, unless lines of the module are missing that would count instead.
  static bool counts(const RecordId& record, const Block* block) {
    return record.kind != RecordKind::EasyToken || block == nullptr || !block->is_elided;
  }

  bool is_stated_once(std::string_view name, const Setting& setting, const Block* block) const {
    return setting.record().kind == RecordKind::EasyToken
               ? find_easy_keywords(job_.data(), job_.schema(), name).size() == 1
               : block->all(name).size() == 1;
  }

  // -- systems

  Calculation::System system_from(const System& system) const {
    Calculation::System made;
    const RecordId record =
        system.compass != nullptr ? system.compass->record() : system.geometry.record;
    made.origin = origin(record, job_.input.keyword_range(record));
    if (system.geometry.size() && !has_two_geometries(system)) {
      add_atoms(system, made);
    }
    add_basis_sets(system, made);
    return made;
  }

  bool has_two_geometries(const System& system) const {
    return system.compass != nullptr && system.compass->has(geometry_entry) &&
           (job_.data().has_geometry || system.compass->all(geometry_entry).size() > 1);
  }

  static void add_atoms(const System& system, Calculation::System& made) {
    std::vector<AtomRecord> nuclei;
    for (const Centre& centre : system.geometry.centres) {
      if (!centre.is_ghost()) {
        nuclei.emplace_back().element = symbol_of(centre.element);
      }
    }
    made.atoms = nuclei.size();
    made.formula = hill_formula(nuclei);
  }

  static std::size_t basis_statements(const Block& compass) {
    return compass.all("basis").size() + compass.all("basis-block").size();
  }

  void add_basis_sets(const System& system, Calculation::System& made) const {
    const BasisChoice& choice = system.basis;
    const RecordId record = choice.setting         ? choice.setting.record()
                            : job_.specification() ? specification()
                                                   : RecordId{};
    made.has_inline_basis = choice.has_inline;
    if (system.compass != nullptr && basis_statements(*system.compass) > 1) {
      return;
    }
    const auto add = [&](const std::string& basis, Word word, Word label) {
      std::vector<Calculation::Basis>& sets = made.basis_sets;
      // Labels before one `=` share the word behind it.
      if (sets.empty() || label.empty() ||
          sets.back().name.origin.range != range_of(job_.input, word)) {
        sets.push_back({name_at(basis, record, range_of(job_.input, word)), {}});
      }
      if (!label.empty()) {
        sets.back().labels.emplace_back(label);
      }
    };
    const bool is_certain = choice.setting || has_known_method(job_);
    if (!choice.basis.empty() && is_certain && counts(record, system.compass)) {
      add(choice.basis, choice.name, {});
    }
    for (const BasisChoice::Assignment& assignment : choice.assignments) {
      add(assignment.basis, assignment.name, assignment.label);
    }
  }

  // -- SCF calculations

  Calculation::Scf scf_from(const Scf& scf) const {
    Calculation::Scf made;
    const RecordId record = scf.block != nullptr ? scf.block->record() : specification();
    made.origin =
        origin(record, scf.block != nullptr ? job_.input.keyword_range(record)
                                            : job_.input.token_ranges(record.index).whole);
    made.system = static_cast<std::size_t>(scf.system - job_.systems.data());
    made.charge = stated_number(charge_name, scf.charge, scf.block);
    if (!scf.charge && may_take_default(scf)) {
      made.charge = Number{0, true, {}};
    }
    const bool is_molecule_certain = made_.systems[made.system].atoms.has_value();
    if (const auto electrons = scf.electrons();
        electrons && *electrons >= 0 && made.charge && is_molecule_certain) {
      made.electrons = electrons;
    }
    made.multiplicity = stated_number(multiplicity_name, scf.multiplicity, scf.block);
    if (!scf.multiplicity && may_take_default(scf) && made.electrons &&
        has_known_spin(scf, *made.electrons)) {
      made.multiplicity = Number{*made.electrons % 2 + 1, true, {}};
    }
    made.functional = functional_of(scf);
    made.reference = reference_of(scf, made);
    return made;
  }

  std::optional<Number> stated_number(std::string_view name, const Setting& setting,
                                      const Block* block) const {
    const auto value = setting.integer();
    if (!value || !counts(setting.record(), block) || !is_stated_once(name, setting, block)) {
      return std::nullopt;
    }
    return Number{*value, false, origin(setting.record(), setting.range())};
  }

  // The spin follows from the number of electrons unless occupations are given, or a core potential
  // may hold an odd number of them. A closed shell of an odd number says that atoms are missing.
  bool has_known_spin(const Scf& scf, std::int64_t electrons) const {
    const bool has_occupations =
        scf.block != nullptr &&
        (scf.block->has("alpha") || scf.block->has("beta") || scf.block->has("occupy"));
    const bool is_contradictory = scf.is_restricted() && electrons % 2 != 0;
    return !has_occupations && !is_contradictory && !job_.may_have_odd_core(*scf.system);
  }

  std::optional<Name> functional_of(const Scf& scf) const {
    if (scf.block != nullptr && scf.block->has("dft")) {
      const Setting setting = scf.block->get("dft");
      const bool is_certain = !scf.functional.empty() && scf.block->all("dft").size() == 1;
      return is_certain ? std::optional<Name>(
                              name_at(scf.functional, setting.record(), scf.functional_word))
                        : std::nullopt;
    }
    const bool is_functional = !scf.functional.empty() && has_known_method(job_);
    // A Hartree-Fock of the module is another method than that of the header.
    const bool is_used = !scf.reference || scf.is_kohn_sham();
    return is_functional && is_used && counts(specification(), scf.block)
               ? std::optional<Name>(name_at(scf.functional, specification(), scf.functional_word))
               : std::nullopt;
  }

  std::optional<Name> reference_of(const Scf& scf, const Calculation::Scf& made) const {
    if (scf.reference) {
      return counts(scf.reference_record, scf.block)
                 ? std::optional<Name>(name_at(std::string(name_of(*scf.reference)),
                                               scf.reference_record, scf.reference_word))
                 : std::nullopt;
    }
    return default_reference(scf, made);
  }

  // For what the header calls Hartree-Fock or Kohn-Sham, and no more, the program takes the
  // restricted one for closed shells and the unrestricted one for open shells.
  std::optional<Name> default_reference(const Scf& scf, const Calculation::Scf& made) const {
    const bool names_none =
        scf.block == nullptr || (!scf.block->has("dft") && !names_reference(*scf.block));
    if (!names_none || !may_take_default(scf) || !job_.specification() || !made.multiplicity ||
        made.multiplicity->value < 1) {
      return std::nullopt;
    }
    const bool is_open = made.multiplicity->value > 1;
    const std::string method = job_.method();
    if (method == "hf") {
      return Name{is_open ? "uhf" : "rhf", true, {}};
    }
    const bool is_kohn_sham = method == "ks" || (method.empty() && made.functional);
    return is_kohn_sham ? std::optional<Name>(Name{is_open ? "uks" : "rks", true, {}})
                        : std::nullopt;
  }

  const Job& job_;
  bool is_header_known_ = false;
  Calculation made_;
};

}  // namespace

Calculation calculation_of(const ParsedInput& input) {
  const Job job(input);
  return CalculationMaker(job).run();
}

}  // namespace kelp::input::bdf
