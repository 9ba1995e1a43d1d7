// Couplings between the fragments of a system: `$elecoup`, `nfragment` in `$compass`, and the
// `&database` with the atoms of each fragment. The database is read line by line; one that holds
// anything but heads "fragment NUMBER ATOMS" and numbers of atoms proves nothing.

#include <algorithm>
#include <array>

#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "model/value_lines.hpp"

namespace kelp::input::bdf {
namespace {

struct Fragment {
  std::vector<Word> head;  ///< "fragment", its number, how many atoms it has
  std::int64_t announced = 0;
  std::int64_t listed = 0;
};

struct Database {
  TextRange start;  ///< of `&database`
  std::vector<Fragment> fragments;
  bool is_certain = true;
};

class DatabaseReader {
 public:
  DatabaseReader(const Job& job, const RecordId& record) : input_(job.input), record_(record) {}

  Database run() {
    const std::size_t first = input_.first_line(record_);
    const std::size_t last = input_.last_line(record_);
    database_.start = input_.source().content(first);
    for (std::size_t line = first + 1; line <= last; ++line) {
      std::vector<Word> words;
      split_value_tokens(clean_value_line(input_.source().line(line)), words);
      if (!words.empty() && !core::text::equals_ignoring_case(words.front(), "&end")) {
        read_row(std::move(words));
      }
    }
    return std::move(database_);
  }

 private:
  void read_row(std::vector<Word> words) {
    constexpr std::size_t head_size = 3;
    if (!core::text::equals_ignoring_case(words.front(), "fragment")) {
      read_atoms(words);
      return;
    }
    const auto announced =
        words.size() == head_size ? core::number::parse_integer(words.back()) : std::nullopt;
    database_.is_certain = database_.is_certain && announced;
    database_.fragments.push_back({std::move(words), announced.value_or(0), 0});
  }

  void read_atoms(const std::vector<Word>& words) {
    const bool are_numbers = std::all_of(words.begin(), words.end(), [](Word word) {
      return core::number::parse_integer(word).has_value();
    });
    if (database_.fragments.empty() || !are_numbers) {
      database_.is_certain = false;
    } else {
      database_.fragments.back().listed += static_cast<std::int64_t>(words.size());
    }
  }

