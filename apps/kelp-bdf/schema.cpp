#include "schema.hpp"

#include <memory>
#include <string>

#include "common_options.hpp"
#include "output.hpp"
#include "schema_lint.hpp"
#include "schema_list.hpp"

namespace kelp::app {
namespace {

void add_path(CLI::App& schema, Session& session) {
  CLI::App* const command = schema.add_subcommand("path", "Print the path of the schema in use");
  add_common_options(*command, session.options);
  command->callback([&session] {
    session.run = [&session] {
      print(session.schema_path() + "\n");
      return ExitStatus::Success;
    };
  });
}

void add_list(CLI::App& schema, Session& session) {
  const auto module = std::make_shared<std::string>();
  CLI::App* const command =
      schema.add_subcommand("list", "List the modules, or the entries of one");
  command->add_option("module", *module, "A module, for example scf; easy for the header's words")
      ->type_name("MODULE");
  add_common_options(*command, session.options);
  command->callback([module, &session] {
    session.run = [module, &session] { return list_schema(*module, session); };
  });
}

void add_lint(CLI::App& schema, Session& session) {
  const auto options = std::make_shared<LintOptions>();
  CLI::App* const command =
      schema.add_subcommand("lint", "Report what is wrong in a schema of one's own");
  command->add_option("file", options->file, "The schema, - for standard input")
      ->required()
      ->type_name("FILE");
  command->add_option("--format", options->format, "human or concise (a line for each finding)")
      ->check(CLI::IsMember({"human", "concise"}))
      ->capture_default_str();
  command->add_flag("--strict", options->strict, "Let warnings fail, too");
  add_common_options(*command, session.options);
  command->callback([options, &session] {
    session.run = [options, &session] { return lint_schema_file(*options, session); };
  });
}

}  // namespace

void add_schema(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("schema", "Show or check the vocabulary");
  command->require_subcommand(0, 1);
  add_path(*command, session);
  add_list(*command, session);
  add_lint(*command, session);
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
