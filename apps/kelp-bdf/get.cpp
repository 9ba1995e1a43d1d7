#include "get.hpp"

#include <fmt/format.h>

#include <exception>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "checked_input.hpp"
#include "common_options.hpp"
#include "find_value.hpp"
#include "kelp/core/resource.hpp"
#include "output.hpp"
#include "sources.hpp"
#include "value_path.hpp"

namespace kelp::app {
namespace {

struct GetOptions {
  std::string path;
  std::vector<std::string> inputs;
};

// Who gives the file first gets told, not a message about a strange path.
ValuePath read_path(const GetOptions& options) {
  if (core::resource::is_regular_file_path(options.path) && !options.inputs.empty()) {
    throw std::runtime_error(fmt::format("the path comes first: kelp-bdf get {} {}",
                                         options.inputs.front(), options.path));
  }
  ValuePath path = parse_path(options.path);
  if (path.kind == ValuePath::Kind::Module) {
    throw std::runtime_error(
        fmt::format("'{0}' names a module; a value is at a path like {0}.charge, and 'kelp-bdf "
                    "show' lists what there is",
                    path.text));
  }
  return path;
}

/// One run of the command.
class Get {
 public:
  Get(const GetOptions& options, Session& session)
      : options_(options), session_(session), path_(read_path(options)) {}

  ExitStatus run() {
    session_.schema();
    const Sources sources = expand_sources(options_.inputs, session_.options);
    for (const std::string& error : sources.errors) {
      fail(error);
    }
    named_ = sources.list.size() > 1;
    for (const Source& source : sources.list) {
      try {
        get(source);
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

  void get(const Source& source) {
    const CheckedInput input(source.name, read_source(source), session_.schema());
    const auto lines = find_value(input.result.data, input.schema, path_);
    if (!lines) {
      status_ = worse_of(status_, ExitStatus::Findings);
      if (!session_.options.quiet) {
        complain(fmt::format("{}: nothing at '{}'{}", source.name, path_.text,
                             path_hint(input.schema, path_)));
      }
      return;
    }
    for (const std::string& line : *lines) {
      print(named_ ? fmt::format("{}: {}\n", source.name, line) : line + '\n');
    }
  }

  const GetOptions& options_;
  Session& session_;
  ValuePath path_;
  bool named_ = false;
  ExitStatus status_ = ExitStatus::Success;
};

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
    session.run = [options, &session] { return Get(*options, session).run(); };
  });
}

}  // namespace kelp::app