  const ParsedInput& input_;
  RecordId record_;
  Database database_;
};

std::vector<Database> databases_of(const Job& job) {
  std::vector<Database> all;
  for (std::size_t i = 0; i < job.data().statements.size(); ++i) {
    if (job.data().statements[i].kind == StatementKind::Database) {
      all.push_back(DatabaseReader(job, RecordId::of(RecordKind::Statement, i)).run());
    }
  }
  return all;
}

// Whether a line begins a database, even one with something behind its first word.
bool has_database(const Job& job) {
  const SourceText& source = job.input.source();
  constexpr std::string_view start = "&database";
  for (std::size_t line = 1; line <= source.line_count(); ++line) {
    const std::string_view text = core::text::trim_view(source.line(line));
    if (core::text::equals_ignoring_case(text.substr(0, start.size()), start)) {
      return true;
    }
  }
  return false;
}

// The number of fragments of each system that has some.
std::vector<Setting> fragment_numbers(const Job& job) {
  std::vector<Setting> all;
  for (const Block* const compass : job.all("compass")) {
    if (compass->has("nfragment")) {
      all.push_back(compass->get("nfragment"));
    }
  }
  return all;
}

struct Coupling {
  const Block* block;
  Setting setting;  ///< what is computed between fragments
};

// The first coupling of each system.
std::vector<Coupling> couplings_of(const Job& job) {
  std::vector<Coupling> all;
  for (const Block* const block : job.all("elecoup")) {
    for (const char* const name : {"electrans", "enertrans", "locales"}) {
      const bool is_first = all.empty() || all.back().block->system != block->system;
      if (is_first && block->has(name)) {
        all.push_back({block, block->get(name)});
      }
    }
  }
  return all;
}

void check_elecoup_needs_nfragment(const Job& job, Report& report) {
  for (const Coupling& coupling : couplings_of(job)) {
    const Block* const compass = job.system_of(*coupling.block).compass;
    if (compass == nullptr || compass->is_elided || compass->has("nfragment")) {
      continue;
    }
    const std::string number = coupling.block->has("locales") ? "1" : "2";
    report.add("'{}' needs fragments, and $compass names none.", {coupling.setting.name()})
        .at_keyword(coupling.setting, "between which fragments?")
        .related(*compass, "has no 'nfragment'")
        .help("give their number with 'nfragment' in $compass and their atoms in '&database'")
        .ask("add 'nfragment' to $compass", entry_added(job, *compass, "nfragment", number));
  }
}

void check_elecoup_needs_database(const Job& job, Report& report) {
  for (const Coupling& coupling : couplings_of(job)) {
    if (job.is_complete() && !has_database(job)) {
      report.add("'{}' needs the atoms of each fragment.", {coupling.setting.name()})
          .at_keyword(coupling.setting, "of which atoms?")
          .help(
              "end the input with '&database', for each fragment a line 'fragment NUMBER ATOMS' "
              "and one with the numbers of its atoms, and '&end'");
      return;
    }
  }
}

bool stores_states(const Block& tddft) {
  return tddft.has("istore") || !tddft.is_whole();
}

void check_locales_needs_tddft(const Job& job, Report& report) {
  for (const Block* const block : job.all("elecoup")) {
    const std::vector<const Block*> before = job.all_before(*block, "tddft");
    const bool are_stored = std::any_of(before.begin(), before.end(),
                                        [](const Block* tddft) { return stores_states(*tddft); });
    if (block->has("locales") && job.lists_all_modules() && !are_stored) {
      Finding& finding =
          report.add("'{}' makes stored states local, and no state is stored before it.",
                     {block->get("locales").name()});
      finding.at_keyword(block->get("locales"), "of which states?")
          .help("have a $tddft with 'istore' before it");
      if (!before.empty()) {
        finding.related(*before.back(), "stores nothing")
            .ask("add 'istore' to $tddft", entry_added(job, *before.back(), "istore", "1"));
      }
    }
  }
}

void check_nfragment_without_database(const Job& job, Report& report) {
  const std::vector<Setting> numbers = fragment_numbers(job);
  if (!numbers.empty() && job.is_complete() && !has_database(job)) {
    report.add("There are fragments, and nothing says which atoms they have.")
        .at(numbers.front(), "of which atoms?")
        .help(
            "end the input with '&database', for each fragment a line 'fragment NUMBER ATOMS' and "
            "one with the numbers of its atoms, and '&end'");
  }
}

void check_database_without_nfragment(const Job& job, Report& report) {
  const bool is_elided = std::any_of(job.blocks.begin(), job.blocks.end(),
                                     [](const Block& block) { return block.is_elided; });
  const std::vector<Database> databases = databases_of(job);
  // A coupling has said it.
  if (!databases.empty() && !databases.front().fragments.empty() && job.has("compass") &&
      job.is_complete() && !is_elided && fragment_numbers(job).empty() &&
      couplings_of(job).empty()) {
    report.add("The fragments of '&database' are not read without 'nfragment'.")
        .at(databases.front().start, "not read")
        .help("give their number with 'nfragment' in $compass");
  }
}

void check_database_fragment_count(const Job& job, Report& report) {
  const std::vector<Setting> numbers = fragment_numbers(job);
  const std::vector<Database> databases = databases_of(job);
  if (numbers.size() != 1 || databases.size() != 1 || !databases.front().is_certain) {
    return;
  }
  const std::string listed = std::to_string(databases.front().fragments.size());
  const auto announced = numbers.front().integer();
  if (announced && text_of(*announced) != listed) {
    report
        .add("'{}' is {}, and '&database' lists {}.",
             {numbers.front().name(), text_of(*announced), listed})
        .at(numbers.front(), "fragments")
        .related(databases.front().start, "lists " + listed)
        .ask("write " + listed, value_replaced(numbers.front(), listed));
  }
}

// Otherwise a number may be missing in a list.
bool lists_all_atoms(const Job& job, const Database& database) {
  const auto atoms = job.systems.front().geometry.size();
  std::int64_t listed = 0;
  for (const Fragment& fragment : database.fragments) {
    listed += fragment.listed;
  }
  return atoms && static_cast<std::int64_t>(*atoms) == listed;
}

void check_database_atom_count(const Job& job, Report& report) {
  for (const Database& database : databases_of(job)) {
    for (const Fragment& fragment : database.fragments) {
      if (!database.is_certain || fragment.listed == fragment.announced) {
        continue;
      }
      const std::string listed = text_of(fragment.listed);
      Finding& finding = report
                             .add("Fragment {} has {} atoms, and {} are listed.",
                                  {fragment.head[1], fragment.head[2], listed})
                             .at(fragment.head[2], "atoms")
                             .help("correct the number, or the list");
      const TextEdit edit = {range_of(job.input, fragment.head[2]), listed};
      if (fragment.listed > 0) {
        lists_all_atoms(job, database) ? finding.fix("write " + listed, edit)
                                       : finding.ask("write " + listed, edit);
      }
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"sequence.elecoup_needs_nfragment", check_elecoup_needs_nfragment},
    {"sequence.elecoup_needs_database", check_elecoup_needs_database},
    {"sequence.locales_needs_tddft", check_locales_needs_tddft},
    {"sequence.nfragment_without_database", check_nfragment_without_database},
    {"sequence.database_without_nfragment", check_database_without_nfragment},
    {"sequence.database_fragment_count", check_database_fragment_count},
    {"sequence.database_atom_count", check_database_atom_count},
});

}  // namespace

std::span<const Rule> sequence_fragments_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
