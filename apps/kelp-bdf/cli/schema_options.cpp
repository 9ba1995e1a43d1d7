// The subcommands of `schema` and their options.

#include <memory>
#include <string>

#include "cli/option_parts.hpp"
#include "cli/output.hpp"
#include "commands/commands.hpp"
#include "report/output_schemas.hpp"

namespace kelp::app {
namespace {

void add_schema_path(CLI::App& schema, Session& session) {
  CLI::App* const command = schema.add_subcommand("path", "Print the path of the schema in use");
  add_common_options(*command, session.options);
  command->callback([&session] { session.run = [&session] { return run_schema_path(session); }; });
}

void add_schema_list(CLI::App& schema, Session& session) {
  const auto options = std::make_shared<SchemaListOptions>();
  CLI::App* const command =
      schema.add_subcommand("list", "List the modules, or the entries of one");
  command
      ->add_option("module", options->module,
                   "A module, for example scf; easy for the header's words")
      ->check(not_empty())
      ->type_name("MODULE");
  run_when_named(*command, session, options, run_schema_list);
}

void add_schema_lint(CLI::App& schema, Session& session) {
  const auto options = std::make_shared<SchemaLintOptions>();
  CLI::App* const command =
      schema.add_subcommand("lint", "Report what is wrong in a schema of one's own");
  command->add_option("file", options->file, "The schema, - for standard input")
      ->required()
      ->check(not_empty())
      ->type_name("FILE");
  add_form(*command, options->format);
  command->add_flag("--strict", options->strict, "Let warnings fail, too");
  run_when_named(*command, session, options, run_schema_lint);
}

// One for each kind of document that is printed as JSON.
void add_output_schemas(CLI::App& schema, Session& session) {
  for (const OutputSchema& output : output_schemas()) {
    CLI::App* const command = schema.add_subcommand(
        std::string(output.name), "Print a JSON Schema: " + std::string(output.purpose));
    add_common_options(*command, session.options);
    command->callback(
        [&output, &session] { session.run = [&output] { return run_output_schema(output); }; });
  }
}

}  // namespace

void add_schema(CLI::App& app, Session& session) {
  CLI::App* const command =
      app.add_subcommand("schema", "Show or check the vocabulary; print JSON Schemas");
  command->require_subcommand(0, 1);
  add_schema_path(*command, session);
  add_schema_list(*command, session);
  add_schema_lint(*command, session);
  add_output_schemas(*command, session);
  // Without a subcommand there is nothing to do; say which there are.
  command->callback([command, &session] {
    if (command->get_subcommands().empty()) {
      session.run = [] {
        complain("no command given; 'kelp-bdf schema --help' lists them");
        return ExitStatus::Failure;
      };
    }
  });
}

}  // namespace kelp::app
