#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/record.hpp"
#include "kelp/input/bdf/value_path.hpp"

namespace kelp::input::bdf {

/// What names are names of, for a sentence: "entry" and "entries".
struct NamedThing {
  std::string_view one;
  std::string_view many;
};

/// What a finding that the validator does not know is about.
struct Finding {
  std::string_view code;  ///< of the table of texts, which has its severity
  std::string message;
  std::vector<std::string> arguments;
  RecordId record;
};

/// Begins the diagnostic of a finding: all but its range and what is said about that.
Diagnostic begin_diagnostic(Finding finding, const PathIndex& paths);

/// Adds a fix that writes a text in place of a range.
void offer_fix(Diagnostic& diagnostic, std::string title, const TextRange& range, std::string text,
               bool is_safe = false);

/// Tells whether a text can be the slip of one name alone: it is long enough, and of no bytes but
/// those of names. Short words are near to many names that nobody meant, and what has other bytes
/// may hold more than the name: `nimage=3`.
bool can_be_slip(std::string_view written);

/// Adds names to write in place of a range: as help, as suggestions and as a fix each. The fix is
/// safe where it is the only one and the list of names is closed.
void offer_names(Diagnostic& diagnostic, std::vector<std::string> names, const NamedThing& thing,
                 const TextRange& range, bool is_closed_list);

}  // namespace kelp::input::bdf
