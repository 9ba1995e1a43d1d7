#include "cli/option_parts.hpp"

#include "cli/size.hpp"
#include "kelp/core/text.hpp"
#include "report/findings_report.hpp"

namespace kelp::app {
namespace {

std::string complaint_about_size(const std::string& text) {
  return parse_size(text) ? "" : "'" + text + "' is no size such as 256M";
}

}  // namespace

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

void add_form(CLI::App& command, std::string& form) {
  command.add_option("--format", form, "How findings are printed; concise is a line for each")
      ->check(one_of(findings_forms()))
      ->type_name(core::text::join(findings_forms(), "|"))
      ->capture_default_str()
      ->take_last();
}

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

}  // namespace kelp::app
