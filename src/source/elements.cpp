#include "source/elements.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::array<std::string_view, 118> symbols = {
    "H",  "He", "Li", "Be", "B",  "C",  "N",  "O",  "F",  "Ne", "Na", "Mg", "Al", "Si", "P",
    "S",  "Cl", "Ar", "K",  "Ca", "Sc", "Ti", "V",  "Cr", "Mn", "Fe", "Co", "Ni", "Cu", "Zn",
    "Ga", "Ge", "As", "Se", "Br", "Kr", "Rb", "Sr", "Y",  "Zr", "Nb", "Mo", "Tc", "Ru", "Rh",
    "Pd", "Ag", "Cd", "In", "Sn", "Sb", "Te", "I",  "Xe", "Cs", "Ba", "La", "Ce", "Pr", "Nd",
    "Pm", "Sm", "Eu", "Gd", "Tb", "Dy", "Ho", "Er", "Tm", "Yb", "Lu", "Hf", "Ta", "W",  "Re",
    "Os", "Ir", "Pt", "Au", "Hg", "Tl", "Pb", "Bi", "Po", "At", "Rn", "Fr", "Ra", "Ac", "Th",
    "Pa", "U",  "Np", "Pu", "Am", "Cm", "Bk", "Cf", "Es", "Fm", "Md", "No", "Lr", "Rf", "Db",
    "Sg", "Bh", "Hs", "Mt", "Ds", "Rg", "Cn", "Nh", "Fl", "Mc", "Lv", "Ts", "Og"};

bool is_letter(char byte) {
  const char lower = core::text::to_lower(byte);
  return lower >= 'a' && lower <= 'z';
}

constexpr std::size_t alphabet = 26;

// The atomic numbers by first and second letter, the latter counted from 1: a geometry of many
// atoms asks for each of its lines.
constexpr std::array<unsigned char, alphabet*(alphabet + 1)> numbers_by_letters() {
  std::array<unsigned char, alphabet*(alphabet + 1)> numbers = {};
  for (std::size_t i = 0; i < symbols.size(); ++i) {
    const std::string_view symbol = symbols[i];
    const auto first = static_cast<std::size_t>(symbol[0] - 'A');
    const auto second = symbol.size() == 1 ? 0 : static_cast<std::size_t>(symbol[1] - 'a') + 1;
    numbers[first * (alphabet + 1) + second] = static_cast<unsigned char>(i + 1);
  }
  return numbers;
}

}  // namespace

std::span<const std::string_view> element_symbols() {
  return symbols;
}

int atomic_number(std::string_view symbol) {
  static constexpr auto numbers = numbers_by_letters();
  const bool can_be = (symbol.size() == 1 || symbol.size() == 2) && is_letter(symbol.front()) &&
                      is_letter(symbol.back());
  if (!can_be) {
    return 0;
  }
  const auto index = [](char byte) {
    return static_cast<std::size_t>(core::text::to_lower(byte) - 'a');
  };
  return numbers[index(symbol[0]) * (alphabet + 1) +
                 (symbol.size() == 1 ? 0 : index(symbol[1]) + 1)];
}

std::string_view symbol_of(int number) {
  return number < 1 || number > static_cast<int>(symbols.size())
             ? std::string_view()
             : symbols[static_cast<std::size_t>(number) - 1];
}

std::string_view find_element(std::string_view text) {
  return symbol_of(atomic_number(text));
}

std::string_view letters_of_label(std::string_view label) {
  const auto end = std::find_if_not(label.begin(), label.end(), is_letter);
  return label.substr(0, static_cast<std::size_t>(end - label.begin()));
}

bool is_atom_label(std::string_view label) {
  const std::string_view letters = letters_of_label(label);
  const bool is_centre =
      !find_element(letters).empty() || core::text::equals_ignoring_case(letters, "X");
  const std::string_view mark = label.substr(letters.size());
  return is_centre && std::all_of(mark.begin(), mark.end(), [](char byte) {
           return is_letter(byte) || (byte >= '0' && byte <= '9') || byte == '_' || byte == '-';
         });
}

}  // namespace kelp::input::bdf
