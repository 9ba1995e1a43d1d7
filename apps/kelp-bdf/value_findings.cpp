// Findings about the values of entries.

#include "finding_context.hpp"
#include "kelp/input/bdf/names.hpp"
#include "locate_value.hpp"

namespace kelp::app {

void complete_missing_value(FindingDraft& draft) {
  const SourceText& source = draft.input.source;
  const LinePart word = source.first_word(draft.line);
  const LinePart rest = source.trimmed({draft.line, word.end, source.line(draft.line).size()});
  if (rest.begin < rest.end && source.line(draft.line)[rest.begin] != '#') {
    draft.mark(rest, "not read here");
    draft.help("write the value on the next line; what stands behind a keyword is not read");
    return;
  }
  draft.mark(word, "no value follows");
  draft.expect(draft.description());
}

void complete_invalid_value(FindingDraft& draft) {
  const auto info = draft.description();
  const auto part = locate_invalid_value(draft.input, draft.place);
  if (!part) {
    draft.mark_word(draft.line);
  } else {
    draft.mark(*part);
    if (info) {
      draft.suggest(input::bdf::similar_names(draft.input.source.text_of(*part), info->allowed),
                    "value", "values");
    }
  }
  draft.expect(info);
}

}  // namespace kelp::app
