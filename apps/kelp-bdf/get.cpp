#include "get.hpp"

#include <fmt/format.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "common_options.hpp"
#include "did_you_mean.hpp"
#include "kelp/core/resource.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "output.hpp"
#include "sources.hpp"
#include "written_path.hpp"

namespace kelp::app {
namespace {

using input::bdf::PathKind;

struct GetOptions {
  std::string path;
  std::vector<std::string> inputs;
};

// Who gives the file first gets told, not a message about a strange path.
WrittenPath path_of_value(const GetOptions& options) {
  if (core::resource::is_regular_file_path(options.path) && !options.inputs.empty()) {
    throw std::runtime_error(fmt::format("the path comes first: kelp-bdf get {} {}",
                                         options.inputs.front(), options.path));
  }
  WrittenPath path = read_path(options.path);
  if (path.kind == PathKind::Module) {
    throw std::runtime_error(
        fmt::format("'{0}' names a module; a value is at a path like {0}.charge, and 'kelp-bdf "
                    "show' lists what there is",
                    path.text));
  }
  return path;
}

ExitStatus get(const Source& source, const WrittenPath& path, bool is_named, Session& session) {
  const input::bdf::ParsedInput input(read_source(source), session.schema());
  const auto lines = find_value(input, path);
  if (!lines) {
    if (!session.options.quiet) {
      complain(fmt::format("{}: nothing at '{}'{}", source.name, path.text,
                           did_you_mean(path_hint(input.schema(), path))));
    }
    return ExitStatus::Findings;
  }
  for (const std::string& line : *lines) {
    print(is_named ? fmt::format("{}: {}\n", source.name, line) : line + '\n');
  }
  return ExitStatus::Success;
}

ExitStatus get_all(const GetOptions& options, Session& session) {
  const WrittenPath path = path_of_value(options);
  session.schema();
  const Sources sources = expand_sources(options.inputs, session.options);
  const bool is_named = sources.list.size() > 1;
  return for_each_source(
      sources, [&](const Source& source) { return get(source, path, is_named, session); });
}

}  // namespace

void add_get(CLI::App& app, Session& session) {
  const auto options = std::make_shared<GetOptions>();
  CLI::App* const command = app.add_subcommand("get", "Print a value by its path");
  command
      ->add_option("path", options->path,
                   "scf.charge, scf#2.charge (the second $scf), easy.charge (the header), geometry")
      ->required()
      ->type_name("PATH");
  command
      ->add_option("input", options->inputs,
                   "Files, folders (searched for *.inp and *.bdf), - for standard input")
      ->required()
      ->type_name("FILE|DIR|-");
  command->footer(
      "The lines of the value are printed, without the blanks around them; a keyword that has no "
      "value prints none. Of several entries of one name the first counts. With several files each "
      "line begins with the file's name. The exit status is 1 when there is nothing at the path.");
  add_common_options(*command, session.options);
  command->callback([options, &session] {
    session.run = [options, &session] { return get_all(*options, session); };
  });
}

}  // namespace kelp::app
