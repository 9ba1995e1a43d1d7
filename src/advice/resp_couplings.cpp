// Couplings between states in `$resp`: of the ground state with excited ones (`single`, `states`)
// or of excited states with each other (`double`, `pairs`). That lists have as many rows as they
// announce is said by the vocabulary.

#include <array>

#include "advice/excited_states.hpp"
#include "advice/report.hpp"
#include "advice/themes.hpp"

namespace kelp::input::bdf {
namespace {

void check_fnac_needs_single_or_double(const Job& job, Report& report) {
  for (const Block* const block : job.all("resp")) {
    if (!block->has("fnac") || block->has("single") || block->has("double") ||
        is_open_to_additions(*block) || !job.is_complete()) {
      continue;
    }
    Finding& finding = report.add("'fnac' needs 'single' or 'double': which states are coupled?")
                           .at_keyword(block->get("fnac"), "couplings of which kind?")
                           .help("single: with the ground state; double: between excited states");
    if (block->has("states") != block->has("pairs")) {
      const std::string kind = block->has("states") ? "single" : "double";
      finding.ask("add " + kind, entry_added(job, *block, kind));
    }
  }
}

void report_missing_list(const Job& job, Report& report, const char* kind, const char* list) {
  for (const Block* const block : job.all("resp")) {
    if (block->has(kind) && !block->has(list) && !is_open_to_additions(*block) &&
        job.is_complete()) {
      report.add("'{}' needs '{}', the list of states to couple.", {block->get(kind).name(), list})
          .at_keyword(block->get(kind), "of which states?")
          .help(std::string("add ") + list + ": how many, then a row of file, representation and " +
                "number for each state");
    }
  }
}

void check_single_needs_states(const Job& job, Report& report) {
  report_missing_list(job, report, "single", "states");
}

void check_double_needs_pairs(const Job& job, Report& report) {
  report_missing_list(job, report, "double", "pairs");
}

void check_single_and_double(const Job& job, Report& report) {
  for (const Block* const block : job.all("resp")) {
    if (block->has("single") && block->has("double")) {
      report.add("'single' and 'double' need a $resp each.")
          .at_keyword(block->get("double"), "a second kind of couplings")
          .related(block->get("single").keyword(), "the first one")
          .help("give each its block, one after the other");
    }
  }
}

void check_nac_file_not_stored(const Job& job, Report& report) {
  for (const Block* const block : job.all("resp")) {
    const StoredStates stored = stored_before(job, *block);
    if (!stored.is_certain || !job.is_complete() || excitations_before(job, *block).empty()) {
      continue;
    }
    for (const CoupledState& state : coupled_states(*block)) {
      if (state.file && stored.find(*state.file) == nullptr) {
        report
            .add("No $tddft before stores its states as {}; stored are: {}.",
                 {state.file_word, stored.numbers()})
            .at(state.file_word, "must be an istore")
            .help("a row is file, representation and number of a state");
      }
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"resp.fnac_needs_single_or_double", check_fnac_needs_single_or_double},
    {"resp.single_needs_states", check_single_needs_states},
    {"resp.double_needs_pairs", check_double_needs_pairs},
    {"resp.single_and_double", check_single_and_double},
    {"resp.nac_file_not_stored", check_nac_file_not_stored},
});

}  // namespace

std::span<const Rule> resp_couplings_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
