#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/diagnostics.hpp"

namespace kelp::input::bdf {

/// What names are names of, for a sentence: "entry" and "entries".
struct NamedThing {
  std::string_view one;
  std::string_view many;
};

/// Adds a fix that writes a text in place of a range.
void offer_fix(Diagnostic& diagnostic, std::string title, const TextRange& range, std::string text,
               bool is_safe = false);

/// Adds names to write in place of a range: as help, as suggestions and as a fix each. The fix is
/// safe where it is the only one and the list of names is closed.
void offer_names(Diagnostic& diagnostic, std::vector<std::string> names, const NamedThing& thing,
                 const TextRange& range, bool is_closed_list);

}  // namespace kelp::input::bdf
