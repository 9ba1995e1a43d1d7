#pragma once

#include <CLI/CLI.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelp::app {

/// A call of the program, and what it is for.
struct Example {
  std::string_view command;  ///< whose example it is: "check", "schema list"; empty for the program
  std::string_view call;     ///< as it is typed, without the program's name
  std::string_view meaning;
};

/// Returns the examples of all commands, in the order of the manual.
const std::vector<Example>& examples();

/// Returns a command's full name as it is called: "kelp-bdf schema list".
std::string call_of(const CLI::App& command);

/// Returns the command of that name below another one; null when there is none.
const CLI::App* child_of(const CLI::App& command, const std::string& name);

/// Returns how an option is written: "-j, --jobs N"; of a positional what stands for it,
/// "FILE|DIR|-".
std::string option_usage(const CLI::Option& option);

/// Returns what an option does, with its default and what it cannot go with.
std::string option_meaning(const CLI::Option& option);

/// Returns the options of a command without those that every command has; positionals first.
std::vector<const CLI::Option*> own_options(const CLI::App& command);

/// Returns the options that every command has.
std::vector<const CLI::Option*> shared_options(const CLI::App& command);

/// Returns the help of a command, in lines of at most 80 columns where words allow it.
std::string help_text(const CLI::App& command);

/// Returns the manual page of the program, for `man`.
std::string manual_page(const CLI::App& app);

}  // namespace kelp::app
