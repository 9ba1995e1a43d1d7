#pragma once

#include <string_view>
#include <vector>

#include "advice/job.hpp"

namespace kelp::input::bdf {

/// Returns the switch of the solvent model: of the `$scf`, which may be null, else of the header;
/// one that is not there in vacuo.
inline Setting solvent_of(const Job& job, const Block* scf) {
  return scf != nullptr && scf->has("solvent") ? scf->get("solvent") : job.header("solvent");
}

/// Tells whether a solvent is described by numbers, and not named.
inline bool is_user(const Setting& solvent) {
  return solvent.is("user");
}

/// Returns those of some entries that a block has.
template <typename Names>
std::vector<Setting> present(const Block& block, const Names& names) {
  std::vector<Setting> found;
  for (const std::string_view name : names) {
    if (const Setting setting = block.get(name)) {
      found.push_back(setting);
    }
  }
  return found;
}

}  // namespace kelp::input::bdf
