#pragma once

#include <rapidcheck.h>

#include <string>
#include <vector>

#include "kelp/input/bdf/parser.hpp"

namespace kelp::input::bdf {

struct TextStyle {
  /// Modules only, with nothing but shell lines and database blocks between them.
  bool module_input = false;
  /// Every entry has the values that its kind asks for, and lines that the schema does not know
  /// stand at the beginning of their module only.
  bool tidy = false;
  /// Lines that a nested block does not know may stand in it.
  bool unknown_children = true;
};

/// Makes input texts of the shared vocabulary.
rc::Gen<std::string> input_text(const TextStyle& style);

/// Makes value lines that fit an entry of `scf` or `compass`.
std::vector<std::string> fitting_values(const std::string& entry);

/// Picks a word of a header: a keyword, with or without a value, or a method specification.
std::string header_word();

// Random choices, made from within a generator or a property; all are equally likely.
template <typename T>
T pick(const std::vector<T>& choices) {
  return *rc::gen::elementOf(choices);
}
inline std::string pick_text(const std::vector<std::string>& choices) {
  return pick(choices);
}
inline int pick_number(int below) {
  return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, below));
}
inline bool chance() {
  return pick_number(2) == 0;
}

}  // namespace kelp::input::bdf
