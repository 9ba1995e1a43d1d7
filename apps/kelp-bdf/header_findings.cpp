// Findings about the header and the geometry of an easy input.

#include "finding_context.hpp"
#include "kelp/input/bdf/names.hpp"
#include "line_of.hpp"

namespace kelp::app {

void complete_header_value(FindingDraft& draft) {
  const auto found = draft.context.easy_tokens.next(draft.issue);
  if (!found) {
    draft.mark(draft.input.source.content(draft.line));
    return;
  }
  draft.finding.path = "easy." + found->token->key;
  draft.mark(found->value);
  const auto info = draft.input.schema.easy_keyword_info(found->token->key);
  if (info) {
    draft.suggest(input::bdf::similar_names(found->token->value, info->allowed), "value", "values");
  }
  draft.expect(info);
}

void complete_missing_method(FindingDraft& draft) {
  const auto& tokens = draft.input.result.data.easy_tokens;
  if (!tokens.empty() && tokens.front().location) {
    const auto line = line_of(tokens.front());
    draft.mark(draft.input.source.content(line), "no method, functional or basis here");
  }
  draft.help("write for example 'B3LYP/def2-SVP' on the first line");
}

void complete_missing_geometry(FindingDraft& draft) {
  draft.mark_word(draft.line, "no atom follows");
  draft.help("put the atoms between a line 'Geometry' and a line 'End Geometry'");
}

void complete_unterminated_geometry(FindingDraft& draft) {
  draft.mark_word(draft.line, "begins here");
  draft.help("add a line 'End Geometry' after the last atom");
}

}  // namespace kelp::app
