// Fragments that are given to `$autofrag` by hand. The first line of `fragdef` has charge and
// multiplicity of each fragment, "0 1 1 2", and its further lines have their atoms, "1,3-10",
// without a blank; each atom is in one of them.

#include <algorithm>
#include <array>

#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

// Numbers that no calculation has would overflow.
constexpr std::int64_t most_atoms = 1'000'000;

// The definition of fragments, where it is there as a whole: first line, then atoms.
struct Definition {
  bool is_for_energies = false;  ///< of the fragments as they are, without a buffer around them
  Setting setting;
  std::vector<Word> head;
  std::vector<std::vector<Word>> rows;
};

std::optional<Definition> definition_of(const Job& job) {
  const std::vector<const Block*> all = job.all("autofrag");
  if (all.empty() || all.front()->is_elided || !all.front()->has("fragdef")) {
    return std::nullopt;
  }
  Definition definition;
  definition.is_for_energies = all.front()->get("method").text().starts_with("sobeda");
  definition.setting = all.front()->get("fragdef");
  definition.rows = definition.setting.rows();
  if (definition.rows.empty()) {
    return std::nullopt;
  }
  definition.head = definition.rows.front();
  definition.rows.erase(definition.rows.begin());
  return definition;
}

void check_fragdef_first_line(const Job& job, Report& report) {
  const auto definition = definition_of(job);
  if (definition && definition->head.size() % 2 != 0) {
    report
        .add("The first line of 'fragdef' has {} words, which are no pairs.",
             {std::to_string(definition->head.size())})
        .at(range_of(job.input, definition->head), "charge and multiplicity of each fragment")
        .help("give charge and multiplicity of each fragment, or '*' for both");
  }
}

void check_fragdef_row_count(const Job& job, Report& report) {
  const auto definition = definition_of(job);
  if (!definition || definition->head.size() % 2 != 0) {
    return;
  }
  const std::string announced = std::to_string(definition->head.size() / 2);
  const std::string listed = std::to_string(definition->rows.size());
  if (announced != listed) {
    report
        .add("The first line of 'fragdef' is for {} fragments, and {} have atoms.",
             {announced, listed})
        .at(range_of(job.input, definition->head), announced + " fragments")
        .related(
            definition->rows.empty() ? TextRange{} : range_of(job.input, definition->rows.back()),
            "the last one of " + listed)
        .help("each fragment has one line with its atoms");
  }
}

struct WithoutBlanks {
  std::string text;
  bool is_safe = true;  ///< no blank stood where a comma was meant
};

WithoutBlanks without_blanks(std::string_view text) {
  WithoutBlanks result;
  const auto is_joint = [](char byte) { return byte == ',' || byte == '-'; };
  for (std::string_view rest = text; !rest.empty();) {
    const Word word = core::text::take_word(rest);
    if (word.empty()) {
      continue;
    }
    if (!result.text.empty() && !is_joint(result.text.back()) && !is_joint(word.front())) {
      result.text += ',';
      result.is_safe = false;
    }
    result.text += word;
  }
  return result;
}

void check_fragdef_blank(const Job& job, Report& report) {
  const auto definition = definition_of(job);
  if (!definition) {
    return;
  }
  for (const std::vector<Word>& row : definition->rows) {
    const TextRange range = range_of(job.input, row);
    const std::string_view text = job.input.source().text_of(range);
    if (text.find_first_of(" \t") == std::string_view::npos) {
      continue;
    }
    const WithoutBlanks cure = without_blanks(text);
    Finding& finding = report.add("A list of atoms must have no blank in it.")
                           .at(range, "read up to the first blank");
    if (cure.is_safe) {
      finding.fix("write '" + cure.text + "'", {range, cure.text});
    } else {
      finding.ask("write '" + cure.text + "'", {range, cure.text});
    }
  }
}

struct AtomRange {
  std::int64_t first;
  std::int64_t last;
};

// An atom, or atoms from one to another: "3" or "3-10".
std::optional<AtomRange> atoms_of(Word word) {
  const std::size_t dash = word.find('-');
  const auto first = core::number::parse_integer(word.substr(0, dash));
  const auto last = dash == Word::npos ? first : core::number::parse_integer(word.substr(dash + 1));
  if (!first || !last || *first < 0 || *last < *first || *last > most_atoms) {
    return std::nullopt;
  }
  return AtomRange{*first, *last};
}

// Goes over the atoms of all fragments, and tells of what is wrong first.
class Coverage {
 public:
  Coverage(const Job& job, const Definition& definition, std::size_t atoms, Report& report)
      : job_(job), definition_(definition), words_(atoms), report_(report) {}

  void check() {
    for (const std::vector<Word>& row : definition_.rows) {
      for (const Word word : row) {
        const auto range = atoms_of(word);
        if (!range || !take(*range, word)) {
          return;
        }
      }
    }
    const auto missing =
        std::find_if(words_.begin(), words_.end(), [](Word word) { return word.empty(); });
    if (missing != words_.end()) {
      report_.add("Atom {} is in no fragment.", {std::to_string(missing - words_.begin() + 1)})
          .at_keyword(definition_.setting, "must have all atoms")
          .help("each atom is in one fragment");
    }
  }

