// Findings about names that the schema does not know.

#include <fmt/format.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "finding_context.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "unicode.hpp"

namespace kelp::app {
namespace {

using input::bdf::similar_names;

// "charge=1" in a module, as one would write it in the header.
bool explain_header_form(FindingDraft& draft) {
  const std::string& module = draft.place.module->name;
  const std::string& word = draft.place.entry->name;
  const std::size_t equals = word.find('=');
  if (equals == std::string::npos ||
      !draft.input.schema.is_known_entry(module, std::string_view(word).substr(0, equals))) {
    return false;
  }
  draft.help(fmt::format("write '{}' and on the next line its value",
                         draft.input.schema.canonical_entry(module, word.substr(0, equals))));
  return true;
}

bool explain_number(FindingDraft& draft) {
  if (!core::number::parse_float(draft.place.entry->name)) {
    return false;
  }
  draft.help("no keyword above takes this line as a value");
  return true;
}

void name_other_modules(FindingDraft& draft) {
  std::vector<std::string> others =
      draft.context.names().modules_with_entry(draft.place.entry->name);
  for (std::string& other : others) {
    other.insert(0, "$");
  }
  if (!others.empty()) {
    draft.help(fmt::format("it is an entry of {}", input::bdf::quoted_choice(others)));
  }
}

}  // namespace

void complete_unknown_module(FindingDraft& draft) {
  const SourceText& source = draft.input.source;
  const LinePart header = source.content(draft.line);
  const LinePart word = source.first_word(draft.line);
  const std::string_view name = source.text_of(word);
  if (header.end > word.end && draft.input.schema.is_known_module(name)) {
    draft.mark(source.trimmed({draft.line, word.end, header.end}), "taken as part of the name");
    draft.help(
        fmt::format("only '{}' may stand on this line; put remarks on a line of their own", name));
    return;
  }
  draft.mark(header, "not a module");
  draft.suggest(similar_names(draft.place.module->name, draft.context.names().modules()), "module",
                "modules");
}

void complete_unknown_entry(FindingDraft& draft) {
  const std::string& module = draft.place.module->name;
  draft.mark_word(draft.line, "not an entry of $" + abridged(module));
  if (!draft.input.schema.is_known_module(module) || explain_header_form(draft) ||
      explain_number(draft)) {
    return;
  }
  draft.suggest(similar_names(draft.place.entry->name, draft.context.names().entries(module)),
                "entry", "entries");
  if (draft.finding.suggestions.empty()) {
    name_other_modules(draft);
  }
}

void complete_unknown_nested_entry(FindingDraft& draft) {
  const std::string& block = draft.place.entry->name;
  draft.mark_word(draft.line, fmt::format("not an entry of the block '{}'", block));
  const auto& names = draft.context.names().nested_entries(draft.place.module->name, block);
  draft.suggest(similar_names(draft.place.child->name, names), "entry", "entries");
}

}  // namespace kelp::app
