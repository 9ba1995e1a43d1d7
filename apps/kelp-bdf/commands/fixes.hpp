#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/source.hpp"

namespace kelp::app {

/// The fixes of an input that may be applied unasked. One that would touch what another one changes
/// is left out: its finding is made anew once the other one is applied.
class SafeFixes {
 public:
  /// Adds the first safe fix of a diagnostic, if there is one.
  void add(const input::bdf::Diagnostic& diagnostic);

  /// Returns the number of fixes.
  std::size_t count() const { return count_; }

  /// Returns the edits of all fixes, in the order of the text.
  std::vector<input::bdf::TextEdit> edits() const;

  /// Returns the text of the input with all fixes.
  std::string apply_to(std::string_view text) const;

 private:
  bool touches_another(const input::bdf::TextRange& range) const;

  std::map<std::size_t, input::bdf::TextEdit> edits_;  // by their first bytes
  std::size_t count_ = 0;
};

}  // namespace kelp::app
