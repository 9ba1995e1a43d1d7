#include "show.hpp"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "common_options.hpp"
#include "outline.hpp"
#include "output.hpp"
#include "sources.hpp"

namespace kelp::app {
namespace {

struct ShowOptions {
  std::vector<std::string> inputs;
  bool json = false;
};

FileOutline outline_of(const Source& source, const input::bdf::InputSchema& schema) {
  const input::bdf::ParsedInput input(read_source(source), schema);
  if (input.is_empty()) {
    throw std::runtime_error(source.name + ": there is nothing to show: BDF input is empty");
  }
  return {source.name, input::bdf::outline_of(input)};
}

ExitStatus show(const ShowOptions& options, Session& session) {
  const input::bdf::InputSchema& schema = session.schema();
  std::vector<FileOutline> outlines;
  const ExitStatus status =
      for_each_source(expand_sources(options.inputs, session.options), [&](const Source& source) {
        outlines.push_back(outline_of(source, schema));
        return ExitStatus::Success;
      });
  if (options.json) {
    print(outline_json(outlines));
    return status;
  }
  for (const FileOutline& outline : outlines) {
    print((&outline == &outlines.front() ? "" : "\n") + outline_text(outline));
  }
  return status;
}

}  // namespace

void add_show(CLI::App& app, Session& session) {
  const auto options = std::make_shared<ShowOptions>();
  CLI::App* const command = app.add_subcommand("show", "Print an outline");
  command
      ->add_option("input", options->inputs,
                   "Files, folders (searched for *.inp and *.bdf), - for standard input")
      ->required()
      ->type_name("FILE|DIR|-");
  command->add_flag("--json", options->json, "Print one JSON document");
  add_common_options(*command, session.options);
  command->callback([options, &session] {
    session.run = [options, &session] { return show(*options, session); };
  });
}

}  // namespace kelp::app
