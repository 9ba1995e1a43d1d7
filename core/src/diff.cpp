// Myers' algorithm in its linear-space form: a shortest way from one sequence to the other is
// looked for from both ends at once; where the two searches meet the problem is cut in two.
//
// Items that only one side has are set aside first. They are changes whatever the others are, and a
// text whose every line was laid out anew would otherwise cost the square of its length.

#include "kelp/core/diff.hpp"

#include <algorithm>
#include <cstdint>
#include <unordered_map>

namespace kelp::core::diff {
namespace {

using Numbers = std::vector<std::uint32_t>;

// Beyond this many changes in one stretch a good way is taken for the best.
constexpr std::ptrdiff_t most_steps = 2048;

/// The items that take part in the search, as numbers, and where they stand.
struct Side {
  Numbers items;
  std::vector<std::size_t> positions;
  std::vector<bool> changed;  ///< for every item of the whole sequence
};

/// A stretch of both sides.
struct Box {
  std::ptrdiff_t old_begin;
  std::ptrdiff_t old_end;
  std::ptrdiff_t new_begin;
  std::ptrdiff_t new_end;
};

struct Point {
  std::ptrdiff_t old_at;
  std::ptrdiff_t new_at;
};

/// The diagonals that a search has reached: each where old minus new is constant.
struct Diagonals {
  std::ptrdiff_t first;
  std::ptrdiff_t last;
  bool holds(std::ptrdiff_t diagonal) const { return diagonal >= first && diagonal <= last; }
};

class Search {
 public:
  Search(Side& old_side, Side& new_side)
      : old_(old_side),
        new_(new_side),
        middle_(static_cast<std::ptrdiff_t>(new_side.items.size()) + 1),
        forward_(old_side.items.size() + new_side.items.size() + 3),
        backward_(forward_.size()) {}

  // The boxes that are left to do are kept on the heap, so that no text exhausts the stack.
  void run() {
    std::vector<Box> boxes = {{0, size_of(old_), 0, size_of(new_)}};
    while (!boxes.empty()) {
      Box box = boxes.back();
      boxes.pop_back();
      trim(box);
      if (box.old_begin == box.old_end || box.new_begin == box.new_end) {
        mark(box);
        continue;
      }
      const Point cut = find_cut(box);
      boxes.push_back({cut.old_at, box.old_end, cut.new_at, box.new_end});
      boxes.push_back({box.old_begin, cut.old_at, box.new_begin, cut.new_at});
    }
  }

 private:
  static std::ptrdiff_t size_of(const Side& side) {
    return static_cast<std::ptrdiff_t>(side.items.size());
  }

  bool equal(std::ptrdiff_t old_at, std::ptrdiff_t new_at) const {
    return old_.items[static_cast<std::size_t>(old_at)] ==
           new_.items[static_cast<std::size_t>(new_at)];
  }

  void trim(Box& box) const {
    while (box.old_begin < box.old_end && box.new_begin < box.new_end &&
           equal(box.old_begin, box.new_begin)) {
      ++box.old_begin;
      ++box.new_begin;
    }
    while (box.old_begin < box.old_end && box.new_begin < box.new_end &&
           equal(box.old_end - 1, box.new_end - 1)) {
      --box.old_end;
      --box.new_end;
    }
  }

  static void mark(Side& side, std::ptrdiff_t begin, std::ptrdiff_t end) {
    for (std::ptrdiff_t i = begin; i < end; ++i) {
      side.changed[side.positions[static_cast<std::size_t>(i)]] = true;
    }
  }

  void mark(const Box& box) {
    mark(old_, box.old_begin, box.old_end);
    mark(new_, box.new_begin, box.new_end);
  }

  // How far each search got on a diagonal, as a place in the old sequence.
  std::ptrdiff_t& forward(std::ptrdiff_t diagonal) {
    return forward_[static_cast<std::size_t>(diagonal + middle_)];
  }
  std::ptrdiff_t& backward(std::ptrdiff_t diagonal) {
    return backward_[static_cast<std::size_t>(diagonal + middle_)];
  }

  // Both ends of the box differ from each other, so that the cut is never one of its corners.
  Point find_cut(const Box& box) {
    const std::ptrdiff_t start = box.old_begin - box.new_begin;
    const std::ptrdiff_t finish = box.old_end - box.new_end;
    const bool odd = ((start - finish) & 1) != 0;
    forward(start) = box.old_begin;
    backward(finish) = box.old_end;
    Diagonals ahead{start, start};
    Diagonals behind{finish, finish};
    for (std::ptrdiff_t steps = 1;; ++steps) {
      widen(ahead, box, true);
      for (std::ptrdiff_t d = ahead.last; d >= ahead.first; d -= 2) {
        const std::ptrdiff_t reached = advance(d, box);
        if (odd && behind.holds(d) && backward(d) <= reached) {
          return {reached, reached - d};
        }
      }
      widen(behind, box, false);
      for (std::ptrdiff_t d = behind.last; d >= behind.first; d -= 2) {
        const std::ptrdiff_t reached = retreat(d, box);
        if (!odd && ahead.holds(d) && reached <= forward(d)) {
          return {reached, reached - d};
        }
      }
      if (steps >= most_steps) {
        return farthest(ahead, box);
      }
    }
  }

