#include "validate/siblings.hpp"

namespace kelp::input::bdf {

RecordId member_of(const RecordId& owner, std::size_t index) {
  switch (owner.kind) {
    case RecordKind::Module:
      return RecordId::of_entry(owner.index, index);
    case RecordKind::Entry:
      return RecordId::of_child(owner.index, owner.entry, index);
    default:
      return owner;
  }
}

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

}  // namespace kelp::input::bdf
