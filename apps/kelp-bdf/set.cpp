#include "set.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "common_options.hpp"
#include "deliver.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "kelp/input/bdf/rewrite.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "sources.hpp"

namespace kelp::app {
namespace {

using input::bdf::Assignment;
using input::bdf::Edit;
using input::bdf::NewGeometry;
using input::bdf::PathKind;
using input::bdf::ValuePath;

struct SetOptions : DeliverOptions {
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

ValuePath read_path(const std::string& text) {
  input::bdf::PathResult result = input::bdf::parse_path(text);
  if (!result.path) {
    throw std::runtime_error(result.error);
  }
  return *std::move(result.path);
}

Assignment read_assignment(const std::string& text) {
  input::bdf::AssignmentResult result = input::bdf::parse_assignment(text);
  if (!result.assignment) {
    throw std::runtime_error(result.error);
  }
  return *std::move(result.assignment);
}

// Without a path that names a geometry all of it is the file, '=' and all.
std::optional<ValuePath> path_before(std::string_view text) {
  constexpr std::string_view geometry = "geometry";
  const auto path = input::bdf::parse_path(text).path;
  const bool names_geometry =
      path &&
      (path->kind == PathKind::Geometry ||
       (path->kind == PathKind::Entry && core::text::equals_ignoring_case(path->name, geometry)));
  return names_geometry ? path : std::nullopt;
}

NewGeometry read_geometry(const std::string& text, const SetOptions& options,
                          const Session& session) {
  NewGeometry geometry;
  const std::size_t equals = std::min(text.find('='), text.size());
  geometry.path = path_before(std::string_view(text).substr(0, equals));
  const std::string file = geometry.path ? text.substr(equals + 1) : text;
  if (file == "-" && options.input == "-") {
    throw std::runtime_error("standard input cannot hold both the input and the geometry");
  }
  const Source source = source_of(file, session.options);
  input::bdf::XyzResult result = input::bdf::read_xyz(read_source(source));
  if (!result.error.empty()) {
    throw std::runtime_error(fmt::format("{}:{}: {}", source.name, result.line, result.error));
  }
  geometry.atoms = std::move(result.atoms);
  return geometry;
}

Edit read_edit(const SetOptions& options, const Session& session) {
  Edit edit;
  edit.allow_unknown_names = options.force;
  edit.charge = read_number("--charge", options.charge, std::numeric_limits<int>::min());
  edit.multiplicity = read_number("--multiplicity", options.multiplicity, 1);
  if (!options.script_name.empty()) {
    if (options.script_name.find_first_of("\r\n") != std::string::npos) {
      throw std::runtime_error("--script-name takes a single line");
    }
    edit.script_name = options.script_name;
  }
  for (const std::string& assignment : options.assignments) {
    edit.assignments.push_back(read_assignment(assignment));
  }
  for (const std::string& path : options.unset) {
    edit.unset.push_back(read_path(path));
  }
  if (!options.geometry.empty()) {
    edit.geometry = read_geometry(options.geometry, options, session);
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
  const Edit edit = read_edit(options, session);
  if (is_nothing(edit)) {
    throw std::runtime_error("nothing to set; name a PATH=VALUE or one of the options");
  }
  const Source source = source_of(options.input, session.options);
  const input::bdf::ParsedInput input(read_source(source), session.schema());
  return deliver(source, input, edit_input(input, edit), options, session);
}

void add_edits(CLI::App& command, SetOptions& options) {
  command.add_option("input", options.input, "The file to change, or - for standard input")
      ->required()
      ->type_name("FILE|-");
  command
      .add_option("assignment", options.assignments,
                  "scf.charge=1, scf#2.dft=pbe0 (the second $scf), easy.charge=1 (the header), "
                  "easy.functional=b3lyp (also easy.method, easy.basis)")
      ->type_name("PATH=VALUE");
  command.add_option("--charge", options.charge, "The total charge")->type_name("N");
  command.add_option("--multiplicity", options.multiplicity, "The spin multiplicity 2S+1")
      ->type_name("N");
  command
      .add_option("--geometry", options.geometry,
                  "Take all atoms from an XYZ file, in angstrom; compass#2.geometry=FILE.xyz for "
                  "one of several geometries; - for standard input")
      ->type_name("[PATH=]FILE.xyz|-");
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
  add_deliver_options(*command, *options);
  command->add_option("-o,--output", options->output_file, "Write to a file; - is standard output")
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
  add_common_options(*command, session.options);
  command->callback([options, &session] {
    session.run = [options, &session] { return set(*options, session); };
  });
}

}  // namespace kelp::app
