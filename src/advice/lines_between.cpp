// What stands between modules: commands for the shell, with the variables that BDF sets for them;
// and nothing, where a module was pasted twice.

#include <algorithm>
#include <array>

#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/spelling.hpp"
#include "kelp/core/text.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::array<std::string_view, 4> variables = {"BDFHOME", "BDF_TMPDIR", "BDF_WORKDIR",
                                                       "BDFTASK"};

bool is_of_name(char byte) {
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
         (byte >= '0' && byte <= '9') || byte == '_';
}

Word name_at(Word text) {
  return text.substr(0, static_cast<std::size_t>(
                            std::find_if_not(text.begin(), text.end(), is_of_name) - text.begin()));
}

// The variable that a name is meant to be; empty when it is one, or resembles none.
std::string_view meant_by(Word name) {
  if (std::find(variables.begin(), variables.end(), name) != variables.end()) {
    return {};
  }
  for (const std::string_view variable : variables) {
    if (core::spelling::slips_if_near(core::text::to_lower(name), core::text::to_lower(variable))) {
      return variable;
    }
  }
  return {};
}

void look_at_variable(Word behind_sign, Report& report) {
  const bool is_braced = behind_sign.starts_with('{');
  Word rest = is_braced ? behind_sign.substr(1) : behind_sign;
  const bool is_apart = rest.starts_with(' ');
  rest = core::text::trim_view(rest);
  const Word name = name_at(rest);
  const bool is_variable = std::find(variables.begin(), variables.end(), name) != variables.end();
  if (is_variable && (is_apart || (is_braced && rest.find('}') == Word::npos))) {
    report.add("'{}' is not read as a variable.", {name})
        .at(name, is_apart ? "a blank stands behind the sign" : "its brace is not closed")
        .help("write '$" + std::string(name) + "' or '${" + std::string(name) + "}'");
    return;
  }
  if (const std::string_view meant = meant_by(name); !meant.empty() && !is_apart) {
    report.add("BDF sets no variable '{}'.", {name})
        .at(name, "upper and lower case matter")
        .help("BDF sets BDFHOME, BDF_TMPDIR, BDF_WORKDIR and BDFTASK")
        .suggest({std::string(meant)});
  }
}

void check_shell_variable(const Job& job, Report& report) {
  for (const ShellLine& line : job.shell_lines) {
    for (std::size_t at = line.text.find('$'); at != Word::npos; at = line.text.find('$', at + 1)) {
      look_at_variable(line.text.substr(at + 1), report);
    }
  }
}

// What the lines of a module say, without comments and blanks around them.
std::vector<std::string> lines_of(const Job& job, const Block& block) {
  std::vector<std::string> lines;
  const ParsedInput& input = job.input;
  for (std::size_t line = input.first_line(block.record()); line <= input.last_line(block.record());
       ++line) {
    const std::string_view text = input.source().line(line);
    const std::string said =
        core::text::to_lower(core::text::trim_view(is_remark(text) ? "" : without_comment(text)));
    if (!said.empty()) {
      lines.push_back(said);
    }
  }
  return lines;
}

void check_module_repeated(const Job& job, Report& report) {
  // An excerpt shows what it likes; of a module that runs once, the vocabulary has told.
  for (std::size_t i = 1; job.is_complete() && i < job.blocks.size(); ++i) {
    const Block& first = job.blocks[i - 1];
    const Block& second = job.blocks[i];
    const bool has_command = std::any_of(job.shell_lines.begin(), job.shell_lines.end(),
                                         [i](const ShellLine& line) { return line.before == i; });
    if (first.name == second.name && !first.is_elided && !has_command &&
        job.schema().module_repeatable(first.name) &&
        lines_of(job, first) == lines_of(job, second)) {
      report.add("${} stands twice, one behind the other, with the same lines.", {second.name})
          .at(second, "once more")
          .related(first, "the first time")
          .help("remove one of them, unless it is to run twice");
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"sequence.shell_variable", check_shell_variable},
    {"sequence.module_repeated", check_module_repeated},
});

}  // namespace

std::span<const Rule> line_between_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
