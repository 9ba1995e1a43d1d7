// How `$bdfopt` moves atoms. It has two optimisers, an external library (solver 0, which it takes
// unless it is told) and one of its own (solver 1), and most of what can be asked for works with
// one of them only. What paths and scans consist of is the subject of
// `optimisation_paths.cpp`.

#include <algorithm>
#include <array>

#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/number.hpp"

namespace kelp::input::bdf {
namespace {

std::optional<std::int64_t> solver_of(const Block& block) {
  return block.has("solver") ? block.get("solver").integer() : 0;
}

Setting first_of(const Block& block, std::initializer_list<std::string_view> names) {
  for (const std::string_view name : names) {
    if (block.has(name)) {
      return block.get(name);
    }
  }
  return {};
}

// A search that the external library alone can do.
Setting library_search_of(const Block& block) {
  return first_of(block, {"dimer", "dimer-block", "neb", "neb-block"});
}

bool keeps_orientation(const Block& compass) {
  return compass.has("norotate") || compass.has("nosymm") || compass.is_elided ||
         compass.get("group").text().starts_with("gen");
}

void check_dlfind_needs_norotate(const Job& job, Report& report) {
  for (const Block* const block : job.all("bdfopt")) {
    const Setting search = library_search_of(*block);
    const Block* const compass = job.system_of(*block).compass;
    const bool is_wanted = block->has("solver") || search;
    if (!is_wanted || solver_of(*block) != 0 || compass == nullptr || !job.is_complete() ||
        !job.data().modules[compass->index].terminated || keeps_orientation(*compass)) {
      continue;
    }
    const auto atoms = job.system_of(*block).geometry.size();
    constexpr std::size_t few = 3;
    const std::string word = atoms && *atoms <= few ? "nosymm" : "norotate";
    report.add("This optimiser must not have its molecule turned: $compass needs '{}'.", {word})
        .at(block->has("solver") ? block->get("solver") : search, "keeps its own orientation")
        .related(*compass, "turns the molecule")
        .fix("add '" + word + "' to $compass", entry_added(job, *compass, word));
  }
}

void check_dlfind_only(const Job& job, Report& report) {
  for (const Block* const block : job.all("bdfopt")) {
    const Setting search = library_search_of(*block);
    if (search && solver_of(*block) == 1) {
      report.add("'{}' works with 'solver' 0 only.", {search.name()})
          .at(block->get("solver"), "must be 0")
          .related(search.keyword(), "needs the other optimiser")
          .fix("write '0'", value_replaced(block->get("solver"), "0"));
    }
  }
}

void check_dimer_neb_iopt(const Job& job, Report& report) {
  for (const Block* const block : job.all("bdfopt")) {
    const Setting search = library_search_of(*block);
    const auto kind = block->get("iopt").integer();
    constexpr std::int64_t minimum = 3;
    if (search && kind && *kind != minimum) {
      report.add("'{}' works with 'iopt' 3 only, which it has by itself.", {search.name()})
          .at(block->get("iopt"), "must be 3")
          .related(search.keyword(), "the search")
          .fix("leave 'iopt' out", removed(job, block->get("iopt")));
    }
  }
}

// That `scan` needs `solver` is said by the vocabulary, but not of which value.
void check_scan_needs_solver1(const Job& job, Report& report) {
  for (const Block* const block : job.all("bdfopt")) {
    if (block->has("scan") && block->has("solver") && solver_of(*block) == 0 &&
        !job.header("scan") && !job.header("scan+opt")) {
      report.add("'scan' works with 'solver' 1 only.")
          .at(block->get("solver"), "must be 1")
          .related(block->get("scan").keyword(), "needs the other optimiser")
          .fix("write '1'", value_replaced(block->get("solver"), "1"));
    }
  }
}

void check_constrain_needs_solver1(const Job& job, Report& report) {
  for (const Block* const block : job.all("bdfopt")) {
    if (!block->has("constrain") || solver_of(*block) != 0 || !block->is_whole() ||
        !job.is_complete()) {
      continue;
    }
    const Setting solver = block->get("solver");
    const Setting constrain = block->get("constrain");
    report.add("'{}' works with 'solver' 1 only.", {constrain.name()})
        .at_keyword(constrain, "needs the other optimiser")
        .related(solver, "must be 1")
        .ask("use the other optimiser",
             solver ? value_replaced(solver, "1") : entry_added(job, *block, "solver", "1"));
  }
}

void check_frozen_code_solver1(const Job& job, Report& report) {
  for (const Block* const block : job.all("bdfopt")) {
    std::vector<std::vector<Word>> rows = block->get("frozen").rows();
    if (rows.empty() || solver_of(*block) != 1) {
      continue;
    }
    rows.erase(rows.begin());
    for (const std::vector<Word>& row : rows) {
      const auto code = core::number::parse_integer(row.back());
      if (row.size() == 2 && code && *code != 0 && *code != -1) {
        report.add("With 'solver' 1 an atom is free (0) or frozen (-1), not {}.", {row.back()})
            .at(row.back(), "for 'solver' 0 only")
            .related(block->get("solver"), "the optimiser")
            .help("freeze the whole atom, or use 'solver' 0");
      }
    }
  }
}

void check_iopt_solver1(const Job& job, Report& report) {
  for (const Block* const block : job.all("bdfopt")) {
    const auto kind = block->get("iopt").integer();
    constexpr std::int64_t minimum = 3;
    constexpr std::int64_t saddle_point = 10;
    if (kind && solver_of(*block) == 1 && *kind != minimum && *kind != saddle_point) {
      report.add("With 'solver' 1 'iopt' is 3 or 10, not {}.", {text_of(*kind)})
          .at(block->get("iopt"), "for 'solver' 0 only")
          .related(block->get("solver"), "the optimiser")
          .help("3 searches a minimum, 10 a saddle point");
    }
  }
}

void check_trust_zero(const Job& job, Report& report) {
  for (const Block* const block : job.all("bdfopt")) {
    if (block->get("trust").number() == 0.0) {
      report.add("A trust radius of 0 allows no step.")
          .at(block->get("trust"), "must not be 0")
          .help("usual are 0.005 to 0.5; a negative one is never exceeded");
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"optimisation.dlfind_needs_norotate", check_dlfind_needs_norotate},
    {"optimisation.dlfind_only", check_dlfind_only},
    {"optimisation.dimer_neb_iopt", check_dimer_neb_iopt},
    {"optimisation.scan_needs_solver1", check_scan_needs_solver1},
    {"optimisation.constrain_needs_solver1", check_constrain_needs_solver1},
    {"optimisation.frozen_code_solver1", check_frozen_code_solver1},
    {"optimisation.iopt_solver1", check_iopt_solver1},
    {"optimisation.trust_zero", check_trust_zero},
});

}  // namespace

std::span<const Rule> optimisation_steps_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
