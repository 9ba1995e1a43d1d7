#include "advice/excited_states.hpp"

#include <algorithm>

#include "kelp/core/number.hpp"

namespace kelp::input::bdf {
namespace {

// The program takes a closed shell for a singlet; without a multiplicity, for an even number of
// electrons.
Shell chosen_shell(const Job& job, const Scf& scf) {
  if (scf.multiplicity) {
    const auto stated = scf.stated_multiplicity();
    return !stated || *stated < 1 ? Shell::Unknown : *stated == 1 ? Shell::Closed : Shell::Open;
  }
  const auto electrons = scf.electrons();
  if (!electrons || *electrons <= 0 || job.may_have_odd_core(*scf.system)) {
    return Shell::Unknown;
  }
  return *electrons % 2 == 0 ? Shell::Closed : Shell::Open;
}

}  // namespace

Shell shell_of(const Job& job, const Scf* scf) {
  if (scf == nullptr) {
    return Shell::Unknown;
  }
  if (scf->reference) {
    return scf->is_restricted()     ? Shell::Closed
           : scf->is_unrestricted() ? Shell::Unrestricted
                                    : Shell::RestrictedOpen;
  }
  const bool is_contradictory = scf->block != nullptr && names_reference(*scf->block);
  const bool may_be_named = scf->block != nullptr && is_open_to_additions(*scf->block);
  return is_contradictory || may_be_named || !job.specification() ? Shell::Unknown
                                                                  : chosen_shell(job, *scf);
}

std::string shell_name(const Job& job, const Scf* scf) {
  if (scf != nullptr && scf->reference) {
    return "'" + std::string(job.input.source().text_of(scf->reference_word)) + "'";
  }
  return shell_of(job, scf) == Shell::Closed ? "a closed shell" : "an open shell";
}

bool has_excited_method(const Job& job) {
  const std::string method = job.method();
  return method.find("tddft") != std::string::npos || has_tda_method(job);
}

bool has_tda_method(const Job& job) {
  return job.method().find("tda") != std::string::npos;
}

bool has_nonzero(const Setting& list) {
  const auto numbers = list.integers();
  return numbers && std::any_of(numbers->begin(), numbers->end(),
                                [](std::int64_t number) { return number != 0; });
}

const Block* StoredStates::find(std::int64_t number) const {
  const auto found = by_number.find(number);
  return found == by_number.end() ? nullptr : found->second;
}

std::string StoredStates::numbers() const {
  std::string text;
  std::size_t left = by_number.size();
  for (const auto& [number, block] : by_number) {
    --left;
    text += text_of(number);
    text += left == 0 ? "" : left == 1 ? " and " : ", ";
  }
  return text.empty() ? "none" : text;
}

std::vector<const Block*> excitations_before(const Job& job, const Block& block) {
  if (job.is_advanced()) {
    return job.all_before(block, "tddft");
  }
  std::vector<const Block*> others = job.all("tddft");
  others.erase(std::remove(others.begin(), others.end(), &block), others.end());
  return others;
}

StoredStates stored_before(const Job& job, const Block& block) {
  StoredStates stored;
  for (const Block* const tddft : excitations_before(job, block)) {
    const Setting number = tddft->get("istore");
    stored.is_certain = stored.is_certain && !tddft->is_elided &&
                        (number ? number.integer().has_value() : !tddft->has_unknown_words);
    if (number.integer() && !is_coupling_step(*tddft)) {
      stored.by_number[*number.integer()] = tddft;
    }
  }
  return stored;
}

std::vector<CoupledState> coupled_states(const Block& resp) {
  std::vector<CoupledState> states;
  for (const char* const list : {"states", "pairs"}) {
    for (const std::vector<Word>& row : resp.get(list).rows()) {
      for (std::size_t i = 0; i + 2 < row.size(); i += 3) {
        states.push_back({core::number::parse_integer(row[i]), row[i], row[i + 2]});
      }
    }
  }
  return states;
}

std::vector<const Block*> states_used_by(const Job& job, const Block& resp) {
  const StoredStates stored = stored_before(job, resp);
  const std::vector<const Block*> earlier = excitations_before(job, resp);
  std::vector<const Block*> used;
  const auto add = [&](const Block* block) {
    if (block != nullptr && std::find(used.begin(), used.end(), block) == used.end()) {
      used.push_back(block);
    }
  };
  if (resp.has("fnac")) {
    for (const CoupledState& state : coupled_states(resp)) {
      add(state.file ? stored.find(*state.file) : nullptr);
    }
  } else if (const auto file = resp.get("nfiles").integer();
             file && is_about_excited_states(resp)) {
    add(stored.find(*file));
  } else if (is_about_excited_states(resp) && earlier.size() == 1) {
    add(earlier.front());
  }
  return used;
}

bool is_without_symmetry(const Job& job, const System& system) {
  const auto is_trivial = [](const Setting& group) {
    std::string name = group.text();
    name.erase(std::remove(name.begin(), name.end(), ' '), name.end());
    return name == "c(1)" || name == "c1";
  };
  const bool is_said = system.compass != nullptr &&
                       (system.compass->has("nosymm") || is_trivial(system.compass->get("group")));
  return is_said || is_trivial(job.header("group"));
}

TextEdit entry_set(const Job& job, const Block& block, const std::string& name,
                   const std::string& value) {
  const Setting setting = block.get(name);
  if (!setting) {
    return entry_added(job, block, name, value);
  }
  if (setting.words().empty()) {
    return {{setting.keyword().end, setting.keyword().end}, " " + value};
  }
  return value_replaced(setting, value);
}

}  // namespace kelp::input::bdf
