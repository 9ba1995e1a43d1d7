// Spin-orbit coupling of stored states: one `$tddft` after another stores its states under a
// number, and the last one, with `isoc`, couples those of the files 1 to `nfiles`.

#include <algorithm>
#include <array>

#include "advice/excited_states.hpp"
#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/number.hpp"

namespace kelp::input::bdf {
namespace {

// The blocks that couple states.
std::vector<const Block*> couplings(const Job& job) {
  std::vector<const Block*> blocks = job.all("tddft");
  blocks.erase(std::remove_if(blocks.begin(), blocks.end(),
                              [](const Block* block) { return !block->has("isoc"); }),
               blocks.end());
  return blocks;
}

// The number of files that a block couples; unset when it gives none that can be.
std::optional<std::int64_t> files_of(const Block& coupling) {
  const auto files = coupling.get("nfiles").integer();
  return files && *files > 0 ? files : std::nullopt;
}

// The blocks whose states a block couples, by number.
std::map<std::int64_t, const Block*> coupled_by(const Job& job, const Block& coupling) {
  std::map<std::int64_t, const Block*> coupled = stored_before(job, coupling).by_number;
  const std::int64_t files = files_of(coupling).value_or(0);
  coupled.erase(coupled.upper_bound(files), coupled.end());
  coupled.erase(coupled.begin(), coupled.lower_bound(1));
  return coupled;
}

void check_needs_nfiles(const Job& job, Report& report) {
  for (const Block* const block : couplings(job)) {
    if (block->has("nfiles") || is_open_to_additions(*block) || !job.is_complete()) {
      continue;
    }
    const StoredStates stored = stored_before(job, *block);
    Finding& finding =
        report.add("'isoc' needs 'nfiles', the number of files with states to couple.")
            .at_keyword(block->get("isoc"), "of how many files?")
            .help("stored before: " + stored.numbers());
    if (!stored.by_number.empty()) {
      const std::string count = std::to_string(stored.by_number.size());
      finding.ask("add nfiles " + count, entry_added(job, *block, "nfiles", count));
    }
  }
}

void check_nfiles_vs_istore(const Job& job, Report& report) {
  for (const Block* const block : couplings(job)) {
    const auto files = files_of(*block);
    const StoredStates stored = stored_before(job, *block);
    const auto count = static_cast<std::int64_t>(stored.by_number.size());
    if (!files || *files <= count || !stored.is_certain || !job.is_complete()) {
      continue;
    }
    Finding& finding =
        report
            .add("'nfiles' {} reads more states than are stored: {}.",
                 {text_of(*files), stored.numbers()})
            .at(block->get("nfiles"), text_of(count) + " stored before")
            .help("each $tddft before needs an istore of its own, from 1 to " + text_of(*files));
    for (const auto& [number, source] : stored.by_number) {
      finding.related(source->get("istore"), "stored as " + text_of(number));
    }
    if (count > 0) {
      finding.ask("set nfiles to " + text_of(count),
                  value_replaced(block->get("nfiles"), text_of(count)));
    }
  }
}

void check_istore_numbers(const Job& job, Report& report) {
  for (const Block* const block : couplings(job)) {
    const auto files = files_of(*block);
    const StoredStates stored = stored_before(job, *block);
    if (!files || static_cast<std::int64_t>(stored.by_number.size()) < *files ||
        !stored.is_certain) {
      continue;
    }
    // There are as many numbers as files: where one is missing, one is beyond.
    const auto beyond = stored.by_number.upper_bound(*files);
    std::int64_t missing = 1;
    while (missing <= *files && stored.find(missing) != nullptr) {
      ++missing;
    }
    if (missing <= *files) {
      const Block& misnumbered =
          beyond != stored.by_number.end() ? *beyond->second : *stored.by_number.begin()->second;
      report
          .add("'nfiles' {} reads the files 1 to {}, and stored are {}.",
               {text_of(*files), text_of(*files), stored.numbers()})
          .at(misnumbered.get("istore"), "none is stored as " + text_of(missing))
          .related(block->get("nfiles"), "reads them in order")
          .help("number the files from 1, without gaps");
    }
  }
}

void check_needs_hsoc(const Job& job, Report& report) {
  for (const Block* const block : couplings(job)) {
    const System& system = job.system_of(*block);
    const std::vector<const Block*> integrals = job.all_before(*block, "xuanyuan");
    const bool is_known = system.geometry.is_certain && !system.geometry.centres.empty() &&
                          std::none_of(integrals.begin(), integrals.end(), [](const Block* it) {
                            return is_open_to_additions(*it) || it->has("hsoc");
                          });
    if (is_known && !integrals.empty() && job.is_advanced() && job.is_complete() &&
        job.is_all_electron(system)) {
      report.add("The spin-orbit integrals are missing: $xuanyuan has no 'hsoc'.")
          .at_keyword(block->get("isoc"), "needs hsoc")
          .related(*integrals.back(), "computes the integrals")
          .help("for basis sets with all electrons, hsoc 2 is recommended")
          .ask("add hsoc 2", entry_added(job, *integrals.back(), "hsoc", "2"));
    }
  }
}

void check_reference_unrestricted(const Job& job, Report& report) {
  for (const Block* const block : couplings(job)) {
    const Scf* const scf = job.scf_of(*block);
    if (shell_of(job, scf) == Shell::Unrestricted) {
      report
          .add("Spin-orbit coupling starts from a closed or a restricted open shell, not from {}.",
               {shell_name(job, scf)})
          .at_keyword(block->get("isoc"), "not from this reference")
          .related(scf->reference_word, "the reference")
          .help("use rks or roks (rhf, rohf)");
    }
  }
}

void check_isoc1_open_shell(const Job& job, Report& report) {
  for (const Block* const block : couplings(job)) {
    const Scf* const scf = job.scf_of(*block);
    if (block->is("isoc", 1) && is_open(shell_of(job, scf))) {
      report.add("'isoc' 1 is for closed shells, and the SCF is {}.", {shell_name(job, scf)})
          .at(block->get("isoc"), "for closed shells only")
          .related(scf->reference_word, "the reference")
          .ask("set isoc to 2", value_replaced(block->get("isoc"), "2"));
    }
  }
}

void check_open_shell_needs_xtda(const Job& job, Report& report) {
  for (const Block* const block : couplings(job)) {
    if (shell_of(job, *block) != Shell::RestrictedOpen) {
      continue;
    }
    for (const auto& [number, source] : coupled_by(job, *block)) {
      const bool is_adapted =
          source->is("itest", 1) && source->is("icorrect", 1) && source->is("itda", 1);
      // That a flip needs the approximation holds without coupling, too.
      if (!is_adapted && spin_change_of(*source) == 0 && !is_open_to_additions(*source)) {
        report
            .add(
                "States of an open shell can be coupled when they are computed with 'itest', "
                "'icorrect' and 'itda' 1.")
            .at(*source, "lacks one of them")
            .related(block->get("isoc"), "couples these states")
            .help("set itest, icorrect and itda to 1");
      }
    }
  }
}

void check_open_shell_needs_itrans(const Job& job, Report& report) {
  for (const Block* const block : couplings(job)) {
    const Scf* const scf = job.scf_of(*block);
    if (scf == nullptr || !scf->is(Reference::Roks)) {
      continue;
    }
    for (const auto& [number, source] : coupled_by(job, *block)) {
      if (!source->is("itrans", 1) && !is_open_to_additions(*source)) {
        report.add("States of 'roks' that are coupled later need 'itrans' 1.")
            .at(*source, "itrans is not 1")
            .related(block->get("isoc"), "couples these states")
            .ask("set itrans to 1", entry_set(job, *source, "itrans", "1"));
      }
    }
  }
}

void check_order(const Job& job, Report& report) {
  for (const Block* const block : couplings(job)) {
    const std::map<std::int64_t, const Block*> coupled = coupled_by(job, *block);
    if (coupled.empty() || coupled.begin()->first != 1 || shell_of(job, *block) != Shell::Closed) {
      continue;
    }
    const Block& first = *coupled.begin()->second;
    const bool has_singlets = std::any_of(coupled.begin(), coupled.end(), [](const auto& it) {
      return spin_change_of(*it.second) == 0;
    });
    if (spin_change_of(first) != 0 && has_singlets) {
      report.add("The first file holds triplets; singlets ('isf' 0) come first.")
          .at(first.get("isf"), "stored as 1")
          .related(block->get("isoc"), "couples these states")
          .help("store singlets as 1 and triplets as 2");
    }
  }
}

// A list with a count before its rows, as far as the block really has them.
struct CountedRows {
  std::string_view name;
  Setting setting;
  std::int64_t count = 0;
  std::vector<std::vector<Word>> rows;
};

std::vector<CountedRows> matrix_lists(const Block& block) {
  std::vector<CountedRows> all;
  for (const std::string_view name : {"imatsoc", "imatrso"}) {
    const Setting setting = block.get(name);
    std::vector<std::vector<Word>> rows = setting.rows();
    const auto count = rows.empty() || rows.front().size() != 1
                           ? std::nullopt
                           : core::number::parse_integer(rows.front().front());
    if (count && *count > 0 && !is_open_to_additions(block)) {
      rows.erase(rows.begin());
      all.push_back({name, setting, *count, std::move(rows)});
    }
  }
  return all;
}

void check_matrix_row_count(const Job& job, Report& report) {
  for (const Block* const block : job.all("tddft")) {
    for (const CountedRows& list : matrix_lists(*block)) {
      const auto listed = static_cast<std::int64_t>(list.rows.size());
      const Word count = list.setting.words().front();
      if (listed != list.count) {
        Finding& finding = report
                               .add("'{}' announces {} rows, and {} follow.",
                                    {list.setting.name(), text_of(list.count), text_of(listed)})
                               .at(count, text_of(listed) + " rows follow");
        const TextRange range = range_of(job.input, count);
        if (listed > 0) {
          finding.fix("set the count to " + text_of(listed), {range, text_of(listed)});
        }
      }
    }
  }
}

void check_matrix_file(const Job& job, Report& report) {
  for (const Block* const block : couplings(job)) {
    const auto files = files_of(*block);
    for (const CountedRows& list : matrix_lists(*block)) {
      if (!files || list.name != "imatsoc") {
        continue;
      }
      for (const std::vector<Word>& row : list.rows) {
        for (const std::size_t column : {std::size_t{0}, std::size_t{3}}) {
          const auto file =
              column < row.size() ? core::number::parse_integer(row[column]) : std::nullopt;
          if (file.value_or(0) > *files) {
            report
                .add("There is no file {} of states: 'nfiles' is {}.",
                     {row[column], text_of(*files)})
                .at(row[column], "a file number")
                .related(block->get("nfiles"), "the number of files")
                .help("a row is file, representation and state, twice; 0 0 0 is the ground state");
          }
        }
      }
    }
  }
}

void check_matrix_limit(const Job& job, Report& report) {
  constexpr std::int64_t most = 4000;
  for (const Block* const block : job.all("tddft")) {
    for (const CountedRows& list : matrix_lists(*block)) {
      if (list.count > most) {
        report
            .add("'{}' asks for {} matrix elements; the program takes up to {}.",
                 {list.setting.name(), text_of(list.count), text_of(most)})
            .at(list.setting.words().front(), "too many")
            .help("-1 prints all of them");
      }
    }
  }
}

void check_keyword_without_isoc(const Job& job, Report& report) {
  for (const Block* const block : job.all("tddft")) {
    if (block->has("isoc") || is_open_to_additions(*block)) {
      continue;
    }
    std::vector<Setting> useless;
    for (const char* const name : {"imatsoc", "imatrso", "ifgs"}) {
      if (has_nonzero(block->get(name))) {
        useless.push_back(block->get(name));
      }
    }
    if (useless.empty()) {
      continue;
    }
    Finding& finding = report.add("'{}' has no effect without 'isoc'.", {useless.front().name()})
                           .at_keyword(useless.front(), "no effect")
                           .help("isoc couples stored states; it stands in the last $tddft");
    for (std::size_t i = 1; i < useless.size(); ++i) {
      finding.related(useless[i].keyword(), "neither has this");
    }
    if (block->has("nfiles")) {
      finding.ask("add isoc 2", entry_added(job, *block, "isoc", "2"));
    }
  }
}

void check_ground_transition_needs_ifgs(const Job& job, Report& report) {
  for (const Block* const block : couplings(job)) {
    const Setting transitions = block->get("imatrso");
    if (transitions.integer() == -2 && !block->is("ifgs", 1) && !is_open_to_additions(*block)) {
      report
          .add("'imatrso' -2 asks for transitions from the ground state, which 'ifgs' 1 brings in.")
          .at(transitions, "needs ifgs 1")
          .related(block->get("ifgs"), "without the ground state")
          .fix("set ifgs to 1", entry_set(job, *block, "ifgs", "1"));
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"soc.needs_nfiles", check_needs_nfiles},
    {"soc.nfiles_vs_istore", check_nfiles_vs_istore},
    {"soc.istore_numbers", check_istore_numbers},
    {"soc.needs_hsoc", check_needs_hsoc},
    {"soc.reference_unrestricted", check_reference_unrestricted},
    {"soc.isoc1_open_shell", check_isoc1_open_shell},
    {"soc.open_shell_needs_xtda", check_open_shell_needs_xtda},
    {"soc.open_shell_needs_itrans", check_open_shell_needs_itrans},
    {"soc.order", check_order},
    {"soc.matrix_row_count", check_matrix_row_count},
    {"soc.matrix_file", check_matrix_file},
    {"soc.matrix_limit", check_matrix_limit},
    {"soc.keyword_without_isoc", check_keyword_without_isoc},
    {"soc.ground_transition_needs_ifgs", check_ground_transition_needs_ifgs},
});

}  // namespace

std::span<const Rule> soc_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
