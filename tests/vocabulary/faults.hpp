#pragma once

// Mistakes made on purpose, to see which of them the check finds. What is changed depends on the
// text alone, so that every run makes the same mistakes.

#include <string>
#include <string_view>
#include <vector>

namespace kelp::test {

/// A text with one mistake.
struct Fault {
  std::string_view kind;  ///< one of `fault_kinds`
  std::size_t line = 0;   ///< where it was made
  std::string text;
};

/// The kinds of mistakes.
inline constexpr std::string_view fault_kinds[] = {
    "misspelt module",         "misspelt keyword",
    "letter in a number",      "missing $end",
    "missing end geometry",    "missing terminator",
    "repeated singular entry", "value not in the list"};

/// Returns a text in as many variants as there are places for a mistake.
std::vector<Fault> faults_of(std::string_view text);

}  // namespace kelp::test
