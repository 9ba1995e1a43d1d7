// Findings about how modules, entries and blocks stand together.

#include <fmt/format.h>

#include <string>
#include <string_view>

#include "finding_context.hpp"

namespace kelp::app {
namespace {

// The name under which the library speaks of what holds an entry: "scf", or "bdfopt.constrain".
std::string owner_of(const FindingDraft& draft, const input::bdf::ModuleEntry* block) {
  const std::string& module = draft.place.module->name;
  return block == nullptr ? module
                          : module + '.' + draft.input.schema.canonical_entry(module, block->name);
}

bool names(const FindingDraft& draft, std::string_view owner, std::string_view name) {
  return draft.issue.message.find(fmt::format("'{}.{}'", owner, name)) != std::string::npos;
}

// The library names the module or block; the eye wants the repetition itself.
void mark_repetition(FindingDraft& draft, const NameLines& lines) {
  draft.mark_word(lines.again, fmt::format("first given on line {}", lines.first));
  draft.finding.path = draft.context.lines.path(draft.context.lines.place(lines.again));
}

}  // namespace

void complete_unterminated_module(FindingDraft& draft) {
  draft.mark(draft.input.source.content(draft.line), "begins here");
  draft.help("add a line '$end' after its last entry");
}

void complete_unterminated_block(FindingDraft& draft) {
  draft.mark_word(draft.line, "begins here");
  const input::bdf::ModuleEntry* const record = draft.place.record();
  if (record != nullptr && !record->terminator.empty()) {
    draft.help(fmt::format("add a line '{}' after its last line", record->terminator));
  }
}

void complete_duplicate_module(FindingDraft& draft) {
  for (const auto& [name, lines] : draft.context.namesakes.modules()) {
    if (lines.again != 0 &&
        draft.issue.message.find(fmt::format("'${}'", name)) != std::string::npos) {
      mark_repetition(draft, lines);
      return;
    }
  }
}

void complete_duplicate_entry(FindingDraft& draft) {
  const input::bdf::Module* const module = draft.place.module;
  if (module == nullptr) {
    return;
  }
  const input::bdf::ModuleEntry* const block = draft.place.entry;
  const std::string owner = owner_of(draft, block);
  for (const auto& [name, lines] : block == nullptr
                                       ? draft.context.namesakes.entries(*module)
                                       : draft.context.namesakes.children(*module, *block)) {
    if (lines.again != 0 && names(draft, owner, name)) {
      mark_repetition(draft, lines);
      return;
    }
  }
  draft.mark_word(draft.line);
}

void complete_conflict(FindingDraft& draft) {
  draft.mark_word(draft.line);
  const auto info = draft.description();
  if (!info) {
    return;
  }
  const Place& place = draft.place;
  const std::string owner = owner_of(draft, place.child == nullptr ? nullptr : place.entry);
  const NameTable& siblings = place.child == nullptr
                                  ? draft.context.namesakes.entries(*place.module)
                                  : draft.context.namesakes.children(*place.module, *place.entry);
  for (const std::string& other : info->conflicts) {
    const auto found = siblings.find(other);
    if (found != siblings.end() && names(draft, owner, other)) {
      draft.finding.label = fmt::format("not beside line {}", found->second.first);
      return;
    }
  }
}

}  // namespace kelp::app
