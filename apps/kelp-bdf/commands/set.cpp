#include "commands/commands.hpp"

#include <fmt/format.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "cli/sources.hpp"
#include "commands/deliver.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/resource.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "kelp/input/bdf/rewrite.hpp"
#include "kelp/input/bdf/value_path.hpp"

namespace kelp::app {
namespace {

using input::bdf::Assignment;
using input::bdf::Edit;
using input::bdf::NewGeometry;
using input::bdf::ValuePath;

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

// A file may have a name with '=' in it.
std::optional<ValuePath> path_before(const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string::npos || core::resource::is_regular_file_path(text)) {
    return std::nullopt;
  }
  return input::bdf::parse_path(std::string_view(text).substr(0, equals)).path;
}

NewGeometry read_geometry(const std::string& text, const SetOptions& options,
                          const Session& session) {
  NewGeometry geometry;
  geometry.path = path_before(text);
  const std::string file = geometry.path ? text.substr(text.find('=') + 1) : text;
  if (file == "-" && options.input == "-") {
    throw std::runtime_error("standard input cannot hold both the input and the geometry");
  }
  const Source source = source_of(file, session.options);
  input::bdf::XyzResult result = input::bdf::read_xyz(read_source(source, session.options));
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

}  // namespace

ExitStatus run_set(const SetOptions& options, Session& session) {
  if (options.in_place && options.input == "-") {
    throw std::runtime_error("standard input cannot be changed in place");
  }
  const Edit edit = read_edit(options, session);
  if (is_nothing(edit)) {
    throw std::runtime_error("nothing to set; name a PATH=VALUE or one of the options");
  }
  const Source source = source_of(options.input, session.options);
  return for_each_source({{source}, {}}, [&](const Source& named) {
    input::bdf::ParsedInput input(read_source(named, session.options),
                                  *session.settings_of(named).schema);
    const input::bdf::SourceText old = input.source();
    return deliver(named, old, edit_input(std::move(input), edit), options, session);
  });
}

}  // namespace kelp::app
