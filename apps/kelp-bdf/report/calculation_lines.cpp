// A calculation in a few lines: a line for each molecule, for its basis sets and for each SCF, one
// for the method and one for all tasks. What is not known has no line.

#include <fmt/format.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/core/unicode.hpp"
#include "report/outline.hpp"

namespace kelp::app {
namespace {

using input::bdf::Calculation;

constexpr std::size_t longest_name = 60;

std::string shown(std::string_view name) {
  return core::unicode::fitted(core::unicode::displayable(name), longest_name);
}

std::string joined(const std::vector<std::string>& parts) {
  return fmt::format("{}", fmt::join(parts, ", "));
}

std::string origin_text(bool is_default, const Calculation::Origin& origin) {
  return is_default ? " (default)" : fmt::format(" (line {})", origin.line);
}

std::string basis_text(const Calculation::Basis& basis) {
  const std::string name = shown(basis.name.name);
  return basis.labels.empty()
             ? name
             : name + " for " + shown(fmt::format("{}", fmt::join(basis.labels, " ")));
}

class LineWriter {
 public:
  explicit LineWriter(const Calculation& calculation) : calculation_(calculation) {}

  std::vector<std::string> run() {
    for (std::size_t i = 0; i < calculation_.systems.size(); ++i) {
      add_system(calculation_.systems[i]);
      for (const Calculation::Scf& scf : calculation_.scfs) {
        if (scf.system == i) {
          add_scf(scf);
        }
      }
    }
    if (const auto& method = calculation_.method) {
      add("method", {shown(method->name)}, method->origin);
    }
    add_tasks();
    return lines_;
  }

 private:
  void add(std::string_view what, const std::vector<std::string>& parts,
           const Calculation::Origin& origin) {
    if (!parts.empty()) {
      lines_.push_back(fmt::format("  {:<14}{}  (line {})", what, joined(parts), origin.line));
    }
  }

  void add_system(const Calculation::System& system) {
    if (!system.formula.empty()) {
      add("molecule", {shown(system.formula)}, system.origin);
    }
    std::vector<std::string> parts;
    parts.reserve(system.basis_sets.size() + 1);
    for (const Calculation::Basis& basis : system.basis_sets) {
      parts.push_back(basis_text(basis));
    }
    if (system.has_inline_basis) {
      parts.emplace_back("data of its own");
    }
    add(parts.size() > 1 ? "basis sets" : "basis set", parts,
        system.basis_sets.empty() ? system.origin : system.basis_sets.front().name.origin);
  }

  void add_scf(const Calculation::Scf& scf) {
    std::vector<std::string> parts;
    if (scf.reference) {
      parts.push_back(scf.reference->name + (scf.reference->is_default ? " (default)" : ""));
    }
    if (scf.functional) {
      parts.push_back(shown(scf.functional->name));
    }
    if (scf.charge) {
      parts.push_back(fmt::format("charge {}", scf.charge->value) +
                      origin_text(scf.charge->is_default, scf.charge->origin));
    }
    if (scf.multiplicity) {
      parts.push_back(fmt::format("multiplicity {}", scf.multiplicity->value) +
                      origin_text(scf.multiplicity->is_default, scf.multiplicity->origin));
    }
    if (scf.electrons) {
      parts.push_back(fmt::format("{} electron{}", *scf.electrons, *scf.electrons == 1 ? "" : "s"));
    }
    add("SCF", parts, scf.origin);
  }

  // The same task several times in a row is told once, with all its lines.
  void add_tasks() {
    std::vector<std::string> parts;
    const std::vector<Calculation::Task>& tasks = calculation_.tasks;
    for (std::size_t i = 0; i < tasks.size();) {
      std::vector<std::size_t> at;
      const auto kind = tasks[i].kind;
      for (; i < tasks.size() && tasks[i].kind == kind; ++i) {
        at.push_back(tasks[i].origin.line);
      }
      parts.push_back(fmt::format("{} (line{} {})", input::bdf::to_string(kind),
                                  at.size() == 1 ? "" : "s", fmt::join(at, ", ")));
    }
    if (!parts.empty()) {
      lines_.push_back(fmt::format("  {:<14}{}", "tasks", joined(parts)));
    }
  }

  const Calculation& calculation_;
  std::vector<std::string> lines_;
};

}  // namespace

std::vector<std::string> calculation_lines(const Calculation& calculation) {
  return LineWriter(calculation).run();
}

}  // namespace kelp::app
