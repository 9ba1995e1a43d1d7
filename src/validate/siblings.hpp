#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/record.hpp"
#include "schema/lookup.hpp"

namespace kelp::input::bdf {

/// Returns the identity of an entry of a module, or of a child of an entry, by its index. Records
/// deeper than children, which no text brings about, share the child's.
RecordId member_of(const RecordId& owner, std::size_t index);

/// The entries that stand beside each other, found by canonical name. The index is built when it is
/// first needed: most entries require nothing and conflict with nothing.
class Siblings {
 public:
  Siblings(const std::vector<ModuleEntry>& entries, const AliasMap& aliases, const RecordId& owner)
      : entries_(entries), aliases_(aliases), owner_(owner) {}

  /// Returns the first entry of that name or alias, or null.
  const ModuleEntry* find(std::string_view name);

  /// Returns the identity of one of the entries.
  RecordId record_of(const ModuleEntry& entry) const {
    return member_of(owner_, static_cast<std::size_t>(&entry - entries_.data()));
  }

 private:
  const std::vector<ModuleEntry>& entries_;
  const AliasMap& aliases_;
  RecordId owner_;
  NameMap<const ModuleEntry*> index_;
  bool indexed_ = false;
};

/// Notes which record bears a name first and which again, and the order in which names first came.
class Repetitions {
 public:
  void add(std::string_view name, std::size_t index);

  /// Calls `use(name, first, again)` for every name that came more than once, with the indices of
  /// the first and the second record of that name.
  template <typename Use>
  void for_each(Use use) const {
    for (const auto* const named : order_) {
      if (named->second.again != none) {
        use(std::string_view(named->first), named->second.first, named->second.again);
      }
    }
  }

 private:
  static constexpr std::size_t none = static_cast<std::size_t>(-1);

  struct Records {
    std::size_t first;
    std::size_t again;
  };
  using Names = NameMap<Records>;

  Names names_;
  std::vector<const Names::value_type*> order_;  ///< they never move
};

}  // namespace kelp::input::bdf
