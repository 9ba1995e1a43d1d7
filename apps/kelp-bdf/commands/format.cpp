#include "commands/commands.hpp"

#include <stdexcept>
#include <string>
#include <vector>

#include "cli/sources.hpp"
#include "commands/deliver.hpp"
#include "kelp/input/bdf/rewrite.hpp"

namespace kelp::app {
namespace {

ExitStatus format(const Source& source, const FormatOptions& options, Session& session) {
  if (options.in_place && source.path == "-") {
    throw std::runtime_error("standard input cannot be changed in place");
  }
  const input::bdf::ParsedInput input(read_source(source, session.options),
                                      *session.settings_of(source).schema);
  return deliver(source, input.source(), format_input(input), options, session);
}

}  // namespace

ExitStatus run_format(const FormatOptions& options, Session& session) {
  session.schema();
  return for_each_source(expand_sources(options, session),
                         [&](const Source& source) { return format(source, options, session); });
}

}  // namespace kelp::app
