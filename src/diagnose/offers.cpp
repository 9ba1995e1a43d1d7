// How diagnostics begin, and what they offer to write instead: in the same words wherever they come
// from.

#include "diagnose/offers.hpp"

#include <algorithm>
#include <utility>

#include "kelp/input/bdf/explain.hpp"
#include "kelp/input/bdf/names.hpp"

namespace kelp::input::bdf {

Diagnostic begin_diagnostic(Finding finding, const PathIndex& paths) {
  Diagnostic diagnostic;
  diagnostic.code = finding.code;
  if (const FindingText* const text = find_finding_text(finding.code)) {
    diagnostic.severity = text->severity;
  }
  diagnostic.message = std::move(finding.message);
  diagnostic.arguments = std::move(finding.arguments);
  diagnostic.record = finding.record;
  diagnostic.path = paths.path_of(finding.record);
  return diagnostic;
}

void offer_fix(Diagnostic& diagnostic, std::string title, const TextRange& range, std::string text,
               bool is_safe) {
  Fix offer;
  offer.title = std::move(title);
  offer.edits.push_back({range, std::move(text)});
  offer.is_safe = is_safe;
  diagnostic.fixes.push_back(std::move(offer));
}

bool can_be_slip(std::string_view written) {
  constexpr std::size_t shortest = 4;
  return written.size() >= shortest && std::all_of(written.begin(), written.end(), [](char byte) {
           return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
                  (byte >= '0' && byte <= '9') || byte == '-' || byte == '_';
         });
}

void offer_names(Diagnostic& diagnostic, std::vector<std::string> names, const NamedThing& thing,
                 const TextRange& range, bool is_closed_list) {
  if (names.empty()) {
    return;
  }
  std::string text = names.size() == 1 ? "a similar " : "similar ";
  text += names.size() == 1 ? thing.one : thing.many;
  text += names.size() == 1 ? " exists: " : " exist: ";
  diagnostic.help.push_back(text + quoted_choice(names));
  // Where only one name is near, nothing else can be meant.
  for (const std::string& name : names) {
    offer_fix(diagnostic, "write '" + name + "'", range, name, is_closed_list && names.size() == 1);
  }
  diagnostic.suggestions = std::move(names);
}

}  // namespace kelp::input::bdf
