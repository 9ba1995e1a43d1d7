#include "validate/siblings.hpp"

namespace kelp::input::bdf {

const ModuleEntry* Siblings::find(std::string_view name) {
  if (!indexed_) {
    indexed_ = true;
    for (const ModuleEntry& entry : entries_) {
      index_.try_emplace(canonical_name(aliases_, entry.name), &entry);
    }
  }
  const auto* const found = find_in(index_, canonical_name(aliases_, name));
  return found == nullptr ? nullptr : *found;
}

void NameCounts::add(std::string_view name) {
  if (const auto found = counts_.find(name); found != counts_.end()) {
    ++found->second;
    return;
  }
  order_.push_back(counts_.emplace(name, 1).first->first);
}

}  // namespace kelp::input::bdf
