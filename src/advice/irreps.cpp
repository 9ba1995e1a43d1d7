// Lists with a number for each irreducible representation: their lengths are held against the group
// that is named, and against each other where none is.

#include <array>

#include "advice/excited_states.hpp"
#include "advice/point_group.hpp"
#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

/// Numbers of which there is one for each irreducible representation.
struct List {
  const Block* block = nullptr;  ///< null for the header
  Setting setting;
  TextRange range;       ///< of the numbers
  std::size_t size = 0;  ///< how many there are
};

void add_list(const Job& job, const Block* block, const Setting& setting, std::vector<List>& all) {
  const auto numbers = setting.integers();
  // Where steps of a numerical Hessian run in C(1), so do their lists.
  const bool is_of_steps = numbers && numbers->size() == 1 && job.is_driven();
  if (numbers && !numbers->empty() && !is_of_steps) {
    all.push_back({block, setting, setting.range(), numbers->size()});
  }
}

// The lines of pairs of orbitals behind their number: each is a list.
void add_pairs(const Job& job, const Block& block, const Setting& setting, std::vector<List>& all) {
  const std::vector<std::vector<Word>> rows = setting.rows();
  if (!setting.integers() || rows.empty() || rows.front().size() != 1) {
    return;
  }
  for (std::size_t i = 1; i < rows.size(); ++i) {
    all.push_back(
        {&block,
         setting,
         {range_of(job.input, rows[i].front()).begin, range_of(job.input, rows[i].back()).end},
         rows[i].size()});
  }
}

std::vector<List> lists_of(const Job& job, const System& system) {
  std::vector<List> all;
  // TDDFT of open shells falls back to a subgroup of a group that is not Abelian.
  const bool may_fall_back = is_non_abelian(job, point_group_of(job, system));
  for (const Block* const block : system.blocks) {
    if (block->is_elided) {
      continue;
    }
    if (block->name == "scf") {
      for (const char* const name : {"occupy", "alpha", "beta"}) {
        add_list(job, block, block->get(name), all);
      }
      add_pairs(job, *block, block->get("hpalpha"), all);
      add_pairs(job, *block, block->get("hpbeta"), all);
    } else if (block->name == "mcscf") {
      for (const char* const name : {"core", "delete", "close", "active"}) {
        add_list(job, block, block->get(name), all);
      }
    } else if (block->name == "tddft" && !(may_fall_back && is_open(shell_of(job, *block)))) {
      for (const char* const name : {"nroot", "frzcore", "frzvirt"}) {
        add_list(job, block, block->get(name), all);
      }
    }
  }
  if (&system == job.systems.data() && !may_fall_back) {
    add_list(job, nullptr, job.header("nroot"), all);
  }
  return all;
}

/// How many irreducible representations there are, and by what.
struct Irreps {
  std::size_t count = 0;  ///< 0 when it is not known
  Setting reason;
  std::string names;
};

Irreps irreps_of(const Job& job, const System& system) {
  const bool is_off = system.compass != nullptr && system.compass->has("nosymm");
  const PointGroup group = point_group_of(job, system);
  if (is_off) {
    return {group.setting ? 0U : 1U, system.compass->get("nosymm"), "A"};
  }
  // Linear groups run as finite ones whose numbers the manual does not give.
  if (!group || group.name.ends_with("(lin)")) {
    return {};
  }
  const std::vector<std::string> names = job.knowledge().irreps_of(group.name);
  return {names.size(), group.setting, core::text::join(names, " ")};
}

void check_irrep_count(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    const Irreps irreps = irreps_of(job, system);
    if (irreps.count == 0) {
      continue;
    }
    for (const List& list : lists_of(job, system)) {
      if (list.size == irreps.count) {
        continue;
      }
      const bool is_short = list.size < irreps.count;
      report
          .add("'{}' has {} numbers, and there are {} irreducible representations.",
               {list.setting.name(), std::to_string(list.size), std::to_string(irreps.count)})
          .as(is_short ? Severity::Error : Severity::Warning)
          .at(list.range, is_short ? "too few numbers" : "too many numbers")
          .related(irreps.reason, "the symmetry")
          .help("one number for each: " + irreps.names);
    }
  }
}

// Tells whether another rule holds two lists against each other: those of one entry, and alpha
// against beta.
bool are_held_elsewhere(const List& left, const List& right) {
  const auto is_spin = [](const List& list) {
    return core::text::equals_ignoring_case(list.setting.name(), "alpha") ||
           core::text::equals_ignoring_case(list.setting.name(), "beta");
  };
  return left.block == right.block &&
         (left.setting.record() == right.setting.record() || (is_spin(left) && is_spin(right)));
}

void check_irrep_lists_differ(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    const std::vector<List> lists = lists_of(job, system);
    if (irreps_of(job, system).count > 0 || lists.empty()) {
      continue;
    }
    const List& first = lists.front();
    for (const List& list : lists) {
      if (list.size != first.size && !are_held_elsewhere(first, list)) {
        report
            .add("'{}' has {} numbers, and '{}' has {}.",
                 {list.setting.name(), std::to_string(list.size), first.setting.name(),
                  std::to_string(first.size)})
            .at(list.range, "another number of irreducible representations")
            .related(first.range, "the first list")
            .help("each list has one number for each irreducible representation");
      }
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"symmetry.irrep_count", check_irrep_count},
    {"symmetry.irrep_lists_differ", check_irrep_lists_differ},
});

}  // namespace

std::span<const Rule> irrep_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
