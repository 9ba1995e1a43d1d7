// Each finding goes past the comments of the input first and past the rules of the caller then, so
// that a comment is known to be needed whatever the rules say.

#include <algorithm>
#include <optional>
#include <vector>

#include "diagnose/allowances.hpp"
#include "diagnose/draft.hpp"
#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/explain.hpp"

namespace kelp::input::bdf {
namespace {

using Use = std::function<void(const Diagnostic&)>;

// Returns nothing for a finding that is to be left out.
std::optional<Severity> severity_under(const std::vector<SeverityRule>& rules,
                                       const Diagnostic& diagnostic) {
  const auto rule = std::find_if(rules.rbegin(), rules.rend(), [&](const SeverityRule& it) {
    return matches_code(it.pattern, diagnostic.code);
  });
  if (rule != rules.rend()) {
    switch (rule->action) {
      case SeverityAction::Allow:
        return std::nullopt;
      case SeverityAction::Warn:
        return Severity::Warning;
      case SeverityAction::Deny:
        return Severity::Error;
    }
  }
  return diagnostic.severity;
}

void hand_over(const Diagnostic& diagnostic, const std::vector<SeverityRule>& rules,
               const Use& use) {
  const std::optional<Severity> severity = severity_under(rules, diagnostic);
  if (!severity) {
    return;
  }
  if (*severity == diagnostic.severity) {
    use(diagnostic);
    return;
  }
  Diagnostic graded = diagnostic;
  graded.severity = *severity;
  use(graded);
}

}  // namespace

void diagnose(const ParsedInput& input, const DiagnoseOptions& options, const Use& use) {
  Allowances allowances(input);
  const Use judge = [&](const Diagnostic& diagnostic) {
    if (!allowances.allow(diagnostic)) {
      hand_over(diagnostic, options.rules, use);
    }
  };
  find_diagnostics(input, options, judge);
  allowances.report(options, judge);
}

std::vector<Diagnostic> diagnose(const ParsedInput& input, const DiagnoseOptions& options) {
  std::vector<Diagnostic> found;
  diagnose(input, options, [&](const Diagnostic& diagnostic) { found.push_back(diagnostic); });
  return found;
}

}  // namespace kelp::input::bdf
