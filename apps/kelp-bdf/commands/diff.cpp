#include "commands/commands.hpp"

#include <stdexcept>
#include <string>

#include "cli/output.hpp"
#include "cli/sources.hpp"
#include "kelp/input/bdf/diagnostics.hpp"
#include "report/differences.hpp"

namespace kelp::app {
namespace {

using input::bdf::ParsedInput;

ParsedInput read_input(const Source& source, Session& session) {
  ParsedInput input(read_source(source, session.options), *session.settings_of(source).schema);
  if (const auto fault = find_text_fault(input.source())) {
    throw std::runtime_error(source.name + ": " + fault->message);
  }
  return input;
}

}  // namespace

ExitStatus run_diff(const DiffOptions& options, Session& session) {
  if (options.before == "-" && options.after == "-") {
    throw std::runtime_error("standard input can be only one of the two inputs");
  }
  const Source before = source_of(options.before, session.options);
  const Source after = source_of(options.after, session.options);
  const ParsedInput old_input = read_input(before, session);
  const ParsedInput new_input = read_input(after, session);
  const ComparedInputs compared = {before.name, after.name, old_input.source(), new_input.source(),
                                   find_differences(old_input, new_input)};
  if (!session.options.quiet) {
    if (options.json) {
      print_contents(differences_json(compared));
    } else {
      print(differences_text(compared, use_colour(session.options.colour)));
    }
  }
  return compared.differences.empty() ? ExitStatus::Success : ExitStatus::Findings;
}

}  // namespace kelp::app
