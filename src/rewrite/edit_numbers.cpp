// Charge and multiplicity. A header states them for the whole input; a `$scf` that repeats them
// must not say otherwise. An input of modules states them in its `$scf`, all that belong to one
// system alike. A system is what one `$compass` begins; of several none is meant before others.

#include <algorithm>
#include <string>
#include <vector>

#include "kelp/input/bdf/value_path.hpp"
#include "model/molecule_names.hpp"
#include "model/same_value.hpp"
#include "rewrite/edit_parts.hpp"

namespace kelp::input::bdf {
namespace {

/// A `$scf`, its number among them, and the number of its system.
struct Scf {
  Module* module;
  std::size_t number;
  std::size_t system;
};

class NumberEdit {
 public:
  NumberEdit(EditContext& context, const char* name, int number)
      : context_(context), name_(name), values_({std::to_string(number)}) {}

  Problem run() {
    const bool in_header = homes_of_numbers(context_.data, context_.schema()).header;
    if (in_header) {
      put_keyword(context_, name_, values_.front());
    }
    const std::vector<Scf> modules = scf_modules();
    std::vector<ModuleEntry*> stated;
    for (const Scf& scf : modules) {
      if (ModuleEntry* const entry = find_entry(*scf.module)) {
        stated.push_back(entry);
      }
    }
    Problem problem = check_alike(stated);
    if (problem.empty() && !in_header && stated.size() < modules.size()) {
      problem = check_one_system(modules);
    }
    if (!problem.empty()) {
      return problem;
    }
    for (ModuleEntry* const entry : stated) {
      put_values(*entry, values_);
    }
    return in_header ? Problem() : state_where_missing(modules);
  }

 private:
  std::vector<Scf> scf_modules() {
    std::vector<Scf> found;
    std::size_t system = 0;
    for (Module& module : context_.data.modules) {
      const std::string name = context_.schema().canonical_module(module.name);
      system += name == compass_module ? 1 : 0;
      if (name == scf_module) {
        found.push_back({&module, found.size(), system});
      }
    }
    return found;
  }

  ModuleEntry* find_entry(Module& module) const {
    const std::string wanted = context_.schema().canonical_entry(module.name, name_);
    const auto found =
        std::find_if(module.entries.begin(), module.entries.end(), [&](const ModuleEntry& entry) {
          return context_.schema().canonical_entry(module.name, entry.name) == wanted;
        });
    return found == module.entries.end() ? nullptr : &*found;
  }

  std::string path_in(std::size_t number) const {
    return to_string({PathKind::Entry, scf_module, number, name_, {}});
  }

  Problem check_alike(const std::vector<ModuleEntry*>& stated) const {
    const bool alike = std::all_of(stated.begin(), stated.end(), [&](const ModuleEntry* entry) {
      return same_values(entry->values, stated.front()->values);
    });
    return alike ? Problem()
                 : std::string("the $") + scf_module + " modules state more than one '" + name_ +
                       "'; name the one to change: " + path_in(0) + ", " + path_in(1) + " ...";
  }

  Problem check_one_system(const std::vector<Scf>& modules) const {
    if (modules.empty() || modules.front().system == modules.back().system) {
      return {};
    }
    std::string list;
    for (const Scf& scf : modules) {
      list += (list.empty() ? "" : ", ") + path_in(scf.number);
    }
    return std::string("the input has more than one system, each with its $") + compass_module +
           "; name the '" + name_ + "' to change: " + list;
  }

  Problem state_where_missing(const std::vector<Scf>& modules) {
    if (modules.empty()) {
      return set_entry(context_, {{PathKind::Entry, scf_module, 0, name_, {}}, values_});
    }
    for (const Scf& scf : modules) {
      if (find_entry(*scf.module) == nullptr) {
        add_entry(context_, *scf.module, name_, values_);
      }
    }
    return {};
  }

  EditContext& context_;
  const char* name_;
  std::vector<std::string> values_;
};

}  // namespace

Problem set_charge_and_multiplicity(EditContext& context) {
  const Edit& edit = context.edit;
  Problem problem = edit.charge ? NumberEdit(context, charge_name, *edit.charge).run() : Problem();
  if (problem.empty() && edit.multiplicity) {
    problem = NumberEdit(context, multiplicity_name, *edit.multiplicity).run();
  }
  return problem;
}

}  // namespace kelp::input::bdf
