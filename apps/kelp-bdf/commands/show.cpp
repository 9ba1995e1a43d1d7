#include "commands/commands.hpp"

#include <stdexcept>
#include <string>
#include <vector>

#include "cli/output.hpp"
#include "cli/sources.hpp"
#include "report/outline.hpp"

namespace kelp::app {
namespace {

FileOutline outline_of(const Source& source, const input::bdf::InputSchema& schema,
                       input::bdf::Language language) {
  const input::bdf::ParsedInput input(read_source(source), schema);
  if (input.is_empty()) {
    throw std::runtime_error(source.name + ": there is nothing to show: BDF input is empty");
  }
  return {source.name, input::bdf::outline_of(input, language), input::bdf::calculation_of(input)};
}

}  // namespace

ExitStatus run_show(const ShowOptions& options, Session& session) {
  const input::bdf::InputSchema& schema = session.schema();
  std::vector<FileOutline> outlines;
  const ExitStatus status =
      for_each_source(expand_sources(options.inputs, session.options), [&](const Source& source) {
        outlines.push_back(outline_of(source, schema, session.language()));
        return ExitStatus::Success;
      });
  if (options.json) {
    print_contents(outline_json(outlines));
    return status;
  }
  for (const FileOutline& outline : outlines) {
    print((&outline == &outlines.front() ? "" : "\n") + outline_text(outline));
  }
  return status;
}

}  // namespace kelp::app
