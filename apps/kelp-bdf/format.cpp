#include "format.hpp"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "common_options.hpp"
#include "deliver.hpp"
#include "kelp/input/bdf/rewrite.hpp"
#include "sources.hpp"

namespace kelp::app {
namespace {

struct FormatOptions : DeliverOptions {
  std::vector<std::string> inputs;
};

ExitStatus format(const Source& source, const FormatOptions& options, Session& session) {
  if (options.in_place && source.path == "-") {
    throw std::runtime_error("standard input cannot be changed in place");
  }
  const input::bdf::ParsedInput input(read_source(source), session.schema());
  return deliver(source, input, format_input(input), options, session);
}

ExitStatus format_all(const FormatOptions& options, Session& session) {
  session.schema();
  return for_each_source(expand_sources(options.inputs, session.options),
                         [&](const Source& source) { return format(source, options, session); });
}

}  // namespace

void add_format(CLI::App& app, Session& session) {
  const auto options = std::make_shared<FormatOptions>();
  CLI::App* const command = app.add_subcommand("format", "Lay a file out anew");
  command
      ->add_option("input", options->inputs,
                   "Files, folders (searched for *.inp and *.bdf), - for standard input")
      ->required()
      ->type_name("FILE|DIR|-");
  add_deliver_options(*command, *options);
  command
      ->add_flag("--check", options->check, "Print the names of files that are laid out otherwise")
      ->excludes("--in-place");
  command->footer(
      "Keywords stand at two blanks and values at four, each on a line of its own; known names are "
      "written in lower case, and one empty line parts two modules. Comments, text behind "
      "keywords, "
      "the order of lines, line ends and the digits of numbers stay, and nothing is added. The "
      "result is printed, unless -i, --check or --diff is given.");
  add_common_options(*command, session.options);
  command->callback([options, &session] {
    session.run = [options, &session] { return format_all(*options, session); };
  });
}

}  // namespace kelp::app
