// Formulas in Hill's order.

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "kelp/input/bdf/molecule.hpp"
#include "source/elements.hpp"

namespace kelp::input::bdf {

std::string_view element_of(std::string_view label) {
  for (const std::size_t length : {std::size_t{2}, std::size_t{1}}) {
    if (label.size() < length) {
      continue;
    }
    if (const std::string_view symbol = find_element(label.substr(0, length)); !symbol.empty()) {
      return symbol;
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
