// Formulas in Hill's order.

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/molecule.hpp"

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

}  // namespace

std::string_view element_of(std::string_view label) {
  for (const std::size_t length : {std::size_t{2}, std::size_t{1}}) {
    const auto* const found =
        std::find_if(symbols.begin(), symbols.end(), [&](std::string_view symbol) {
          return symbol.size() == length &&
                 core::text::equals_ignoring_case(symbol, label.substr(0, length));
        });
    if (found != symbols.end()) {
      return *found;
    }
  }
  return {};
}

std::string hill_formula(const std::vector<AtomRecord>& atoms) {
  std::map<std::string_view, std::size_t> counts;
  for (const AtomRecord& atom : atoms) {
    const std::string_view element = element_of(atom.element);
    ++counts[element.empty() ? std::string_view(atom.element) : element];
  }
  std::string text;
  const auto append = [&](std::string_view element, std::size_t count) {
    text += element;
    text += count == 1 ? std::string() : std::to_string(count);
  };
  if (counts.count("C") > 0) {
    for (const char* const first : {"C", "H"}) {
      if (const auto node = counts.extract(first)) {
        append(node.key(), node.mapped());
      }
    }
  }
  for (const auto& [element, count] : counts) {
    append(element, count);
  }
  return text;
}

}  // namespace kelp::input::bdf
