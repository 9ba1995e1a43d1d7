#include "commands/commands.hpp"

#include <fmt/format.h>

#include <string>
#include <string_view>

#include "cli/output.hpp"
#include "kelp/core/fs.hpp"
#include "kelp/core/resource.hpp"
#include "kelp/core/unicode.hpp"

namespace kelp::app {
namespace {

std::string row(std::string_view name, std::string_view value, std::string_view origin) {
  return fmt::format("{:13}  {}  ({})\n", name, core::unicode::displayable(value),
                     core::unicode::displayable(origin));
}

std::string_view name_of(input::bdf::SeverityAction action) {
  switch (action) {
    case input::bdf::SeverityAction::Allow:
      return "allow";
    case input::bdf::SeverityAction::Warn:
      return "warning";
    case input::bdf::SeverityAction::Deny:
      break;
  }
  return "error";
}

std::string rows_of(const ConfigFile& config) {
  const auto line = [&config](const std::string& key) {
    return fmt::format("line {}", config.lines.at(key));
  };
  std::string text;
  if (config.width) {
    text += row("width", std::to_string(*config.width), line("width"));
  }
  for (const std::string& pattern : config.exclude) {
    text += row("exclude", pattern, line("exclude"));
  }
  for (const input::bdf::SeverityRule& rule : config.rules) {
    text += row("severity", fmt::format("{} = {}", rule.pattern, name_of(rule.action)),
                line(rule.pattern));
  }
  return text;
}

// What is asked about need not exist; a folder stands for what is in it.
const ConfigFile* config_meant(const std::string& input, Session& session) {
  if (input.empty()) {
    return session.config_of_folder({});
  }
  if (input != "-" && core::fs::is_directory(input)) {
    return session.config_of_folder(core::resource::full_path(input));
  }
  return session.config_of(source_of(input, session.options));
}

}  // namespace

ExitStatus run_config(const ConfigOptions& options, Session& session) {
  const ConfigFile* const config = config_meant(options.input, session);
  const Choice schema = session.schema_choice(config);
  const Choice language = session.language_choice(config);
  std::string text = config == nullptr ? fmt::format("{:13}  none\n", "configuration")
                                       : fmt::format("{:13}  {}\n", "configuration",
                                                     core::unicode::displayable(config->path));
  text += row("schema", schema.value, schema.origin);
  text += row("language", language.value, language.origin);
  print(text + (config == nullptr ? std::string() : rows_of(*config)));
  return ExitStatus::Success;
}

}  // namespace kelp::app
