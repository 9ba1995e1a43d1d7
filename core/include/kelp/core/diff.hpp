#pragma once

/// @file
/// What to change in one sequence to get another.

#include <cstddef>
#include <string_view>
#include <vector>

namespace kelp::core::diff {

/// Cuts a text into lines that keep their ends, so that a last line without one differs from the
/// same line with one.
std::vector<std::string_view> lines_with_ends(std::string_view text);

/// Items [old_begin, old_end) of one sequence, replaced by items [new_begin, new_end) of another.
/// One of the two ranges may be empty, never both.
struct Change {
  std::size_t old_begin = 0;
  std::size_t old_end = 0;
  std::size_t new_begin = 0;
  std::size_t new_end = 0;
};

/// Returns what to change in a sequence to get another, in order; between two changes there is at
/// least one common item. The changes are as few as possible, unless the sequences are long and
/// have little in common.
std::vector<Change> find_changes(const std::vector<std::string_view>& old_items,
                                 const std::vector<std::string_view>& new_items);

}  // namespace kelp::core::diff
