#include "formula.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <string_view>

#include "kelp/core/text.hpp"

namespace kelp::app {
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

// The longest symbol at the beginning of a label: HO1 is holmium, not hydroxyl.
std::string element_of(std::string_view label) {
  for (const std::size_t length : {std::size_t{2}, std::size_t{1}}) {
    const auto found = std::find_if(symbols.begin(), symbols.end(), [&](std::string_view symbol) {
      return symbol.size() == length &&
             core::text::equals_ignoring_case(symbol, label.substr(0, length));
    });
    if (found != symbols.end()) {
      return std::string(*found);
    }
  }
  return std::string(label);
}

}  // namespace

std::string formula(const std::vector<std::string>& labels) {
  std::map<std::string, std::size_t> counts;
  for (const std::string& label : labels) {
    ++counts[element_of(label)];
  }
  std::string text;
  const auto append = [&](const std::string& element, std::size_t count) {
    text += count == 1 ? element : fmt::format("{}{}", element, count);
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

}  // namespace kelp::app
