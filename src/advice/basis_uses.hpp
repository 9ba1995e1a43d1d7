#pragma once

#include <vector>

#include "advice/job.hpp"

namespace kelp::input::bdf {

/// A basis set of the library and an element that gets it.
struct BasisUse {
  Word written;         ///< the set's name as it is written
  const BasisSet* set;  ///< never null
  const Centre* atom;   ///< the first of the element

  int element() const { return atom->element; }
  bool has_core() const { return set->has_core_of(element()); }
};

/// Returns each pair of a set and an element that a system has, once, in the order of the atoms;
/// only those of sets that are known. None when the input brings basis data of its own. A set whose
/// name is that of a file in the folder is left out.
std::vector<BasisUse> basis_uses(const Job& job, const System& system);

}  // namespace kelp::input::bdf
