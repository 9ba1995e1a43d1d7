#include "diagnose/likely_elements.hpp"

#include <algorithm>
#include <cstdint>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "source/elements.hpp"

namespace kelp::input::bdf {

std::vector<std::string> similar_elements(std::string_view letters) {
  std::vector<std::string> names;
  const auto add = [&](std::string_view text) {
    const std::string name(find_element(text));
    if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end() &&
        names.size() < 3) {
      names.push_back(name);
    }
  };
  add(letters);
  if (letters.size() == 2) {
    add(std::string{letters[1], letters[0]});
  }
  if (!names.empty()) {
    return names;
  }
  if (letters.size() >= 2) {
    add(letters.substr(0, 1));
    add(letters.substr(0, 2));
  }
  for (const std::string_view symbol : element_symbols()) {
    if (letters.size() == 2 && symbol.size() == 2 &&
        core::text::to_lower(symbol[0]) == core::text::to_lower(letters[0])) {
      add(symbol);
    }
  }
  return names;
}

std::vector<std::string> elements_of_number(std::string_view label) {
  const auto number = core::number::parse_integer(label);
  if (number == 0) {
    return {"O"};
  }
  const auto symbols = element_symbols();
  return number && *number > 0 && *number <= static_cast<std::int64_t>(symbols.size())
             ? std::vector<std::string>{std::string(symbols[static_cast<std::size_t>(*number) - 1])}
             : std::vector<std::string>{};
}

}  // namespace kelp::input::bdf
