#include "commands/commands.hpp"

#include <stdexcept>
#include <string>

#include "cli/output.hpp"
#include "cli/sources.hpp"
#include "report/json.hpp"
#include "report/outline.hpp"

namespace kelp::app {
namespace {

using input::bdf::ParsedInput;

ParsedInput read_input(const Source& source, Session& session) {
  ParsedInput input(read_source(source, session.options), *session.settings_of(source).schema);
  if (input.is_empty()) {
    throw std::runtime_error(source.name + ": there is nothing to show: BDF input is empty");
  }
  return input;
}

ExitStatus show_as_json(const Sources& sources, Session& session) {
  JsonList list("inputs");
  print(list.begin());
  const ExitStatus status = for_each_source(sources, [&](const Source& source) {
    print_contents(list.add(input_json(source.name, read_input(source, session),
                                       session.settings_of(source).language)));
    return ExitStatus::Success;
  });
  print_contents(list.end());
  return status;
}

}  // namespace

ExitStatus run_show(const ShowOptions& options, Session& session) {
  session.schema();
  const Sources sources = expand_sources(options, session);
  if (options.json) {
    return show_as_json(sources, session);
  }
  bool is_first = true;
  return for_each_source(sources, [&](const Source& source) {
    const ParsedInput input = read_input(source, session);
    const Session::Settings& settings = session.settings_of(source);
    print((is_first ? "" : "\n") +
          outline_text({source.name, outline_of(input, settings.language), calculation_of(input),
                        settings.width_or(FileOutline::usual_width)}));
    is_first = false;
    return ExitStatus::Success;
  });
}

}  // namespace kelp::app
