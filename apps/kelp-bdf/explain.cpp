#include "explain.hpp"

#include <fmt/format.h>

#include <memory>
#include <string>
#include <vector>

#include "common_options.hpp"
#include "did_you_mean.hpp"
#include "kelp/input/bdf/explain.hpp"
#include "output.hpp"

namespace kelp::app {
namespace {

using input::bdf::ExplainedThing;
using input::bdf::Explanation;
using input::bdf::ExplanationFact;
using input::bdf::InputSchema;

// Where to go from the number of a module's entries, the library cannot know.
void tell_how_to_list_entries(Explanation& about) {
  for (ExplanationFact& fact : about.facts) {
    if (about.thing == ExplainedThing::Module && fact.heading == "entries") {
      fact.text += fmt::format("; 'kelp-bdf schema list {}' lists them", about.name);
    }
  }
}

ExitStatus explain(const std::string& name, Session& session) {
  const InputSchema& schema = session.schema();
  std::vector<Explanation> found = input::bdf::explain(name, schema);
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
  print(text);
  return ExitStatus::Success;
}

}  // namespace

void add_explain(CLI::App& app, Session& session) {
  const auto name = std::make_shared<std::string>();
  CLI::App* const command =
      app.add_subcommand("explain", "Tell what a finding's code or a keyword means");
  command
      ->add_option("name", *name, "scf.charge, easy.charge, compass, charge, bdf.unknown_entry ...")
      ->required()
      ->type_name("KEYWORD|CODE");
  add_common_options(*command, session.options);
  command->callback(
      [name, &session] { session.run = [name, &session] { return explain(*name, session); }; });
}

}  // namespace kelp::app
