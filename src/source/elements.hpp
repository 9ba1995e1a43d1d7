#pragma once

#include <span>
#include <string_view>

namespace kelp::input::bdf {

/// Returns the symbols of the elements by their atomic numbers: hydrogen comes first. The views
/// live for ever.
std::span<const std::string_view> element_symbols();

/// Returns the symbol that a text is, in any case: `Cl` for `CL`; empty when it is none. The view
/// lives for ever.
std::string_view find_element(std::string_view text);

/// Returns the atomic number of a symbol, in any case; 0 when it is none.
int atomic_number(std::string_view symbol);

/// Returns the symbol of an element; empty for a number that is none. The view lives for ever.
std::string_view symbol_of(int number);

/// Returns the ASCII letters that a label begins with: `H` of `H12`, `Cl` of `Cl-`.
std::string_view letters_of_label(std::string_view label);

/// Tells whether a label is that of an atom: its first letters are the symbol of an element, or the
/// `X` of a centre without a nucleus; behind them may stand digits, as in `H1`, or what else makes
/// a name.
bool is_atom_label(std::string_view label);

}  // namespace kelp::input::bdf
