#include "format.hpp"

#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "canonical_form.hpp"
#include "common_options.hpp"
#include "departures.hpp"
#include "make_finding.hpp"
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

/// One run of the command.
class Format {
 public:
  Format(const FormatOptions& options, Session& session) : options_(options), session_(session) {}

  ExitStatus run() {
    session_.schema();
    const Sources sources = expand_sources(options_.inputs, session_.options);
    for (const std::string& error : sources.errors) {
      fail(error);
    }
    for (const Source& source : sources.list) {
      try {
        status_ = worse_of(status_, format(source));
      } catch (const std::exception& error) {
        fail(error.what());
      }
    }
    return status_;
  }

 private:
  void fail(const std::string& error) {
    complain(error);
    status_ = ExitStatus::Failure;
  }

  ExitStatus format(const Source& source) {
    if (options_.in_place && source.path == "-") {
      complain("standard input cannot be changed in place");
      return ExitStatus::Failure;
    }
    const CheckedInput input(source.name, read_source(source), session_.schema());
    if (is_empty_input(input)) {
      complain(source.name + ": there is nothing to lay out: " + input.result.error);
      return ExitStatus::Failure;
    }
    return deliver(source, input.source.text(), lay_out(input), options_, session_);
  }

  const FormatOptions& options_;
  Session& session_;
  ExitStatus status_ = ExitStatus::Success;
};

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
    session.run = [options, &session] { return Format(*options, session).run(); };
  });
}

}  // namespace kelp::app
