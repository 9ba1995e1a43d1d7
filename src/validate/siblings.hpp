#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
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

/// Counts the records of each description, and keeps the order in which these first came. What is
/// counted is descriptions, not names, of which each has one.
template <typename Spec>
class Repetitions {
 public:
  /// `records` is how many will be added.
  explicit Repetitions(std::size_t records) {
    counted_.reserve(std::min(records, most_without_index));
  }

  void add(const Spec* spec, std::size_t index) {
    Count* const count = find(spec);
    if (count == nullptr) {
      counted_.push_back({spec, index, none});
      note_positions();
    } else if (count->again == none) {
      count->again = index;
    }
  }

  /// Calls `use(spec, first, again)` for every description that came more than once, with the
  /// indices of the first and the second record of it.
  template <typename Use>
  void for_each(Use use) const {
    for (const Count& count : counted_) {
      if (count.again != none) {
        use(*count.spec, count.first, count.again);
      }
    }
  }

 private:
  static constexpr std::size_t none = static_cast<std::size_t>(-1);
  static constexpr std::size_t most_without_index = 32;

  struct Count {
    const Spec* spec;
    std::size_t first;
    std::size_t again;
  };

  // To look through a few is faster than to look one up.
  void note_positions() {
    if (counted_.size() < most_without_index) {
      return;
    }
    for (std::size_t i = positions_.size(); i < counted_.size(); ++i) {
      positions_.emplace(counted_[i].spec, i);
    }
  }

  Count* find(const Spec* spec) {
    if (!positions_.empty()) {
      const auto found = positions_.find(spec);
      return found == positions_.end() ? nullptr : &counted_[found->second];
    }
    const auto found = std::find_if(counted_.begin(), counted_.end(),
                                    [spec](const Count& count) { return count.spec == spec; });
    return found == counted_.end() ? nullptr : &*found;
  }

  std::vector<Count> counted_;
  std::unordered_map<const Spec*, std::size_t> positions_;  ///< once there are many
};

}  // namespace kelp::input::bdf