  // One more step reaches one more diagonal on each side, as far as the box goes. What lies beyond
  // is marked as out of reach.
  void widen(Diagonals& reached, const Box& box, bool ahead) {
    const std::ptrdiff_t lowest = box.old_begin - box.new_end;
    const std::ptrdiff_t highest = box.old_end - box.new_begin;
    const std::ptrdiff_t nowhere = ahead ? -1 : PTRDIFF_MAX;
    const auto reach = [&](std::ptrdiff_t diagonal) -> std::ptrdiff_t& {
      return ahead ? forward(diagonal) : backward(diagonal);
    };
    if (reached.first > lowest) {
      reach(--reached.first - 1) = nowhere;
    } else {
      ++reached.first;
    }
    if (reached.last < highest) {
      reach(++reached.last + 1) = nowhere;
    } else {
      --reached.last;
    }
  }

  std::ptrdiff_t advance(std::ptrdiff_t diagonal, const Box& box) {
    const std::ptrdiff_t deleted = forward(diagonal - 1);
    const std::ptrdiff_t inserted = forward(diagonal + 1);
    std::ptrdiff_t at = deleted >= inserted ? deleted + 1 : inserted;
    while (at < box.old_end && at - diagonal < box.new_end && equal(at, at - diagonal)) {
      ++at;
    }
    return forward(diagonal) = at;
  }

  std::ptrdiff_t retreat(std::ptrdiff_t diagonal, const Box& box) {
    const std::ptrdiff_t inserted = backward(diagonal - 1);
    const std::ptrdiff_t deleted = backward(diagonal + 1);
    std::ptrdiff_t at = inserted < deleted ? inserted : deleted - 1;
    while (at > box.old_begin && at - diagonal > box.new_begin &&
           equal(at - 1, at - 1 - diagonal)) {
      --at;
    }
    return backward(diagonal) = at;
  }

  Point farthest(const Diagonals& ahead, const Box& box) {
    Point best{box.old_begin, box.new_begin};
    for (std::ptrdiff_t d = ahead.first; d <= ahead.last; d += 2) {
      const std::ptrdiff_t at = std::min({forward(d), box.old_end, box.new_end + d});
      if (at + at - d > best.old_at + best.new_at) {
        best = {at, at - d};
      }
    }
    return best;
  }

  Side& old_;
  Side& new_;
  std::ptrdiff_t middle_;
  std::vector<std::ptrdiff_t> forward_;
  std::vector<std::ptrdiff_t> backward_;
};

using Names = std::unordered_map<std::string_view, std::uint32_t>;

Names number_items(const std::vector<std::string_view>& items) {
  Names names;
  for (const std::string_view item : items) {
    names.emplace(item, static_cast<std::uint32_t>(names.size()));
  }
  return names;
}

// Items that the other sequence has not are changed for certain.
Side make_side(const std::vector<std::string_view>& items, const Names& numbers,
               const Names& others) {
  Side side;
  side.changed.resize(items.size());
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (others.count(items[i]) == 0) {
      side.changed[i] = true;
    } else {
      side.items.push_back(numbers.at(items[i]));
      side.positions.push_back(i);
    }
  }
  return side;
}

std::size_t end_of_run(const std::vector<bool>& changed, std::size_t at) {
  while (at < changed.size() && changed[at]) {
    ++at;
  }
  return at;
}

std::vector<Change> collect(const Side& old_side, const Side& new_side) {
  std::vector<Change> changes;
  std::size_t old_at = 0;
  std::size_t new_at = 0;
  while (old_at < old_side.changed.size() || new_at < new_side.changed.size()) {
    const Change change = {old_at, end_of_run(old_side.changed, old_at), new_at,
                           end_of_run(new_side.changed, new_at)};
    if (change.old_begin != change.old_end || change.new_begin != change.new_end) {
      changes.push_back(change);
    }
    // Behind a run there is an item that both have, or the end of both.
    old_at = change.old_end + 1;
    new_at = change.new_end + 1;
  }
  return changes;
}

}  // namespace

std::vector<std::string_view> lines_with_ends(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t length = std::min(text.find('\n'), text.size() - 1) + 1;
    lines.push_back(text.substr(0, length));
    text.remove_prefix(length);
  }
  return lines;
}

std::vector<Change> find_changes(const std::vector<std::string_view>& old_items,
                                 const std::vector<std::string_view>& new_items) {
  const Names old_names = number_items(old_items);
  const Names new_names = number_items(new_items);
  Side old_side = make_side(old_items, old_names, new_names);
  Side new_side = make_side(new_items, old_names, old_names);
  Search(old_side, new_side).run();
  return collect(old_side, new_side);
}

}  // namespace kelp::core::diff
