// What an input computes. A module is a task by its name, or by its entries where the name does not
// tell: `$bdfopt` and `$resp` do several things. The header asks for an SCF, for what its method
// makes of that, and for what its task words say. Where a module is there for what the header asks,
// it takes the place of the word, for the modules of an easy input only set what the program makes
// of the header.

#include "advice/tasks.hpp"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "advice/excited_states.hpp"

namespace kelp::input::bdf {
namespace {

using Task = Calculation::Task;
using Kinds = std::vector<TaskKind>;

struct NamedTask {
  std::string_view name;
  TaskKind kind;
};

// Modules that are one task whatever their entries say. Those that only prepare another are none.
constexpr std::array<NamedTask, 13> modules = {{{"scf", TaskKind::Scf},
                                                {"mp2", TaskKind::Mp2},
                                                {"mcscf", TaskKind::Mcscf},
                                                {"mrci", TaskKind::MultiReference},
                                                {"xianci", TaskKind::MultiReference},
                                                {"grad", TaskKind::Gradient},
                                                {"numgrad", TaskKind::Gradient},
                                                {"irc", TaskKind::ReactionPath},
                                                {"nmr", TaskKind::NmrShieldings},
                                                {"elecoup", TaskKind::ElectronicCoupling},
                                                {"localmo", TaskKind::LocalOrbitals},
                                                {"autofrag", TaskKind::Fragmentation},
                                                {"vgmfci", TaskKind::VibronicStates}}};

constexpr std::array<std::string_view, 20> names = {"SCF",
                                                    "MP2",
                                                    "MCSCF",
                                                    "multi-reference correlation",
                                                    "TDDFT",
                                                    "spin-orbit coupling",
                                                    "non-adiabatic couplings",
                                                    "response properties",
                                                    "gradient",
                                                    "geometry optimisation",
                                                    "transition state search",
                                                    "frequencies",
                                                    "rigid scan",
                                                    "relaxed scan",
                                                    "reaction path",
                                                    "NMR shieldings",
                                                    "electronic coupling",
                                                    "localised orbitals",
                                                    "fragmentation",
                                                    "vibronic states"};

// The search of a `$bdfopt`, before or without frequencies.
TaskKind search_of(const Block& block) {
  if (block.has("scan")) {
    return TaskKind::RelaxedScan;
  }
  if (block.has("neb") || block.has("neb-block")) {
    return TaskKind::ReactionPath;
  }
  constexpr std::int64_t saddle_point = 10;
  const bool is_saddle =
      block.has("dimer") || block.has("dimer-block") || block.is("iopt", saddle_point);
  return is_saddle ? TaskKind::TransitionState : TaskKind::Optimisation;
}

// What was left out, or is misspelt, may be what tells the task.
Kinds kinds_of_optimiser(const Block& block) {
  const Setting hess = block.get("hess");
  if (hess.is("only")) {
    return {TaskKind::Frequencies};
  }
  if (is_open_to_additions(block)) {
    return {};
  }
  if (!hess || hess.is("init")) {
    return {search_of(block)};
  }
  const bool ends_with_frequencies = hess.is("final") || hess.is("init+final");
  return ends_with_frequencies ? Kinds{search_of(block), TaskKind::Frequencies} : Kinds{};
}

TaskKind kind_of_response(const Block& block) {
  if (block.has("fnac")) {
    return TaskKind::NonadiabaticCouplings;
  }
  const bool is_first_order = !block.has("norder") || block.is("norder", 1);
  const bool is_sure = !is_open_to_additions(block) && !block.has("quad");
  return block.has("geom") && is_first_order && is_sure ? TaskKind::Gradient : TaskKind::Response;
}

Kinds kinds_of(const Block& block) {
  if (block.name == "bdfopt") {
    return kinds_of_optimiser(block);
  }
  if (block.name == "resp") {
    return {kind_of_response(block)};
  }
  if (block.name == "tddft") {
    return {is_coupling_step(block) ? TaskKind::SpinOrbitCoupling : TaskKind::Tddft};
  }
  const auto* const found =
      std::find_if(modules.begin(), modules.end(),
                   [&](const NamedTask& candidate) { return candidate.name == block.name; });
  return found == modules.end() ? Kinds{} : Kinds{found->kind};
}

std::vector<Task> tasks_of_modules(const Job& job) {
  std::vector<Task> tasks;
  for (const Block& block : job.blocks) {
    for (const TaskKind kind : kinds_of(block)) {
      tasks.push_back(
          {kind, block.system,
           origin_of(job.input, block.record(), job.input.keyword_range(block.record()))});
    }
  }
  return tasks;
}

/// Reads the header.
class HeaderTasks {
 public:
  explicit HeaderTasks(const Job& job) : job_(job) {}

