// Two inputs are taken apart into items, and items are matched. What has an order is matched as
// lines of a text are: first items that say the same, then, between those, items that are called
// the same. Of what has no order, items of one name are matched with each other.

#include "kelp/input/bdf/difference.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <string_view>
#include <utility>

#include "difference/items.hpp"
#include "kelp/core/diff.hpp"
#include "kelp/input/bdf/molecule.hpp"

namespace kelp::input::bdf {
namespace {

using List = std::vector<const Item*>;
using Texts = std::vector<std::string_view>;
using core::diff::Change;

constexpr std::string_view no_enumerator = "unknown";

List list_of(const std::vector<Item>& items) {
  List list;
  list.reserve(items.size());
  for (const Item& item : items) {
    list.push_back(&item);
  }
  return list;
}

std::vector<Change> changes_of(const List& before, const List& after, std::string Item::*text) {
  const auto texts_of = [text](const List& items) {
    Texts texts;
    texts.reserve(items.size());
    for (const Item* item : items) {
      texts.emplace_back(item->*text);
    }
    return texts;
  };
  return core::diff::find_changes(texts_of(before), texts_of(after));
}

List part_of(const List& items, std::size_t begin, std::size_t end) {
  return {items.begin() + static_cast<std::ptrdiff_t>(begin),
          items.begin() + static_cast<std::ptrdiff_t>(end)};
}

class Comparison {
 public:
  std::vector<InputDifference> run(const Items& before, const Items& after) {
    compare_by_name(list_of(before.words), list_of(after.words));
    compare_in_order(before.geometry, after.geometry);
    compare_in_order(before.sequence, after.sequence);
    find_moved_modules();
    return finished();
  }

 private:
  /// Either of the two may be missing.
  struct Pair {
    const Item* before;
    const Item* after;
    bool is_moved = false;
  };

  void add(const Item* before, const Item* after) { found_.push_back({before, after}); }

  void compare_in_order(const std::vector<Item>& before, const std::vector<Item>& after) {
    const List left = list_of(before);
    const List right = list_of(after);
    for (const Change& change : changes_of(left, right, &Item::meaning)) {
      compare_stretch(part_of(left, change.old_begin, change.old_end),
                      part_of(right, change.new_begin, change.new_end));
    }
  }

  // No item of one side says what any of the other says, in this order.
  void compare_stretch(const List& before, const List& after) {
    std::size_t left = 0;
    std::size_t right = 0;
    const auto compare_up_to = [&](std::size_t old_end, std::size_t new_end) {
      while (left < old_end && right < new_end) {
        compare(*before[left++], *after[right++]);
      }
    };
    for (const Change& change : changes_of(before, after, &Item::key)) {
      compare_up_to(change.old_begin, change.new_begin);
      for (; left < change.old_end; ++left) {
        add(before[left], nullptr);
      }
      for (; right < change.new_end; ++right) {
        add(nullptr, after[right]);
      }
    }
    compare_up_to(before.size(), after.size());
  }

  // Two items that are called the same.
  void compare(const Item& before, const Item& after) {
    if (before.meaning == after.meaning) {
      return;  // of very long lists not all of those that say the same are found
    }
    if (before.thing == DifferingThing::Module) {
      compare_by_name(list_of(before.parts), list_of(after.parts));
    } else if (!before.parts.empty() && !after.parts.empty()) {
      compare_by_name(list_of(before.parts), list_of(after.parts));
    } else if (!before.atoms.empty() && !after.atoms.empty()) {
      compare_in_order(before.atoms, after.atoms);
    } else {
      add(&before, &after);
    }
  }

  void compare_by_name(const List& before, const List& after) {
    std::map<std::string_view, std::pair<List, List>> named;
    std::vector<std::string_view> order;
    const auto put = [&](const Item* item) -> std::pair<List, List>& {
      const auto [at, is_new] = named.try_emplace(item->key);
      if (is_new) {
        order.push_back(item->key);
      }
      return at->second;
    };
    for (const Item* item : before) {
      put(item).first.push_back(item);
    }
    for (const Item* item : after) {
      put(item).second.push_back(item);
    }
    for (const std::string_view name : order) {
      const auto& [left, right] = named.at(name);
      for (const Change& change : changes_of(left, right, &Item::meaning)) {
        compare_stretch(part_of(left, change.old_begin, change.old_end),
                        part_of(right, change.new_begin, change.new_end));
      }
    }
  }

  // A module that is gone from one step and is there, just as it was, at another one.
  void find_moved_modules() {
    for (Pair& gone : found_) {
      if (gone.before == nullptr || gone.after != nullptr ||
          gone.before->thing != DifferingThing::Module) {
        continue;
      }
      const auto come = std::find_if(found_.begin(), found_.end(), [&gone](const Pair& other) {
        return other.before == nullptr && other.after != nullptr &&
               other.after->thing == DifferingThing::Module &&
               other.after->meaning == gone.before->meaning;
      });
      if (come != found_.end()) {
        gone.after = std::exchange(come->after, nullptr);
        gone.is_moved = true;
      }
    }
  }

  std::vector<InputDifference> finished() const {
    std::vector<InputDifference> differences;
    for (const Pair& pair : found_) {
      if (pair.before == nullptr && pair.after == nullptr) {
        continue;
      }
      InputDifference made;
      made.kind = pair.is_moved            ? DifferenceKind::Moved
                  : pair.before == nullptr ? DifferenceKind::Added
                  : pair.after == nullptr  ? DifferenceKind::Removed
                                           : DifferenceKind::Changed;
      made.thing = (pair.after != nullptr ? pair.after : pair.before)->thing;
      if (pair.before != nullptr) {
        made.before = pair.before->side;
      }
      if (pair.after != nullptr) {
        made.after = pair.after->side;
      }
      differences.push_back(std::move(made));
    }
    return differences;
  }

  std::vector<Pair> found_;
};

}  // namespace

std::string_view to_string(DifferenceKind kind) noexcept {
  constexpr std::array<std::string_view, 4> names = {"added", "removed", "changed", "moved"};
  const auto number = static_cast<std::size_t>(kind);
  return number < names.size() ? names[number] : no_enumerator;
}

std::string_view to_string(DifferingThing thing) noexcept {
  constexpr std::array<std::string_view, 7> names = {
      "script name", "header word", "atom", "geometry line", "module", "entry", "statement"};
  const auto number = static_cast<std::size_t>(thing);
  return number < names.size() ? names[number] : no_enumerator;
}

std::vector<InputDifference> find_differences(const ParsedInput& before, const ParsedInput& after) {
  const bool other_unit = molecule_of(before).unit != molecule_of(after).unit;
  return Comparison().run(items_of(before, other_unit), items_of(after, other_unit));
}

}  // namespace kelp::input::bdf
