// The options of each command. A command gets them as plain values when it runs; nothing else knows
// how they are read. Those of `check`, of what changes files, and of `schema` stand in files of
// their own.

#include "cli/command_options.hpp"

#include <memory>

#include "cli/option_parts.hpp"
#include "commands/commands.hpp"

namespace kelp::app {
namespace {

void add_get(CLI::App& app, Session& session) {
  const auto options = std::make_shared<GetOptions>();
  CLI::App* const command = app.add_subcommand("get", "Print a value by its path");
  command
      ->add_option("path", options->path,
                   "scf.charge, scf#2.charge (the second $scf), easy.charge (the header), geometry")
      ->required()
      ->type_name("PATH");
  add_inputs(*command, *options);
  command->add_flag("--json", options->json, "Print one JSON document, with positions");
  command->footer(
      "The lines of the value are printed as they stand, without comments and the blanks around "
      "them; a keyword that has no value prints none. easy.method, easy.functional and easy.basis "
      "are the parts of the method specification. Of several entries of one name the first counts. "
      "With several files each line begins with the file's name. The exit status is 1 when there "
      "is nothing at the path.");
  run_when_named(*command, session, options, run_get);
}

void add_show(CLI::App& app, Session& session) {
  const auto options = std::make_shared<ShowOptions>();
  CLI::App* const command = app.add_subcommand("show", "Print what is computed, and an outline");
  add_inputs(*command, *options);
  command->add_flag("--json", options->json, "Print one JSON document");
  run_when_named(*command, session, options, run_show);
}

void add_diff(CLI::App& app, Session& session) {
  const auto options = std::make_shared<DiffOptions>();
  CLI::App* const command =
      app.add_subcommand("diff", "Tell what differs in meaning between two inputs");
  command->add_option("before", options->before, "The first input, - for standard input")
      ->required()
      ->check(not_empty())
      ->type_name("FILE|-");
  command->add_option("after", options->after, "The second input, - for standard input")
      ->required()
      ->check(not_empty())
      ->type_name("FILE|-");
  command->add_flag("--json", options->json, "Print one JSON document");
  command->footer(
      "Blanks, comments, letter case, aliases, how numbers are written and the order of entries "
      "make no difference; values, modules and their order, and atoms do. The status is 0 when "
      "nothing differs, 1 when something does, 2 when a file cannot be read.");
  run_when_named(*command, session, options, run_diff);
}

void add_explain(CLI::App& app, Session& session) {
  const auto options = std::make_shared<ExplainOptions>();
  CLI::App* const command =
      app.add_subcommand("explain", "Tell what a finding's code or a keyword means");
  command
      ->add_option("name", options->name,
                   "scf.charge, easy.charge, compass, charge, bdf.unknown_entry ...")
      ->required()
      ->type_name("KEYWORD|CODE");
  run_when_named(*command, session, options, run_explain);
}

void add_lsp(CLI::App& app, Session& session) {
  const auto options = std::make_shared<LspOptions>();
  CLI::App* const command = app.add_subcommand("lsp", "Serve an editor (language server)");
  command->add_option("--trace", options->trace, "Write all messages to a file, too")
      ->check(not_empty())
      ->type_name("FILE")
      ->take_last();
  command->footer(
      "Speaks the language server protocol on standard input and output; docs/editors.md tells how "
      "to set editors up. The exit status is 1 when the editor went away without a good-bye.");
  run_when_named(*command, session, options, run_lsp);
}

void add_config(CLI::App& app, Session& session) {
  const auto options = std::make_shared<ConfigOptions>();
  CLI::App* const command =
      app.add_subcommand("config", "Print which settings hold, and where they come from");
  command
      ->add_option("input", options->input,
                   "A file or a folder; the current folder when none is named")
      ->check(not_empty())
      ->type_name("FILE|DIR|-");
  command->footer(
      "The configuration is the nearest file '.kelp-bdf.toml' in the folder of an input or above. "
      "It may say: schema = \"ours.yaml\", a file beside it; language = \"en\" or \"zh\"; "
      "width = 100, columns; exclude = [\"old\"], patterns as --exclude takes them; and below "
      "[severities], "
      "\"bdf.unknown_*\" = \"error\", \"warning\" or \"allow\". Options count for more.");
  run_when_named(*command, session, options, run_config);
}

}  // namespace

void add_commands(CLI::App& app, Session& session) {
  add_check(app, session);
  add_format(app, session);
  add_set(app, session);
  add_sweep(app, session);
  add_get(app, session);
  add_show(app, session);
  add_diff(app, session);
  add_explain(app, session);
  add_config(app, session);
  add_schema(app, session);
  add_lsp(app, session);
}

}  // namespace kelp::app
