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

/// A kind of mistakes.
struct FaultKind {
  std::string_view name;
  /// It is told on its own line and of itself: what it brings about is no finding of its own.
  bool is_told_in_place = false;
};

/// The kinds of mistakes.
inline constexpr FaultKind fault_kinds[] = {
    {"misspelt module"},
    {"misspelt keyword"},
    {"misspelt keyword behind lines"},
    {"letter in a number"},
    {"missing $end"},
    {"missing end geometry"},
    {"missing terminator"},
    {"misspelt terminator"},
    {"repeated singular entry"},
    {"value not in the list"},
    {"misspelt header keyword", true},
    {"misspelt method", true},
    {"misspelt functional", true},
    {"misspelt basis set", true},
    {"misspelt functional of a module", true},
    {"misspelt basis set of a module", true},
    {"wrong stroke in a functional", true},
    {"wrong stroke in a basis set", true},
    {"mark in a functional", true},
    {"mark in a basis set", true},
    {"header keyword without value", true},
    {"atom: decimal comma", true},
    {"atom: typographic minus", true},
    {"atom: letter for zero", true},
    {"atom: no-break space", true},
    {"atom: full-width digit", true},
    {"atom: missing number", true},
    {"atom: surplus number", true},
    {"atom: glued label", true},
    {"atom: glued numbers", true},
    {"atom: XYZ head", true},
    {"misspelt element", true},
    {"atom: word behind", true},
    {"atom: mark in the label", true},
    {"word behind a flag", true},
    {"second value", true},
    {"blank behind the dollar", true},
    {"row of basis sets without =", true},
    {"misspelt end of a database", true},
};

/// Returns a text in as many variants as there are places for a mistake.
std::vector<Fault> faults_of(std::string_view text);

}  // namespace kelp::test
