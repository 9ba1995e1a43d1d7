#include "commands/fixes.hpp"

#include <algorithm>
#include <iterator>
#include <vector>

namespace kelp::app {

using input::bdf::Fix;
using input::bdf::TextEdit;
using input::bdf::TextRange;

void SafeFixes::add(const input::bdf::Diagnostic& diagnostic) {
  const auto fix = std::find_if(diagnostic.fixes.begin(), diagnostic.fixes.end(),
                                [](const Fix& candidate) { return candidate.is_safe; });
  if (fix == diagnostic.fixes.end()) {
    return;
  }
  const bool is_late =
      std::any_of(fix->edits.begin(), fix->edits.end(),
                  [this](const TextEdit& edit) { return touches_another(edit.range); });
  if (is_late) {
    return;
  }
  ++count_;
  for (const TextEdit& edit : fix->edits) {
    edits_.emplace(edit.range.begin, edit);
  }
}

std::vector<TextEdit> SafeFixes::edits() const {
  std::vector<TextEdit> edits;
  edits.reserve(edits_.size());
  for (const auto& [begin, edit] : edits_) {
    edits.push_back(edit);
  }
  return edits;
}

std::string SafeFixes::apply_to(std::string_view text) const {
  return apply_edits(text, edits());
}

// Two insertions at one byte would have no order.
bool SafeFixes::touches_another(const TextRange& range) const {
  const auto next = edits_.lower_bound(range.begin);
  if (next != edits_.end() && (next->first == range.begin || next->first < range.end)) {
    return true;
  }
  return next != edits_.begin() && std::prev(next)->second.range.end > range.begin;
}

}  // namespace kelp::app
