// The options of the commands that change files.

#include <memory>

#include "cli/option_parts.hpp"
#include "commands/commands.hpp"

namespace kelp::app {
namespace {

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

}  // namespace

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
      "error, or a name that the vocabulary does not know, is refused unless --force is given. "
      "Where the calculation makes no sense any more, say of a charge that leaves an odd number of "
      "electrons, that is told, but written: the next change may mend it.");
  run_when_named(*command, session, options, run_set);
}

void add_sweep(CLI::App& app, Session& session) {
  const auto options = std::make_shared<SweepOptions>();
  CLI::App* const command =
      app.add_subcommand("sweep", "Write a file for each combination of several values");
  command->add_option("input", options->input, "The input to vary, or - for standard input")
      ->required()
      ->check(not_empty())
      ->type_name("FILE|-");
  command
      ->add_option("axis", options->axes,
                   "A path and its values: scf.dft=pbe0,b3lyp or easy.charge=-1,0,1; the values of "
                   "the last one change fastest")
      ->required()
      ->type_name("PATH=VALUES");
  command
      ->add_option("--name", options->name,
                   "A pattern for the names: {dft} or {scf.dft} is a value, {#} a number")
      ->required()
      ->check(not_empty())
      ->type_name("PATTERN");
  command->add_option("-o,--output", options->folder, "The folder to write to, made if need be")
      ->check(not_empty())
      ->type_name("DIR")
      ->capture_default_str();
  command->add_flag("--dry-run", options->dry_run, "Write nothing, only say what would be");
  command->add_flag("--overwrite", options->overwrite, "Replace other files of those names");
  command->add_flag("--force", options->force, "Write although something is lost or becomes wrong");
  command->footer(
      "Prints the names of the files that it writes. Each is the input with the values changed, as "
      "'set' changes them, and is checked as 'check' does; what is new among the findings is told. "
      "Nothing is written when one of them is refused: for a change that 'set' refuses, for a name "
      "that two of them would have, for another file of that name. A file that has the text "
      "already "
      "stays, so that a sweep may be run again. A comma within parentheses, as in 6-31G(d,p), or "
      "behind a backslash belongs to the value; '\\n' begins a new line.");
  run_when_named(*command, session, options, run_sweep);
}

}  // namespace kelp::app
