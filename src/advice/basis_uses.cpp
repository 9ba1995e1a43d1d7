// Pairs of a basis set and an element, each once, however many atoms there are.

#include "advice/basis_uses.hpp"

#include <set>
#include <utility>

#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

// BDF takes a file of the folder before a set of its library.
bool is_own_file(const Job& job, Word name) {
  return job.folder != nullptr && job.folder->has_file(core::text::to_upper(name));
}

}  // namespace

std::vector<BasisUse> basis_uses(const Job& job, const System& system) {
  std::vector<BasisUse> uses;
  if (system.basis.has_inline) {
    return uses;
  }
  std::set<std::pair<const BasisSet*, int>> seen;
  for (const Centre& centre : system.geometry.centres) {
    const BasisSet* const set = centre.element > 0 ? system.basis.set_of(centre) : nullptr;
    const std::pair use(set, centre.element);
    if (set == nullptr || seen.count(use) != 0) {
      continue;
    }
    seen.insert(use);
    const Word written = system.basis.written_for(centre);
    if (!is_own_file(job, written)) {
      uses.push_back({written, set, &centre});
    }
  }
  return uses;
}

}  // namespace kelp::input::bdf