 private:
  bool take(const AtomRange& range, Word word) {
    if (range.first < 1 || range.last > static_cast<std::int64_t>(words_.size())) {
      report_
          .add("There is no atom {}: the molecule has {}.",
               {text_of(range.first < 1 ? range.first : range.last), std::to_string(words_.size())})
          .at(word, "no such atom");
      return false;
    }
    for (std::int64_t atom = range.first; atom <= range.last; ++atom) {
      Word& taken = words_[static_cast<std::size_t>(atom - 1)];
      if (!taken.empty()) {
        report_.add("Atom {} is in a fragment twice.", {text_of(atom)})
            .at(word, "once more")
            .related(range_of(job_.input, taken), "the first time")
            .help("each atom is in one fragment");
        return false;
      }
      taken = word;
    }
    return true;
  }

  const Job& job_;
  const Definition& definition_;
  std::vector<Word> words_;  ///< of each atom the word that has it
  Report& report_;
};

void check_fragdef_coverage(const Job& job, Report& report) {
  const auto definition = definition_of(job);
  const auto atoms = job.systems.front().geometry.size();
  if (definition && !definition->rows.empty() && atoms && job.systems.size() == 1) {
    Coverage(job, *definition, *atoms, report).check();
  }
}

// The electrons of a fragment; unset when they are not certain.
std::optional<std::int64_t> electrons_of(const System& system, const std::vector<Word>& row,
                                         std::int64_t charge) {
  std::int64_t electrons = -charge;
  for (const Word word : row) {
    const auto range = atoms_of(word);
    const auto atoms = static_cast<std::int64_t>(system.geometry.size().value_or(0));
    if (!range || range->first < 1 || range->last > atoms) {
      return std::nullopt;
    }
    for (std::int64_t atom = range->first; atom <= range->last; ++atom) {
      electrons += system.geometry.centres[static_cast<std::size_t>(atom - 1)].element;
    }
  }
  return electrons;
}

void check_fragment_spin(const Job& job, const Definition& definition, std::size_t index,
                         Report& report) {
  const Word spin = definition.head[2 * index + 1];
  const auto charge = core::number::parse_integer(definition.head[2 * index]);
  const auto multiplicity = core::number::parse_integer(spin);
  if (!charge || !multiplicity || *charge < -most_atoms || *charge > most_atoms ||
      *multiplicity < -most_atoms || *multiplicity > most_atoms || *multiplicity == 0) {
    return;
  }
  const std::vector<Word>& row = definition.rows[index];
  const auto electrons = electrons_of(job.systems.front(), row, *charge);
  if (!electrons || *electrons < 1 || (*electrons - *multiplicity) % 2 != 0) {
    return;
  }
  report
      .add("Fragment {} has {} electrons, which cannot have the multiplicity {}.",
           {std::to_string(index + 1), text_of(*electrons), spin})
      .at(spin, *electrons % 2 == 0 ? "must be odd" : "must be even")
      .related(range_of(job.input, row), "its atoms")
      .related(range_of(job.input, definition.head[2 * index]), "its charge");
}

void check_fragment_spin_parity(const Job& job, Report& report) {
  const auto definition = definition_of(job);
  const System& system = job.systems.front();
  if (!definition || !definition->is_for_energies || job.systems.size() != 1 ||
      !system.geometry.nuclear_charge() || job.may_have_odd_core(system)) {
    return;
  }
  const std::size_t count = std::min(definition->head.size() / 2, definition->rows.size());
  for (std::size_t i = 0; i < count; ++i) {
    check_fragment_spin(job, *definition, i, report);
  }
}

void check_autofrag_pairs_odd(const Job& job, Report& report) {
  for (const Block* const autofrag : job.all("autofrag")) {
    for (const char* const name : {"charge", "spinocc"}) {
      const Setting pairs = autofrag->get(name);
      const std::size_t count = pairs.words().size();
      if (count % 2 != 0 && !autofrag->is_elided) {
        report
            .add("'{}' has {} numbers, which are no pairs.", {pairs.name(), std::to_string(count)})
            .at(pairs, "pairs of an atom and its number")
            .help("give for each atom its number and what it has");
      }
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"fragments.fragdef_first_line", check_fragdef_first_line},
    {"fragments.fragdef_row_count", check_fragdef_row_count},
    {"fragments.fragdef_blank", check_fragdef_blank},
    {"fragments.fragdef_coverage", check_fragdef_coverage},
    {"fragments.fragment_spin_parity", check_fragment_spin_parity},
    {"fragments.autofrag_pairs_odd", check_autofrag_pairs_odd},
});

}  // namespace

std::span<const Rule> fragments_definition_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
