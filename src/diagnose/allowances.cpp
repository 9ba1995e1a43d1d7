// What is allowed is kept by the line on which it begins. A finding stands in a handful of records,
// one within the other, of which each begins on a line; these lines are looked up.

#include "diagnose/allowances.hpp"

#include <algorithm>
#include <string>
#include <utility>

#include "diagnose/directive_findings.hpp"
#include "diagnose/draft.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/explain.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::size_t whole_input = 0;

std::vector<Directive> directives_of(const ParsedInput& input) {
  std::vector<Directive> directives = read_directives(input);
  // Of a text that cannot be read as lines, neither can its comments.
  if (!directives.empty() && find_text_fault(input.source())) {
    directives.clear();
  }
  return directives;
}

// A finding that was not looked for is no sign that nothing needs the comment.
bool is_out_of_sight(std::string_view pattern, const DiagnoseOptions& options) {
  constexpr std::string_view own = "comment.";
  return core::text::equals_ignoring_case(pattern.substr(0, own.size()), own) ||
         (options.unknown == UnknownNames::Ignore &&
          (matches_code(pattern, code_of(IssueId::UnknownModule)) ||
           matches_code(pattern, code_of(IssueId::UnknownEntry)) ||
           matches_code(pattern, code_of(IssueId::UnknownNestedEntry))));
}

}  // namespace

Allowances::Allowances(const ParsedInput& input)
    : input_(input), directives_(directives_of(input)) {
  for (std::size_t index = 0; index < directives_.size(); ++index) {
    const Directive& directive = directives_[index];
    if (directive.is_heeded()) {
      const bool is_for_file = directive.kind == DirectiveKind::AllowFile;
      add(is_for_file ? whole_input : directive.line_meant, index,
          !is_for_file && directive.is_alone);
    }
  }
}

// A pattern that is given twice counts once, so that no line has more grants than there are codes.
void Allowances::add(std::size_t line, std::size_t directive, bool is_for_record) {
  std::vector<Grant>& grants = grants_[line];
  const std::vector<AllowedCode>& codes = directives_[directive].codes;
  for (std::size_t code = 0; code < codes.size(); ++code) {
    const auto is_same = [&](const Grant& grant) {
      return grant.is_for_record == is_for_record &&
             core::text::equals_ignoring_case(
                 directives_[grant.directive].codes[grant.code].pattern, codes[code].pattern);
    };
    if (codes[code].is_known && std::none_of(grants.begin(), grants.end(), is_same)) {
      grants.push_back({directive, code, is_for_record});
    }
  }
}

bool Allowances::allow(const Diagnostic& diagnostic) {
  if (grants_.empty()) {
    return false;
  }
  if (diagnostic.range) {
    const std::size_t line = input_.source().line_at(diagnostic.range->begin);
    if (allow_at(line, diagnostic.code, false) ||
        allow_record(input_.line(line).record, diagnostic.code)) {
      return true;
    }
  }
  return allow_record(diagnostic.record, diagnostic.code) ||
         allow_at(whole_input, diagnostic.code, false);
}

bool Allowances::allow_record(const RecordId& record, std::string_view code) {
  const auto allow_whole = [&](const RecordId& outer) {
    const std::size_t line = input_.first_line(outer);
    return line != 0 && allow_at(line, code, true);
  };
  switch (record.kind) {
    case RecordKind::None:
      return false;
    case RecordKind::Child:
      return allow_whole(record) ||
             allow_record(RecordId::of_entry(record.index, record.entry), code);
    case RecordKind::Entry:
      return allow_whole(record) || allow_whole(RecordId::of_module(record.index));
    case RecordKind::Atom:
    case RecordKind::GeometryLine:
      return allow_whole(record) || allow_whole(RecordId::of(RecordKind::Geometry, 0));
    default:
      return allow_whole(record);
  }
}

bool Allowances::allow_at(std::size_t line, std::string_view code, bool as_record) {
  const auto found = grants_.find(line);
  if (found == grants_.end()) {
    return false;
  }
  for (const Grant& grant : found->second) {
    AllowedCode& allowed = directives_[grant.directive].codes[grant.code];
    if ((grant.is_for_record || !as_record) && matches_code(allowed.pattern, code)) {
      allowed.is_used = true;
      return true;
    }
  }
  return false;
}

void Allowances::report(const DiagnoseOptions& options,
                        const std::function<void(const Diagnostic&)>& use) {
  for (const Directive& directive : directives_) {
    find_mistakes(directive, input_.source(), use);
    std::vector<std::size_t> unused;
    for (std::size_t i = 0; i < directive.codes.size(); ++i) {
      const AllowedCode& code = directive.codes[i];
      if (code.is_known && !code.is_used && !is_out_of_sight(code.pattern, options)) {
        unused.push_back(i);
      }
    }
    if (!unused.empty() && directive.is_heeded()) {
      tell_unused(directive, unused, input_.source(), use);
    }
  }
}

}  // namespace kelp::input::bdf
