// Numbers of atoms, wherever an input gives some: they count the atoms of the geometry, and none is
// above their number. A geometry in a file, or one with lines left out, has an unknown number.

#include <algorithm>
#include <array>

#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "model/value_lines.hpp"

namespace kelp::input::bdf {
namespace {

using Rows = std::vector<std::vector<Word>>;

// The numbers of an atom list: "5", "3-10", "*" for none.
std::vector<Word> numbers_in(Word item) {
  const std::size_t dash = item.find('-', 1);
  if (dash == Word::npos) {
    return {item};
  }
  return {item.substr(0, dash), item.substr(dash + 1)};
}

/// Looks at the numbers of one system.
class AtomNumbers {
 public:
  AtomNumbers(const Job& job, const System& system, Report& report)
      : job_(job), system_(system), report_(report) {}

  void look_at_modules() {
    for (const Block* const block : system_.blocks) {
      if (block->name == "scf") {
        first_of_rows(block->get("restrainspin").rows(), 1);
        for (const char* const name : {"radii", "radiiforcavenergy"}) {
          for (const Setting& setting : block->all(name)) {
            radii(setting.words());
          }
        }
      } else if (block->name == "bdfopt") {
        first_of_rows(block->get("frozen").rows(), 1);
        until_equals(block->get("constrain").rows(), 1);
        scan(block->get("scan").rows());
      } else if (block->name == "nmr") {
        from_one_ = false;
        first_of_rows(block->get("igatom").rows(), 0);
        from_one_ = true;
      } else if (block->name == "xuanyuan") {
        first_of_rows(block->get("nuclearradii").rows(), 1);
      } else if (block->name == "autofrag") {
        pairs(block->get("charge").words());
        pairs(block->get("spinocc").words());
      }
    }
  }

  void look_at_database() {
    for (std::size_t i = 0; i < job_.data().statements.size(); ++i) {
      if (job_.data().statements[i].kind != StatementKind::Database) {
        continue;
      }
      const RecordId record = RecordId::of(RecordKind::Statement, i);
      for (std::size_t line = job_.input.first_line(record) + 1;
           line <= job_.input.last_line(record); ++line) {
        database_line(clean_value_line(job_.input.source().line(line)));
      }
    }
  }

 private:
  void look_at(Word word) {
    const std::size_t atoms = system_.geometry.size().value_or(0);
    const auto number = core::number::parse_integer(word);
    const bool is_below = number && *number < 1 && from_one_;
    if (is_below || (number && *number > static_cast<std::int64_t>(atoms))) {
      report_
          .add("There is no atom {}: the molecule has {}.",
               {text_of(*number), text_of(static_cast<std::int64_t>(atoms))})
          .at(word, "no such atom")
          .related(job_.input.keyword_range(system_.geometry.record), "the atoms")
          .help("atoms count from 1 in the order of the geometry");
    }
  }

  void first_of_rows(const Rows& rows, std::size_t skipped) {
    for (std::size_t i = skipped; i < rows.size(); ++i) {
      look_at(rows[i].front());
    }
  }

  // Rows such as "1 2 = 1.5".
  void until_equals(const Rows& rows, std::size_t skipped) {
    for (std::size_t i = skipped; i < rows.size(); ++i) {
      for (const Word word : rows[i]) {
        const std::size_t equals = word.find('=');
        look_at(word.substr(0, equals));
        if (equals != Word::npos) {
          break;
        }
      }
    }
  }

  // Either a count and that many rows "1 2 = 1.0 2.0 0.1"; or two counts, rows of atoms, and rows
  // of values.
  void scan(Rows rows) {
    const auto count = rows.empty() ? std::nullopt : core::number::parse_integer(rows[0][0]);
    if (!count || *count < 1) {
      return;
    }
    if (rows[0].size() > 1) {
      rows.resize(std::min(rows.size(), static_cast<std::size_t>(*count) + 1));
    }
    until_equals(rows, 1);
  }

  // Items such as "H=1.2" and "12=1.2".
  void radii(const std::vector<Word>& items) {
    for (const Word item : items) {
      if (const std::size_t equals = item.find('='); equals != Word::npos) {
        look_at(item.substr(0, equals));
      }
    }
  }

  void pairs(const std::vector<Word>& words) {
    for (std::size_t i = 0; i + 1 < words.size(); i += 2) {
      look_at(words[i]);
    }
  }

  // Numbers and ranges of them.
  void list(const std::vector<Word>& items) {
    for (const Word item : items) {
      for (const Word number : numbers_in(item)) {
        look_at(number);
      }
    }
  }

  void database_line(Word line) {
    std::vector<Word> words;
    split_value_tokens(line, words);
    if (!words.empty() && core::number::parse_integer(words.front())) {
      list(words);
    }
  }

  const Job& job_;
  const System& system_;
  Report& report_;
  bool from_one_ = true;  ///< no number below 1 has a meaning of its own
};

void check_atom_number_out_of_range(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    if (system.geometry.size().value_or(0) > 0) {
      AtomNumbers(job, system, report).look_at_modules();
    }
  }
  // Of several molecules the fragments are those of the largest one.
  const auto largest = std::max_element(
      job.systems.begin(), job.systems.end(), [](const System& left, const System& right) {
        return left.geometry.size().value_or(0) < right.geometry.size().value_or(0);
      });
  const bool is_known = std::all_of(job.systems.begin(), job.systems.end(), [](const auto& system) {
    return system.geometry.size().value_or(0) > 0;
  });
  if (is_known && largest != job.systems.end()) {
    AtomNumbers(job, *largest, report).look_at_database();
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"functional.atom_number_out_of_range", check_atom_number_out_of_range},
});

}  // namespace

std::span<const Rule> atom_number_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
