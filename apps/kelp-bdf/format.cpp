#include "format.hpp"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "canonical_form.hpp"
#include "common_options.hpp"
#include "departures.hpp"
#include "output.hpp"
#include "rewrite.hpp"
#include "sources.hpp"

namespace kelp::app {
namespace {

struct FormatOptions : RewriteOptions {
  std::vector<std::string> inputs;
};

Rewrite lay_out(const CheckedInput& before) {
  Rewrite rewrite;
  rewrite.text = canonical_text(before);
  if (rewrite.text == before.source.text()) {
    return rewrite;
  }
  const CheckedInput after(before.name, rewrite.text, before.schema);
  rewrite.reasons = find_departures(before, after);
  for (Finding& error : find_added_errors(before, after)) {
    rewrite.reasons.push_back(std::move(error));
  }
  return rewrite;
}

ExitStatus format(const Source& source, const FormatOptions& options, Session& session) {
  if (options.in_place && source.path == "-") {
    throw std::runtime_error("standard input cannot be changed in place");
  }
  const CheckedInput input(source.name, read_source(source), session.schema());
  if (is_empty_input(input)) {
    throw std::runtime_error(source.name + ": there is nothing to lay out: " + input.result.error);
  }
  return deliver(source, input.source.text(), lay_out(input), options, session);
}

ExitStatus format_all(const FormatOptions& options, Session& session) {
  session.schema();
  return for_each_source(expand_sources(options.inputs, session.options),
                         [&](const Source& source) { return format(source, options, session); });
}

}  // namespace

void add_format(CLI::App& app, Session& session) {
  const auto options = std::make_shared<FormatOptions>();
  CLI::App* const command = app.add_subcommand("format", "Lay out in the canonical form");
  command
      ->add_option("input", options->inputs,
                   "Files, folders (searched for *.inp and *.bdf), - for standard input")
      ->required()
      ->type_name("FILE|DIR|-");
  add_rewrite_options(*command, *options);
  command
      ->add_flag("--check", options->check, "Print the names of files that are laid out otherwise")
      ->excludes("--in-place");
  add_common_options(*command, session.options);
  command->callback([options, &session] {
    session.run = [options, &session] { return format_all(*options, session); };
  });
}

}  // namespace kelp::app
