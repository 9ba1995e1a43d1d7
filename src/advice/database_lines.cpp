// The lines of `&database`: heads of fragments, "fragment NUMBER ATOMS", and numbers of their atoms
// below. Whether the numbers fit is said in `sequence_fragments.cpp`.

#include <algorithm>
#include <array>
#include <map>

#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/spelling.hpp"
#include "kelp/core/text.hpp"
#include "model/value_lines.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::string_view head_word = "fragment";

using Rows = std::vector<std::vector<Word>>;

// The lines of each database without its first and without comments.
std::vector<Rows> databases_of(const Job& job) {
  std::vector<Rows> all;
  for (std::size_t i = 0; i < job.data().statements.size(); ++i) {
    if (job.data().statements[i].kind != StatementKind::Database) {
      continue;
    }
    const RecordId record = RecordId::of(RecordKind::Statement, i);
    Rows& rows = all.emplace_back();
    for (std::size_t line = job.input.first_line(record) + 1; line <= job.input.last_line(record);
         ++line) {
      std::vector<Word> words;
      split_value_tokens(clean_value_line(job.input.source().line(line)), words);
      if (!words.empty()) {
        rows.push_back(std::move(words));
      }
    }
  }
  return all;
}

bool is_head(const std::vector<Word>& row) {
  return core::text::equals_ignoring_case(row.front(), head_word);
}

// `fragment1`, `fragmnet`
std::optional<std::string> head_meant_by(const std::vector<Word>& row) {
  const Word word = row.front();
  const std::size_t digits = word.find_first_of("0123456789");
  const Word letters = word.substr(0, digits);
  if (is_head(row) || !core::spelling::slips_if_near(core::text::to_lower(letters), head_word)) {
    return std::nullopt;
  }
  std::string meant(head_word);
  if (digits != Word::npos) {
    meant += " " + std::string(word.substr(digits));
  }
  for (std::size_t i = 1; i < row.size(); ++i) {
    meant += " " + std::string(row[i]);
  }
  return meant;
}

void check_database_head(const Job& job, Report& report) {
  for (const Rows& rows : databases_of(job)) {
    for (const std::vector<Word>& row : rows) {
      if (const auto meant = head_meant_by(row)) {
        const TextRange range = range_of(job.input, row);
        report.add("The line '{}' heads no fragment.", {job.input.source().text_of(range)})
            .at(range, "meant to be '" + *meant + "'?")
            .help("a fragment begins with 'fragment NUMBER ATOMS'")
            .fix("write '" + *meant + "'", {range, *meant});
      }
    }
  }
}

void check_fragment(const Job& job, const std::vector<Word>& atoms, Word number, Report& report) {
  std::map<std::int64_t, Word> seen;
  for (const Word atom : atoms) {
    const auto index = core::number::parse_integer(atom);
    if (!index) {
      return;
    }
    const auto [first, is_new] = seen.emplace(*index, atom);
    if (!is_new) {
      report.add("Atom {} stands twice in fragment {}.", {atom, number})
          .at(atom, "once more")
          .related(range_of(job.input, first->second), "the first time")
          .help("each atom of a fragment is listed once");
      return;
    }
  }
}

void check_database_atom_twice(const Job& job, Report& report) {
  for (const Rows& rows : databases_of(job)) {
    std::vector<Word> atoms;
    Word number;
    for (const std::vector<Word>& row : rows) {
      if (is_head(row)) {
        check_fragment(job, atoms, number, report);
        atoms.clear();
        number = row.size() > 1 ? row[1] : row[0];
      } else if (!number.empty()) {
        atoms.insert(atoms.end(), row.begin(), row.end());
      }
    }
    if (!atoms.empty() && !core::number::parse_integer(atoms.back())) {
      atoms.pop_back();  // `&end`
    }
    check_fragment(job, atoms, number, report);
  }
}

void check_database_fragment_twice(const Job& job, Report& report) {
  for (const Rows& rows : databases_of(job)) {
    std::map<std::string, Word> seen;
    for (const std::vector<Word>& row : rows) {
      if (!is_head(row) || row.size() < 2 || !core::number::parse_integer(row[1])) {
        continue;
      }
      const auto [first, is_new] = seen.emplace(std::string(row[1]), row[1]);
      if (!is_new) {
        report.add("There are two fragments {}.", {row[1]})
            .at(row[1], "the number of another fragment")
            .related(range_of(job.input, first->second), "the other one")
            .help("give each fragment a number of its own");
      }
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"sequence.database_head", check_database_head},
    {"sequence.database_atom_twice", check_database_atom_twice},
    {"sequence.database_fragment_twice", check_database_fragment_twice},
});

}  // namespace

std::span<const Rule> database_line_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