  std::vector<Task> run() {
    add_energies();
    add_task_words();
    return std::move(tasks_);
  }

 private:
  // A functional without a method is that of a Kohn-Sham calculation.
  void add_energies() {
    if (!has_known_method(job_)) {
      return;
    }
    const std::string method = job_.method();
    const RecordId record = RecordId::of(RecordKind::EasyToken, job_.specification().value_or(0));
    add(TaskKind::Scf, record);
    if (method == "mp2" || method == "ri-mp2") {
      add(TaskKind::Mp2, record);
    }
    if (has_excited_method(job_)) {
      add(TaskKind::Tddft, record);
      add_couplings(method, "soc", TaskKind::SpinOrbitCoupling);
      add_couplings(method, "nac", TaskKind::NonadiabaticCouplings);
    }
  }

  // As the last part of the method or as a keyword.
  void add_couplings(std::string_view method, std::string_view word, TaskKind kind) {
    if (method.ends_with("-" + std::string(word))) {
      add(kind, RecordId::of(RecordKind::EasyToken, job_.specification().value_or(0)));
    } else if (const RecordId record = stated(word)) {
      add(kind, record);
    }
  }

  void add_task_words() {
    static const std::vector<std::pair<std::string_view, Kinds>> words = {
        {"opt", {TaskKind::Optimisation}},
        {"freq", {TaskKind::Frequencies}},
        {"opt+freq", {TaskKind::Optimisation, TaskKind::Frequencies}},
        {"optfreq", {TaskKind::Optimisation, TaskKind::Frequencies}},
        {"ts+freq", {TaskKind::TransitionState, TaskKind::Frequencies}},
        {"scan", {TaskKind::RigidScan}},
        {"scan+opt", {TaskKind::RelaxedScan}},
        {"scanopt", {TaskKind::RelaxedScan}},
        {"irc", {TaskKind::ReactionPath}}};
    const std::size_t first = tasks_.size();
    for (const auto& [word, kinds] : words) {
      if (const RecordId record = stated(word)) {
        for (const TaskKind kind : kinds) {
          add(kind, record);
        }
      }
    }
    std::stable_sort(tasks_.begin() + static_cast<std::ptrdiff_t>(first), tasks_.end(),
                     [](const Task& left, const Task& right) {
                       return left.origin.record.index < right.origin.record.index;
                     });
  }

  // Returns the record of a keyword unless it says no.
  RecordId stated(std::string_view keyword) const {
    const Setting setting = job_.header(keyword);
    return setting.is("false") ? RecordId{} : setting.record();
  }

  void add(TaskKind kind, const RecordId& record) {
    tasks_.push_back(
        {kind, 0, origin_of(job_.input, record, job_.input.token_ranges(record.index).whole)});
  }

  const Job& job_;
  std::vector<Task> tasks_;
};

}  // namespace

std::string_view to_string(TaskKind kind) noexcept {
  const auto number = static_cast<std::size_t>(kind);
  return number < names.size() ? names[number] : "unknown";
}

Calculation::Origin origin_of(const ParsedInput& input, const RecordId& record,
                              const TextRange& range) {
  return {record, input.first_line(record), range};
}

bool has_known_method(const Job& job) {
  const std::string method = job.method();
  return job.specification() && (method.empty() ? job.schema().is_known_functional(job.functional())
                                                : job.schema().is_known_method(method));
}

std::vector<Task> tasks_of(const Job& job) {
  std::vector<Task> tasks;
  std::vector<Task> of_modules = tasks_of_modules(job);
  for (const Task& task : HeaderTasks(job).run()) {
    const auto rest = std::stable_partition(of_modules.begin(), of_modules.end(),
                                            [&](const Task& it) { return it.kind == task.kind; });
    if (rest == of_modules.begin()) {
      tasks.push_back(task);
    } else {
      std::move(of_modules.begin(), rest, std::back_inserter(tasks));
      of_modules.erase(of_modules.begin(), rest);
    }
  }
  std::move(of_modules.begin(), of_modules.end(), std::back_inserter(tasks));
  return tasks;
}

}  // namespace kelp::input::bdf
