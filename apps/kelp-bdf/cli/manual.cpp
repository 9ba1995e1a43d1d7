// Help and manual page are two ways to write down what the parser of the command line knows of
// commands and options, so that neither can tell of an option that is not there.

#include "cli/manual.hpp"

#include <fmt/format.h>

#include <set>

#include "cli/command_options.hpp"
#include "kelp/core/text.hpp"
#include "kelp/core/unicode.hpp"

namespace kelp::app {
namespace {

constexpr std::size_t widest_line = 80;
constexpr std::size_t column_of_meaning = 26;

std::string usage_of_positional(const CLI::Option& option) {
  const std::string many = option.get_items_expected_max() > 1 ? "..." : "";
  const std::string text = option.get_type_name() + many;
  return option.get_required() ? text : '[' + text + ']';
}

// Commands have options of their own, and those that all have.
std::string usage_of(const CLI::App& command) {
  std::string text = call_of(command);
  if (!command.get_subcommands({}).empty()) {
    text += " COMMAND";
  }
  text += " [OPTION]...";
  for (const CLI::Option* const option : own_options(command)) {
    if (option->get_positional()) {
      text += ' ' + usage_of_positional(*option);
    }
  }
  return text;
}

std::string wrapped(std::string_view text, std::size_t indent) {
  std::string lines;
  for (const std::string_view line : core::unicode::wrap(text, widest_line - indent)) {
    lines.append(indent, ' ').append(line).append("\n");
  }
  return lines;
}

std::string help_row(std::string_view name, std::string_view meaning) {
  const std::string begin = fmt::format("  {}", name);
  std::string lines = wrapped(meaning, column_of_meaning);
  if (begin.size() + 2 > column_of_meaning) {
    return begin + '\n' + lines;
  }
  return lines.empty() ? begin + '\n' : lines.replace(0, begin.size(), begin);
}

std::string help_rows(const std::vector<const CLI::Option*>& options) {
  std::string rows;
  for (const CLI::Option* const option : options) {
    rows += help_row(option_usage(*option), option_meaning(*option));
  }
  return rows;
}

std::string paragraph(std::string_view heading, const std::string& text) {
  return text.empty() ? text : fmt::format("\n{}:\n{}", heading, text);
}

std::string command_rows(const CLI::App& command) {
  std::string rows;
  for (const CLI::App* const child : command.get_subcommands({})) {
    rows += help_row(child->get_name(), child->get_description());
  }
  return rows;
}

// "check" of "kelp-bdf check".
std::string name_among_commands(const CLI::App& command) {
  const std::string call = call_of(command);
  const std::size_t blank = call.find(' ');
  return blank == std::string::npos ? std::string() : call.substr(blank + 1);
}

std::string example_rows(const CLI::App& command) {
  const std::string name = name_among_commands(command);
  std::string rows;
  for (const Example& example : examples()) {
    if (example.command == name) {
      rows += fmt::format("  kelp-bdf {}\n{}", example.call, wrapped(example.meaning, 6));
    }
  }
  return rows;
}

std::set<std::string> long_names(const std::set<CLI::Option*>& options) {
  std::set<std::string> names;
  for (const CLI::Option* const option : options) {
    names.insert("--" + option->get_lnames().front());
  }
  return names;
}

bool is_shared(const CLI::Option& option) {
  return option.get_group() == shared_group;
}

// --- the manual page

// A dot at the beginning of a line would be a request; a minus sign is to be one, so that it can be
// copied.
std::string roff(std::string_view text) {
  std::string escaped;
  for (const char byte : text) {
    if (byte == '\\') {
      escaped += "\\e";
    } else if (byte == '-') {
      escaped += "\\-";
    } else if ((byte == '.' || byte == '\'') && (escaped.empty() || escaped.back() == '\n')) {
      escaped += "\\&";
      escaped += byte;
    } else {
      escaped += byte;
    }
  }
  return escaped;
}

std::string roff_row(std::string_view name, std::string_view meaning) {
  return fmt::format(".TP\n.B {}\n{}\n", roff(name), roff(meaning));
}

std::string roff_rows(const std::vector<const CLI::Option*>& options) {
  std::string rows;
  for (const CLI::Option* const option : options) {
    rows += roff_row(option_usage(*option), option_meaning(*option));
  }
  return rows;
}

std::string roff_examples(const CLI::App& command) {
  const std::string name = name_among_commands(command);
  std::string rows;
  for (const Example& example : examples()) {
    if (example.command == name) {
      rows += roff_row(fmt::format("kelp-bdf {}", example.call), example.meaning);
    }
  }
  return rows;
}

std::string roff_command(const CLI::App& command) {
  std::string text =
      fmt::format(".SS {}\n{}.\n", roff(usage_of(command)), roff(command.get_description()));
  text += roff_rows(own_options(command));
  if (const std::string footer = command.get_footer(); !footer.empty()) {
    text += fmt::format(".PP\n{}\n", roff(footer));
  }
  if (const std::string rows = roff_examples(command); !rows.empty()) {
    text += ".PP\nExamples:\n" + rows;
  }
  for (const CLI::App* const child : command.get_subcommands({})) {
    text += roff_command(*child);
  }
  return text;
}

}  // namespace

std::string call_of(const CLI::App& command) {
  const CLI::App* const parent = command.get_parent();
  return (parent == nullptr ? "" : call_of(*parent) + ' ') + command.get_name();
}

const CLI::App* child_of(const CLI::App& command, const std::string& name) {
  const std::vector<const CLI::App*> found =
      command.get_subcommands([&name](const CLI::App* child) { return child->get_name() == name; });
  return found.empty() ? nullptr : found.front();
}

std::string option_usage(const CLI::Option& option) {
  const std::string type = option.get_items_expected_max() == 0 ? "" : option.get_type_name();
  if (option.get_positional()) {
    return type;
  }
  std::vector<std::string> names;
  for (const std::string& name : option.get_snames()) {
    names.push_back('-' + name);
  }
  for (const std::string& name : option.get_lnames()) {
    names.push_back("--" + name);
  }
  return core::text::join(names, ", ") + (type.empty() ? "" : ' ' + type);
}

std::string option_meaning(const CLI::Option& option) {
  std::string text = option.get_description();
  if (const std::string value = option.get_default_str(); !value.empty()) {
    text += fmt::format(" ({} unless given)", value);
  }
  for (const std::string& name : long_names(option.get_needs())) {
    text += fmt::format("; only with {}", name);
  }
  for (const std::string& name : long_names(option.get_excludes())) {
    text += fmt::format("; not with {}", name);
  }
  return text;
}

std::vector<const CLI::Option*> own_options(const CLI::App& command) {
  std::vector<const CLI::Option*> positionals;
  std::vector<const CLI::Option*> others;
  for (const CLI::Option* const option : command.get_options()) {
    if (!is_shared(*option)) {
      (option->get_positional() ? positionals : others).push_back(option);
    }
  }
  positionals.insert(positionals.end(), others.begin(), others.end());
  return positionals;
}

std::vector<const CLI::Option*> shared_options(const CLI::App& command) {
  return command.get_options([](const CLI::Option* option) { return is_shared(*option); });
}

std::string help_text(const CLI::App& command) {
  std::string text = fmt::format("{}\n\nUsage: {}\n", command.get_description(), usage_of(command));
  text += paragraph("Commands", command_rows(command));
  text += paragraph("Options", help_rows(own_options(command)));
  text += paragraph("Options of every command", help_rows(shared_options(command)));
  text += paragraph("Examples", example_rows(command));
  if (const std::string footer = command.get_footer(); !footer.empty()) {
    text += '\n' + wrapped(footer, 0);
  }
  return text;
}

std::string manual_page(const CLI::App& app) {
  std::string text = fmt::format(
      ".TH KELP\\-BDF 1\n.SH NAME\nkelp\\-bdf \\- {}\n.SH SYNOPSIS\n.B kelp\\-bdf\n"
      "COMMAND [OPTION]... [ARGUMENT]...\n",
      roff(core::text::to_lower(app.get_description().substr(0, 1)) +
           app.get_description().substr(1)));
  text += ".SH COMMANDS\n";
  for (const CLI::App* const command : app.get_subcommands({})) {
    text += roff_command(*command);
  }
  text += ".SH OPTIONS OF EVERY COMMAND\n" + roff_rows(shared_options(app));
  text += ".SH EXAMPLES\n" + roff_examples(app);
  text +=
      ".SH EXIT STATUS\n"
      ".TP\n.B 0\nNothing to report, or only warnings and notes.\n"
      ".TP\n.B 1\nAn error was found, nothing was found, or the layout differs.\n"
      ".TP\n.B 2\nThe work could not be done.\n"
      ".TP\n.B 3\nA mistake of the program itself.\n"
      ".SH FILES\n"
      ".TP\n.B .kelp\\-bdf.toml\nSettings for the inputs of its folder and below; see the command "
      "config.\n"
      ".SH ENVIRONMENT\n"
      ".TP\n.B KELP_BDF_INP_SCHEMA_YAML\nThe vocabulary to use.\n"
      ".TP\n.B LC_ALL, LC_MESSAGES, LANG\nThe language of what names and values mean.\n"
      ".TP\n.B NO_COLOR, CLICOLOR_FORCE, TERM\nWhether colours are used.\n"
      ".TP\n.B FORCE_HYPERLINK\nWhether codes are links to what is said of them, where there are "
      "colours: 1 or 0; else where the terminal is known to show links.\n";
  return text;
}

}  // namespace kelp::app
