// Which unlisted names are slips. A list of functionals or of basis sets is never complete, and its
// names are so alike that nearness alone tells nothing: what differs by a digit, or at either end,
// or in what stands in parentheses, is more likely another name than a slip.

#include "diagnose/listed_names.hpp"

#include <algorithm>
#include <cstddef>

#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

bool contains(std::string_view letters, char byte) {
  return letters.find(byte) != std::string_view::npos;
}

// What tells names apart by being there at all: `6-31g`, `6-311g`, `6-31+g`, `6-31+g*`.
bool tells_apart(char byte) {
  return contains("0123456789+*", byte);
}

// What names tell apart by a single letter: double, triple, quadruple zeta and so on.
bool are_sizes(char left, char right) {
  constexpr std::string_view sizes = "sdtqp";
  return contains(sizes, left) && contains(sizes, right);
}

bool look_alike(char left, char right) {
  return (contains("1l", left) && contains("1l", right)) ||
         (contains("0o", left) && contains("0o", right));
}

bool are_neighbours_on_keyboard(char left, char right) {
  constexpr std::string_view rows = "qwertyuiop asdfghjkl zxcvbnm";
  const std::size_t one = rows.find(left);
  const std::size_t other = rows.find(right);
  return one != std::string_view::npos && other != std::string_view::npos &&
         (one + 1 == other || other + 1 == one);
}

bool is_replaced(char written, char wanted) {
  return look_alike(written, wanted) ||
         (are_neighbours_on_keyboard(written, wanted) && !are_sizes(written, wanted));
}

bool is_in_parentheses(std::string_view name, std::size_t at) {
  const std::size_t open = name.find('(');
  return open != std::string_view::npos && at > open;
}

bool is_swapped(std::string_view name, std::string_view listed, std::size_t at) {
  return name.size() == listed.size() && name[at] == listed[at + 1] && name[at + 1] == listed[at];
}

}  // namespace

bool is_slip_of(std::string_view name, std::string_view listed) {
  // Not of two temporaries, to which it would return references.
  const auto [shorter, longer] = std::minmax({name.size(), listed.size()});
  if (shorter < 2 || longer - shorter > 1 || name == listed) {
    return false;
  }
  std::size_t begin = 0;
  while (begin < shorter && name[begin] == listed[begin]) {
    ++begin;
  }
  std::size_t tail = 0;
  while (tail < shorter - begin &&
         name[name.size() - tail - 1] == listed[listed.size() - tail - 1]) {
    ++tail;
  }
  const std::size_t differs = longer - begin - tail;
  if (differs == 2) {
    return is_swapped(name, listed, begin);
  }
  const bool is_at_end = begin == 0 || tail == 0;
  // Three letters are a name for many things, `lda` for one; with a digit among them, less so.
  const std::size_t least = std::any_of(listed.begin(), listed.end(), tells_apart) ? 3 : 4;
  if (differs != 1 || is_at_end || shorter < least || is_in_parentheses(listed, begin)) {
    return false;
  }
  if (name.size() == listed.size()) {
    return is_replaced(name[begin], listed[begin]);
  }
  return !tells_apart(name.size() == longer ? name[begin] : listed[begin]);
}

std::vector<std::string> likely_names(std::string_view name,
                                      const std::vector<std::string>& listed) {
  constexpr std::size_t most = 3;
  const std::string wanted = core::text::to_lower(name);
  std::vector<std::string> likely;
  for (const std::string& candidate : listed) {
    const std::string lower = core::text::to_lower(candidate);
    if (lower == wanted) {
      return {};
    }
    if (likely.size() < most && is_slip_of(wanted, lower)) {
      likely.push_back(candidate);
    }
  }
  return likely;
}

}  // namespace kelp::input::bdf
