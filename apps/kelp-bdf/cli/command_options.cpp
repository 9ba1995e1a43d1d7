// The options of each command. A command gets them as plain values when it runs; nothing else knows
// how they are read.

#include "cli/command_options.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <utility>

#include "cli/output.hpp"
#include "cli/size.hpp"
#include "commands/commands.hpp"
#include "kelp/core/text.hpp"
#include "report/findings_report.hpp"
#include "report/output_schemas.hpp"

namespace kelp::app {
namespace {

using input::bdf::SeverityAction;

constexpr int most_jobs = 1024;

/// Makes a command the one to run when it was named.
template <typename Options>
void run_when_named(CLI::App& command, Session& session, std::shared_ptr<Options> options,
                    ExitStatus (*run)(const Options&, Session&)) {
  add_common_options(command, session.options);
  command.callback([&command, options = std::move(options), run, &session] {
    session.options.command = command.get_name();
    session.run = [options, run, &session] { return run(*options, session); };
  });
}

// An empty name is a shell variable that was not set, and would pass for an option not given.
CLI::Validator not_empty() {
  return {[](const std::string& text) {
            return std::string(text.empty() ? "it must not be empty" : "");
          },
          ""};
}

// The words are shown as the type of the option.
CLI::Validator one_of(std::vector<std::string> words) {
  return CLI::IsMember(std::move(words)).description("");
}

// That there is one is seen when they are looked for: a list may name them.
void add_inputs(CLI::App& command, InputOptions& options) {
  command
      .add_option("input", options.inputs,
                  "Files, folders (searched for *.inp and *.bdf), - for standard input")
      ->check(not_empty())
      ->type_name("FILE|DIR|-");
  command
      .add_option("--files-from", options.lists,
                  "Take further names from a file, on a line each or with NUL bytes between them; "
                  "- for standard input")
      ->check(not_empty())
      ->type_name("FILE|-")
      ->allow_extra_args(false);
  command
      .add_option("--exclude", options.exclude,
                  "Leave out what matches in folders: a name such as 'old*', or a path with a "
                  "slash such as 'runs/**/test.inp'")
      ->check(not_empty())
      ->type_name("GLOB")
      ->allow_extra_args(false);
}

void add_deliver_options(CLI::App& command, DeliverOptions& options) {
  CLI::Option* const in_place =
      command.add_flag("-i,--in-place", options.in_place, "Change the file itself");
  command.add_flag("--diff", options.diff, "Print what would change, as a unified diff")
      ->excludes(in_place);
  command.add_flag("--force", options.force, "Write although something is lost or becomes wrong");
  command.add_option("--format", options.format, "How reasons against writing are printed")
      ->check(one_of({"human", "concise"}))
      ->type_name("human|concise")
      ->capture_default_str();
}

void add_edits(CLI::App& command, SetOptions& options) {
  command.add_option("input", options.input, "The file to change, or - for standard input")
      ->required()
      ->check(not_empty())
      ->type_name("FILE|-");
  command
      .add_option("assignment", options.assignments,
                  "scf.charge=1, scf#2.dft=pbe0 (the second $scf), easy.charge=1 (the header), "
                  "easy.functional=b3lyp (also easy.method, easy.basis)")
      ->type_name("PATH=VALUE");
  command.add_option("--charge", options.charge, "The total charge")
      ->check(not_empty())
      ->type_name("N");
  command.add_option("--multiplicity", options.multiplicity, "The spin multiplicity 2S+1")
      ->check(not_empty())
      ->type_name("N");
  command
      .add_option("--geometry", options.geometry,
                  "Take all atoms from an XYZ file, in angstrom; compass#2.geometry=FILE.xyz for "
                  "one of several geometries; - for standard input")
      ->check(not_empty())
      ->type_name("[PATH=]FILE.xyz|-");
  command.add_option("--script-name", options.script_name, "The name on the line '#!'")
      ->check(not_empty())
      ->type_name("NAME");
  command
      .add_option("--unset", options.unset,
                  "Take a value out, or with a path such as tddft#2 a whole module")
      ->type_name("PATH")
      ->allow_extra_args(false);
}

void add_form(CLI::App& command, std::string& form) {
  command.add_option("--format", form, "How findings are printed; concise is a line for each")
      ->check(one_of(findings_forms()))
      ->type_name(core::text::join(findings_forms(), "|"))
      ->capture_default_str()
      ->take_last();
}

std::string complaint_about_size(const std::string& text) {
  return parse_size(text) ? "" : "'" + text + "' is no size such as 256M";
}

std::string complaint_about_count(const std::string& text) {
  constexpr std::size_t most_digits = 9;
  const bool is_count = !text.empty() && text.size() <= most_digits &&
                        text.find_first_not_of("0123456789") == std::string::npos;
  return is_count ? "" : "'" + text + "' is no number of findings";
}

/// Adds an option that says what becomes of some findings. Rules are kept in the order in which
/// they are given, whichever option gives them.
void add_rule(CLI::App& command, const std::string& name, SeverityAction action,
              const std::shared_ptr<CheckOptions>& options, const std::string& description) {
  const auto add = [options, action](const CLI::results_t& given) {
    for (const std::string& codes : given) {
      std::istringstream list(codes + ',');
      for (std::string code; std::getline(list, code, ',');) {
        options->rules.push_back({code, action});
      }
    }
    return true;
  };
  command.add_option(name, add, description)->type_name("CODE,...")->trigger_on_parse();
}

void add_amounts(CLI::App& command, CheckOptions& options) {
  CLI::Option* const most = command
                                .add_option("--max-findings", options.max_findings,
                                            "Print no more than these, and count all")
                                ->check(complaint_about_count)
                                ->type_name("N")
                                ->take_last();
  command
      .add_flag("--summary", options.summary,
                "Print how many findings there are of each code and in each file, instead of them")
      ->excludes(most);
  command
      .add_option("-j,--jobs", options.jobs, "Check so many files at once; else as many as cores")
      ->check(CLI::Range(1, most_jobs).description(""))
      ->type_name("N")
      ->take_last();
}

void add_severities(CLI::App& command, const std::shared_ptr<CheckOptions>& options) {
  command.add_flag("--strict", options->strict, "Let warnings fail, too");
  add_rule(command, "--allow", SeverityAction::Allow, options, "Leave these findings out");
  add_rule(command, "--warn", SeverityAction::Warn, options, "Make these findings warnings");
  add_rule(command, "--deny", SeverityAction::Deny, options, "Make these findings errors");
  command.add_flag("--list-codes", options->list_codes,
                   "Print the codes of all findings, with severity and meaning");
  command.footer(
      "A '*' at the end of a CODE stands for anything: 'bdf.unknown_*'. Of several options about "
      "one code the last counts. In an input, '# kelp-bdf: allow CODE' leaves findings out: on a "
      "line of its own, those of the next line and of what begins there, an entry or a module; "
      "behind a line, those of that line; 'allow-file CODE', those of the whole input. Notes never "
      "fail.");
}

void add_check(CLI::App& app, Session& session) {
  const auto options = std::make_shared<CheckOptions>();
  CLI::App* const command = app.add_subcommand("check", "Report findings");
  add_inputs(*command, *options);
  command->add_option("--unknown", options->unknown, "What unknown names are")
      ->check(one_of({"error", "warn", "ignore"}))
      ->type_name("error|warn|ignore")
      ->capture_default_str()
      ->take_last();
  add_form(*command, options->format);
  add_amounts(*command, *options);
  add_severities(*command, options);
  CLI::Option* const fix = command->add_flag("--fix", options->fix,
                                             "Mend in the files what has but one sensible remedy");
  command
      ->add_flag("--diff", options->diff,
                 "Print what --fix would change, as a unified diff, instead of findings")
      ->needs(fix);
  run_when_named(*command, session, options, run_check);
}

void add_format(CLI::App& app, Session& session) {
  const auto options = std::make_shared<FormatOptions>();
  CLI::App* const command = app.add_subcommand("format", "Lay a file out anew");
  add_inputs(*command, *options);
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
  run_when_named(*command, session, options, run_format);
}

void add_set(CLI::App& app, Session& session) {
  const auto options = std::make_shared<SetOptions>();
  CLI::App* const command = app.add_subcommand("set", "Change, add or remove values");
  add_edits(*command, *options);
  add_deliver_options(*command, *options);
  command->add_option("-o,--output", options->output_file, "Write to a file; - is standard output")
      ->check(not_empty())
      ->type_name("FILE|-")
      ->excludes("--in-place")
      ->excludes("--diff");
  command->footer(
      "The result is printed, unless -i, -o or --diff is given. All that the change does not "
      "concern "
      "stays as it is, byte for byte; what has the value already is not touched. In a value '\\n' "
      "begins a new line; a keyword without a value ends in '='. A module that is not there is "
      "added where the order of execution wants it. The result is checked: a change that adds an "
      "error, or a name that the vocabulary does not know, is refused unless --force is given.");
  run_when_named(*command, session, options, run_set);
}

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

}  // namespace

void add_common_options(CLI::App& command, CommonOptions& options) {
  command.option_defaults()->group(shared_group);
  command.add_option("--schema", options.schema_file, "The vocabulary to use")
      ->check(not_empty())
      ->type_name("FILE")
      ->take_last();
  command.add_option("--color", options.colour, "Use colours")
      ->check(one_of({"auto", "always", "never"}))
      ->type_name("auto|always|never")
      ->capture_default_str()
      ->take_last();
  command
      .add_option("--stdin-filename", options.stdin_filename,
                  "What to call standard input in findings")
      ->check(not_empty())
      ->type_name("NAME")
      ->take_last();
  command
      .add_option(
          "--lang", options.language,
          "The language of what names and values mean; else that of the configuration, or of "
          "LC_ALL, LC_MESSAGES, LANG")
      ->check(one_of({"en", "zh"}))
      ->type_name("en|zh")
      ->take_last();
  const auto read_size = [&options](const CLI::results_t& given) {
    options.max_size = *parse_size(given.back());
    return true;
  };
  command
      .add_option("--max-size", read_size,
                  "Refuse inputs that are larger, 256M unless given; k, M, G, T are powers of 1000")
      ->check(complaint_about_size)
      ->type_name("SIZE")
      ->take_last();
  command.add_flag("--no-config", options.no_config, "Take no settings from '.kelp-bdf.toml'");
  command.add_flag("-q,--quiet", options.quiet, "Say nothing; the exit status tells");
  command.set_help_flag("-h,--help", "Print this help");
  command.option_defaults()->group("Options");
}

void add_commands(CLI::App& app, Session& session) {
  add_check(app, session);
  add_format(app, session);
  add_set(app, session);
  add_get(app, session);
  add_show(app, session);
  add_diff(app, session);
  add_explain(app, session);
  add_config(app, session);
  add_schema(app, session);
  add_lsp(app, session);
}

}  // namespace kelp::app
