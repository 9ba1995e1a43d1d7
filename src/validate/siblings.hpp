#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "schema/lookup.hpp"

namespace kelp::input::bdf {

/// The entries that stand beside each other, found by canonical name. The index is built when it is
/// first needed: most entries require nothing and conflict with nothing.
class Siblings {
 public:
  Siblings(const std::vector<ModuleEntry>& entries, const AliasMap& aliases)
      : entries_(entries), aliases_(aliases) {}

  /// Returns the first entry of that name or alias, or null.
  const ModuleEntry* find(std::string_view name);

 private:
  const std::vector<ModuleEntry>& entries_;
  const AliasMap& aliases_;
  NameMap<const ModuleEntry*> index_;
  bool indexed_ = false;
};

/// Counts names and remembers the order in which they first came.
class NameCounts {
 public:
  void add(std::string_view name);

  /// Calls `use(name)` for every name that came more than once.
  template <typename Use>
  void for_each_repeated(Use use) const {
    for (const std::string_view name : order_) {
      if (counts_.find(name)->second > 1) {
        use(name);
      }
    }
  }

 private:
  NameMap<std::size_t> counts_;
  std::vector<std::string_view> order_;  ///< views of the keys of `counts_`, which never move
};

}  // namespace kelp::input::bdf
