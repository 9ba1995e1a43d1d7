// Hessians and what is computed from them: a search for a saddle point begins with one, and
// thermochemistry needs the degeneracy of the electrons, temperatures and pressures.

#include <algorithm>
#include <array>

#include "advice/report.hpp"
#include "advice/themes.hpp"

namespace kelp::input::bdf {
namespace {

bool has_excited_gradient(const Job& job) {
  const std::vector<const Block*> all = job.all("resp");
  return std::any_of(all.begin(), all.end(),
                     [](const Block* resp) { return resp->is("imethod", 2); });
}

void check_numerical_hessian_with_irreps(const Job& job, Report& report) {
  const std::vector<const Block*> drivers = job.all("bdfopt");
  if (drivers.empty() || !drivers.front()->has("hess") || !has_excited_gradient(job)) {
    return;
  }
  for (const Block* const tddft : job.all("tddft")) {
    const Setting list = tddft->get("nroot");
    if (list.words().size() > 1 && list.integers() && job.is_complete() &&
        job.may_have_symmetry(job.system_of(*tddft))) {
      report
          .add("The steps of the Hessian have no symmetry, and '{}' has {} representations.",
               {list.name(), std::to_string(list.words().size())})
          .at(list, "fits the first structure only")
          .related(drivers.front()->get("hess"), "moves each atom")
          .help("write 'nosymm' in $compass, and one number of states");
    }
  }
}

// The multiplicity that every SCF states; unset when one states none, or another.
std::optional<std::int64_t> common_multiplicity(const Job& job) {
  std::optional<std::int64_t> common;
  for (const Scf& scf : job.scfs) {
    const auto stated = scf.stated_multiplicity();
    if (!stated || (common && *common != *stated)) {
      return std::nullopt;
    }
    common = stated;
  }
  return common;
}

void check_ndeg_missing(const Job& job, Report& report) {
  const auto multiplicity = common_multiplicity(job);
  for (const Block* const block : job.all("bdfopt")) {
    const Setting hess = block->get("hess");
    if (hess && !hess.is("init") && !block->has("ndeg") && !block->has("imulti") &&
        !block->has("multistate") && block->is_whole() && multiplicity && *multiplicity > 1) {
      const std::string number = text_of(*multiplicity);
      report.add("The entropy is computed for a singlet, and the multiplicity is {}.", {number})
          .at(hess, "leads to thermochemistry")
          .related(job.scfs.front().multiplicity, "the multiplicity")
          .help("'ndeg' is the degeneracy of the electrons: the multiplicity, more in space")
          .ask("add 'ndeg'", entry_added(job, *block, "ndeg", number));
    }
  }
}

struct Dependence {
  std::string_view entry;
  std::string_view first;   ///< has an effect with this,
  std::string_view second;  ///< or with this
};

constexpr auto parts_of_parallel_hessians =
    std::to_array<Dependence>({{"ncorepergrad", "o1numhess", "parhess"},
                               {"nodeletegradfiles", "o1numhess", "parhess"},
                               {"dmax", "o1numhess", "o1numhess"}});
constexpr auto parts_of_hessians = std::to_array<std::string_view>(
    {"numhessstep", "usenumhess", "parhess", "o1numhess", "restarthess"});

void report_without_effect(const Setting& setting, const std::string& help, Report& report) {
  report.add("'{}' has no effect here.", {setting.name()})
      .at_keyword(setting, "has no effect")
      .help(help);
}

void check_hess_option_without_effect(const Job& job, Report& report) {
  for (const Block* const block : job.all("bdfopt")) {
    const bool has_hessian = block->has("hess") || block->has("recalchess") ||
                             block->has("rmimag") || block->is("update", 0);
    if (!block->is_whole()) {
      continue;
    }
    for (const std::string_view name : parts_of_hessians) {
      if (block->has(name) && !has_hessian) {
        report_without_effect(block->get(name), "ask for a Hessian with 'hess'", report);
      }
    }
    for (const Dependence& it : parts_of_parallel_hessians) {
      if (block->has(it.entry) && !block->has(it.first) && !block->has(it.second)) {
        report_without_effect(block->get(it.entry), "it belongs to '" + std::string(it.first) + "'",
                              report);
      }
    }
  }
}

bool has_start_hessian(const Block& block) {
  const Setting hess = block.get("hess");
  return hess.is("init") || hess.is("init+final") || hess.is("only") || block.has("readhess") ||
         block.is("update", 0);
}

void check_ts_without_hessian(const Job& job, Report& report) {
  for (const Block* const block : job.all("bdfopt")) {
    constexpr std::int64_t saddle_point = 10;
    const Setting hess = block->get("hess");
    if (!block->is("iopt", saddle_point) || has_start_hessian(*block) || !block->is_whole() ||
        block->has("dimer") || block->has("dimer-block")) {
      continue;
    }
    report.add("The search for a saddle point begins without a Hessian.")
        .at(block->get("iopt"), "a saddle point")
        .related(hess, "computed at the end only")
        .help("a saddle point is rarely found from a guessed Hessian")
        .ask("compute it before and after", hess ? value_replaced(hess, "init+final")
                                                 : entry_added(job, *block, "hess", "init+final"));
  }
}

struct CountedList {
  Setting count;
  Setting list;
  const Block* block;
};

std::vector<CountedList> conditions_of(const Job& job) {
  std::vector<CountedList> all;
  for (const Block* const block : job.all("bdfopt")) {
    all.push_back({block->get("ntemp"), block->get("temp"), block});
    all.push_back({block->get("npress"), block->get("press"), block});
  }
  return all;
}

void check_ntemp_before_temp(const Job& job, Report& report) {
  for (const CountedList& it : conditions_of(job)) {
    if (it.count && it.list && it.list.keyword().begin < it.count.keyword().begin) {
      const std::string list(it.list.name());
      report.add("'{}' stands behind '{}', which is read by it.", {it.count.name(), list})
          .at_keyword(it.count, "comes too late")
          .related(it.list.keyword(), "has one value")
          .fix_all("move it before '" + list + "'",
                   moved_before(job, it.count.record(), it.list.record()));
    }
  }
}

void check_temp_count(const Job& job, Report& report) {
  for (const CountedList& it : conditions_of(job)) {
    const auto announced = it.count ? it.count.integer() : 1;
    const std::string listed = std::to_string(it.list.words().size());
    if (!it.list || !announced || it.block->is_elided || text_of(*announced) == listed) {
      continue;
    }
    const std::string name = it.list.name().substr(0, 1) == "t" ? "ntemp" : "npress";
    Finding& finding = report
                           .add("'{}' has {} values, and '{}' is {}.",
                                {it.list.name(), listed, name, text_of(*announced)})
                           .at(it.list, listed + " values")
                           .related(it.count, "how many are read");
    TextEdit before = entry_added(job, *it.block, name, listed);
    before.range.begin = job.input.range(it.list.record()).begin;
    before.range.end = before.range.begin;
    finding.ask("read " + listed, it.count ? value_replaced(it.count, listed) : before);
  }
}

void check_hess_file_missing(const Job& job, Report& report) {
  const bool is_copied =
      std::any_of(job.shell_lines.begin(), job.shell_lines.end(),
                  [](const ShellLine& line) { return line.text.find(".hess") != Word::npos; });
  if (job.folder == nullptr || is_copied || job.folder->has_file(job.folder->job_name + ".hess")) {
    return;
  }
  const std::string file = job.folder->job_name + ".hess";
  for (const Block* const block : job.all("bdfopt")) {
    if (block->has("readhess")) {
      report.add("'readhess' reads {}, which is not there.", {file})
          .at_keyword(block->get("readhess"), "nothing to read")
          .help("copy the Hessian into the folder under the name of this input");
    }
  }
  for (const Block* const path : job.all("irc")) {
    report.add("$irc reads {}, which is not there.", {file})
        .at(*path, "nothing to begin with")
        .help("copy the Hessian of the saddle point into the folder under the name of this input");
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"optimisation.ts_without_hessian", check_ts_without_hessian},
    {"optimisation.numerical_hessian_with_irreps", check_numerical_hessian_with_irreps},
    {"optimisation.ndeg_missing", check_ndeg_missing},
    {"optimisation.hess_option_without_effect", check_hess_option_without_effect},
    {"optimisation.ntemp_before_temp", check_ntemp_before_temp},
    {"optimisation.temp_count", check_temp_count},
    {"optimisation.hess_file_missing", check_hess_file_missing},
});

}  // namespace

std::span<const Rule> optimisation_hessian_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
