#pragma once

/// @file
/// How near a misspelt word is to the one that was meant.

#include <cstddef>
#include <optional>
#include <string_view>

namespace kelp::core::spelling {

/// Words that are longer are near to none.
inline constexpr std::size_t longest_word = 64;

/// Returns the number of slips that lead from one word to the other: letters to insert, drop,
/// replace or swap with their neighbour. Some greater number when there are more than `limit`, or
/// when a word is too long. The case of ASCII letters counts for nothing.
std::size_t slips_between(std::string_view from, std::string_view to, std::size_t limit) noexcept;

/// Returns the number of slips between two words that are near each other, 0 for equal words;
/// nothing for words with more slips than words of their lengths may have.
std::optional<std::size_t> slips_if_near(std::string_view word, std::string_view other) noexcept;

}  // namespace kelp::core::spelling
