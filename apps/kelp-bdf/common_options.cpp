#include "common_options.hpp"

namespace kelp::app {

void add_common_options(CLI::App& command, CommonOptions& options) {
  command.add_option("--schema", options.schema_file, "The vocabulary to use")
      ->type_name("FILE")
      ->take_last();
  command.add_option("--color", options.colour, "Use colours: auto, always, never")
      ->check(CLI::IsMember({"auto", "always", "never"}))
      ->capture_default_str()
      ->take_last();
  command
      .add_option("--stdin-filename", options.stdin_filename,
                  "What to call standard input in findings")
      ->type_name("NAME")
      ->take_last();
  command.add_flag("-q,--quiet", options.quiet, "Say nothing; the exit status tells");
}

}  // namespace kelp::app
