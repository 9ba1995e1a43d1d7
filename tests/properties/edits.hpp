#pragma once

#include <rapidcheck.h>

#include <functional>
#include <ostream>
#include <string>

#include "kelp/input/bdf/editor.hpp"

namespace kelp::input::bdf {

/// One call of the editor, with a text that shows it in a failure.
struct Edit {
  std::string text;
  std::function<void(BDFEditor&)> apply;
};

inline void showValue(const Edit& edit, std::ostream& out) {
  out << edit.text;
}

/// Edits whose result can be written and read back: names and values that the vocabulary has a
/// place for. For a module input, lines are added between modules only if such an input can begin
/// with them.
rc::Gen<Edit> fitting_edit(bool module_input);

/// Edits with any names, values and indices, sensible or not.
rc::Gen<Edit> any_edit();

/// Any bytes, with a liking for those that mean something.
std::string any_text();

}  // namespace kelp::input::bdf
