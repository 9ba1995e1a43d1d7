#include "set.hpp"

#include <fmt/format.h>

#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "canonical_form.hpp"
#include "checked_input.hpp"
#include "common_options.hpp"
#include "edited_input.hpp"
#include "kelp/core/fs.hpp"
#include "kelp/core/number.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "output.hpp"
#include "rewrite.hpp"
#include "sources.hpp"
#include "written_path.hpp"

namespace kelp::app {
namespace {

struct SetOptions : RewriteOptions {
  std::string input;
  std::vector<std::string> assignments;
  std::vector<std::string> unset;
  std::string charge;
  std::string multiplicity;
  std::string geometry;
  std::string script_name;
};

std::optional<int> read_number(const std::string& option, const std::string& text, int least) {
  if (text.empty()) {
    return std::nullopt;
  }
  const auto number = core::number::parse_integer(text);
  if (!number || *number < least || *number > std::numeric_limits<int>::max()) {
    throw std::runtime_error(fmt::format("{} takes an integer{}, not '{}'", option,
                                         least > 0 ? fmt::format(" of at least {}", least) : "",
                                         text));
  }
  return static_cast<int>(*number);
}

std::vector<input::bdf::AtomRecord> read_atoms(const std::string& file) {
  input::bdf::XyzResult result = input::bdf::read_xyz(core::fs::read_text_file(file));
  if (!result.error.empty()) {
    throw std::runtime_error(fmt::format("{}:{}: {}", file, result.line, result.error));
  }
  return std::move(result.atoms);
}

Edit read_edit(const SetOptions& options) {
  Edit edit;
  edit.charge = read_number("--charge", options.charge, std::numeric_limits<int>::min());
  edit.multiplicity = read_number("--multiplicity", options.multiplicity, 1);
  if (!options.script_name.empty()) {
    if (options.script_name.find_first_of("\r\n") != std::string::npos) {
      throw std::runtime_error("--script-name takes a single line");
    }
    edit.script_name = options.script_name;
  }
  for (const std::string& assignment : options.assignments) {
    edit.assignments.push_back(parse_assignment(assignment));
  }
  for (const std::string& path : options.unset) {
    edit.unset.push_back(read_path(path));
  }
  if (!options.geometry.empty()) {
    edit.geometry = read_atoms(options.geometry);
  }
  return edit;
}

bool is_nothing(const Edit& edit) {
  return !edit.charge && !edit.multiplicity && !edit.script_name && !edit.geometry &&
         edit.assignments.empty() && edit.unset.empty();
}

ExitStatus set(const SetOptions& options, Session& session) {
  if (options.in_place && options.input == "-") {
    throw std::runtime_error("standard input cannot be changed in place");
  }
  const Edit edit = read_edit(options);
  if (is_nothing(edit)) {
    throw std::runtime_error("nothing to set; name a PATH=VALUE or one of the options");
  }
  const bool piped = options.input == "-";
  const Source source = {options.input, piped ? session.options.stdin_filename : options.input};
  const CheckedInput input(source.name, read_source(source), session.schema());
  if (is_empty_input(input)) {
    throw std::runtime_error(source.name + ": there is nothing to change: " + input.result.error);
  }
  try {
    return deliver(source, input.source.text(), edit_input(input, edit), options, session);
  } catch (const ImpossibleEdit& error) {
    throw std::runtime_error(fmt::format("{}: {}", source.name, error.what()));
  }
}

void add_edits(CLI::App& command, SetOptions& options) {
  command.add_option("input", options.input, "The file to change, or - for standard input")
      ->required()
      ->type_name("FILE|-");
  command
      .add_option("assignment", options.assignments,
                  "scf.charge=1, scf#2.dft=pbe0 (the second $scf), easy.charge=1 (the header)")
      ->type_name("PATH=VALUE");
  command.add_option("--charge", options.charge, "The total charge")->type_name("N");
  command.add_option("--multiplicity", options.multiplicity, "The spin multiplicity 2S+1")
      ->type_name("N");
  command
      .add_option("--geometry", options.geometry, "Take all atoms from an XYZ file, in angstrom")
      ->type_name("FILE.xyz");
  command.add_option("--script-name", options.script_name, "The name on the line '#!'")
      ->type_name("NAME");
  command
      .add_option("--unset", options.unset,
                  "Take a value out, or with a path such as tddft#2 a whole module")
      ->type_name("PATH")
      ->allow_extra_args(false);
}

}  // namespace

void add_set(CLI::App& app, Session& session) {
  const auto options = std::make_shared<SetOptions>();
  CLI::App* const command = app.add_subcommand("set", "Change, add or remove values");
  add_edits(*command, *options);
  add_rewrite_options(*command, *options);
  command->add_option("-o,--output", options->output_file, "Write to a file; - is standard output")
      ->type_name("FILE|-")
      ->excludes("--in-place")
      ->excludes("--diff");
  command->footer(
      "The result is printed, unless -i, -o or --diff is given. Lines that the change does not "
      "concern stay as they are; where a change cannot be made line by line, the whole input is "
      "laid out in the canonical form. In a value '\\n' begins a new line; a keyword without a "
      "value ends in '='. A module that is not there is added at the end. The result is checked: a "
      "change that adds an error, or would lose text, is refused unless --force is given.");
  add_common_options(*command, session.options);
  command->callback([options, &session] {
    session.run = [options, &session] { return set(*options, session); };
  });
}

}  // namespace kelp::app
