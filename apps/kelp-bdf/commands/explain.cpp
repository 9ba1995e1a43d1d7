#include "commands/commands.hpp"

#include <fmt/format.h>

#include <string>
#include <vector>

#include "cli/output.hpp"
#include "kelp/core/unicode.hpp"
#include "kelp/input/bdf/explain.hpp"

namespace kelp::app {
namespace {

using input::bdf::Explanation;
using input::bdf::ExplanationFact;
using input::bdf::FactKind;
using input::bdf::InputSchema;

// Where to go from the number of a module's entries, the library cannot know.
void tell_how_to_list_entries(Explanation& about) {
  for (ExplanationFact& fact : about.facts) {
    if (fact.kind == FactKind::EntryCount) {
      fact.text += fmt::format("; 'kelp-bdf schema list {}' lists them", about.name);
    }
  }
}

}  // namespace

ExitStatus run_explain(const ExplainOptions& options, Session& session) {
  const std::string& name = options.name;
  const InputSchema& schema = session.schema();
  std::vector<Explanation> found = input::bdf::explain(name, schema, session.language());
  if (found.empty()) {
    complain(fmt::format("nothing is called '{}'{}", name,
                         did_you_mean(input::bdf::similar_explained_names(name, schema))));
    return ExitStatus::Findings;
  }
  std::string text;
  for (Explanation& about : found) {
    tell_how_to_list_entries(about);
    text += (text.empty() ? "" : "\n") + explanation_text(about);
  }
  print(core::unicode::displayable_lines(text));
  return ExitStatus::Success;
}

}  // namespace kelp::app
