// What bounds the parts of an input, and what stands around them. The reading has told which line
// was meant as which border, so that nothing has to be looked for.

#include "diagnose/frame_faults.hpp"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "diagnose/offers.hpp"
#include "kelp/core/spelling.hpp"
#include "kelp/core/text.hpp"
#include "kelp/core/unicode.hpp"
#include "kelp/input/bdf/explain.hpp"
#include "source/geometry_line.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {
namespace {

struct BorderText {
  std::string_view code;
  std::string_view message;  ///< {0} stands for the line, {1} for what was meant
};

BorderText text_of(BorderFault fault) {
  switch (fault) {
    case BorderFault::MisspeltEnd:
      return {"frame.misspelt_end", "'{0}' is read as '{1}': it ends the module, misspelt."};
    case BorderFault::MisspeltTerminator:
      return {"frame.misspelt_terminator", "'{0}' is read as '{1}': it ends the block, misspelt."};
    case BorderFault::MisspeltGeometry:
      return {"frame.misspelt_geometry", "'{0}' is read as '{1}': it opens the atoms, misspelt."};
    case BorderFault::MisspeltBlock:
      return {"frame.misspelt_block", "'{0}' is read as '{1}': it opens a block, misspelt."};
    case BorderFault::MissingDollar:
      return {"frame.missing_dollar", "'{0}' is read as '{1}': the header lacks its dollar sign."};
    case BorderFault::WideDollar:
      return {"frame.wide_dollar", "'{0}' is read as '{1}': its sign is no dollar sign."};
  }
  return {};
}

std::string filled(std::string_view message, std::string_view line, std::string_view meant) {
  std::string text;
  for (std::size_t at = 0; at < message.size(); ++at) {
    if (message[at] != '{') {
      text += message[at];
      continue;
    }
    text += message[at + 1] == '0' ? line : meant;
    at += 2;
  }
  return text;
}

Diagnostic finding(std::string_view code, std::string message) {
  Diagnostic diagnostic;
  diagnostic.code = code;
  diagnostic.severity = find_finding_text(code)->severity;
  diagnostic.message = std::move(message);
  return diagnostic;
}

TextRange statement_on(const ParsedInput& input, std::size_t line) {
  const SourceText& source = input.source();
  return source.trimmed({source.content(line).begin, input.comment_range(line).begin});
}

Diagnostic misspelt_border(const MisspeltBorder& border, DiagnoseContext& context) {
  const ParsedInput& input = context.input;
  const BorderText text = text_of(border.fault);
  const TextRange range = statement_on(input, border.line);
  const std::string line = core::unicode::abridged(input.source().text_of(range));
  Diagnostic diagnostic = finding(text.code, filled(text.message, line, border.meant));
  diagnostic.arguments = {line, border.meant};
  diagnostic.range = range;
  diagnostic.label = "meant to be '" + border.meant + "'?";
  diagnostic.record = border.record;
  diagnostic.path = context.paths.path_of(border.record);
  if (input.first_line(border.record) != border.line) {
    diagnostic.related.push_back({input.keyword_range(border.record), "begins here"});
  }
  diagnostic.help = {"did you mean '" + border.meant + "'?"};
  diagnostic.suggestions = {border.meant};
  Fix fix;
  fix.title = "write '" + border.meant + "'";
  fix.edits = {{range, border.meant}};
  fix.is_safe = true;
  diagnostic.fixes.push_back(std::move(fix));
  return diagnostic;
}

Diagnostic stray_end(const ParsedInput& input, std::size_t line) {
  Diagnostic diagnostic =
      finding("frame.stray_end", "'$end' stands behind no module and ends nothing.");
  diagnostic.range = statement_on(input, line);
  diagnostic.label = "ends nothing";
  diagnostic.record = input.line(line).record;
  diagnostic.help = {"remove the line, or write the header of the module that it is to end"};
  return diagnostic;
}

bool is_shell_name(std::string_view path) {
  constexpr std::array<std::string_view, 9> names = {"sh",  "bash", "csh",    "tcsh", "zsh",
                                                     "ksh", "dash", "python", "perl"};
  path.remove_prefix(std::min(path.rfind('/') + 1, path.size()));
  while (!path.empty() && path.back() >= '.' && path.back() <= '9') {
    path.remove_suffix(1);  // python3
  }
  return std::find(names.begin(), names.end(), path) != names.end();
}

// "#!/bin/bash -l", "#!/usr/bin/env bash"
bool names_shell(std::string_view line) {
  std::string_view rest = core::text::trim_view(line);
  if (!is_script_line(rest)) {
    return false;
  }
  rest.remove_prefix(2);
  std::string_view path = core::text::take_word(rest);
  if (!path.starts_with('/')) {
    return false;
  }
  if (path.ends_with("/env")) {
    path = core::text::take_word(rest);
  }
  return is_shell_name(path);
}

bool is_job_option(std::string_view line) {
  const std::string_view text = core::text::trim_view(line);
  return text.starts_with("#SBATCH ") || text.starts_with("#PBS ") || text.starts_with("#BSUB ") ||
         text.starts_with("#$ ");
}

bool is_shell_command(std::string_view line) {
  constexpr std::array<std::string_view, 16> commands = {
      "export", "module", "source", "cd",     "cat", "set", "setenv", "ulimit",
      "bdf.py", "srun",   "mpirun", "sbatch", "bdf", "cp",  "mkdir",  "echo"};
  std::string_view rest = core::text::trim_view(line);
  const std::string_view word = core::text::take_word(rest);
  return !core::text::trim_view(rest).empty() &&
         std::find(commands.begin(), commands.end(), word) != commands.end();
}

// The line that tells a script, among those before the first module or the geometry; 0 for none.
std::size_t find_script_line(const ParsedInput& input) {
  for (std::size_t number = 1; number <= input.source().line_count(); ++number) {
    const std::string_view line = input.source().line(number);
    switch (input.line(number).role) {
      case LineRole::Blank:
        break;
      case LineRole::Comment:
      case LineRole::ScriptLine:
        if (names_shell(line) || is_job_option(line)) {
          return number;
        }
        break;
      case LineRole::Header:
        if (is_shell_command(line)) {
          return number;
        }
        break;
      default:
        return 0;
    }
  }
  return 0;
}

bool has_method(const BDFData& data) {
  return std::any_of(data.easy_tokens.begin(), data.easy_tokens.end(),
                     [](const EasyToken& token) { return token.category == "method_spec"; });
}

bool has_known_word(const BDFData& data) {
  return std::any_of(data.easy_tokens.begin(), data.easy_tokens.end(),
                     [](const EasyToken& token) { return token.known; });
}

Diagnostic shell_script(const ParsedInput& input, std::size_t line) {
  Diagnostic diagnostic =
      finding("frame.shell_script", "The text is a shell script, not an input of BDF.");
  diagnostic.range = input.source().content(line);
  diagnostic.label = "for a shell";
  diagnostic.help = {"keep the input in a file of its own, without the lines for the shell"};
  return diagnostic;
}

Diagnostic stray_lines(const ParsedInput& input, std::size_t line) {
  const std::string word = core::unicode::abridged(input.data().easy_tokens.front().text);
  Diagnostic diagnostic =
      finding("frame.stray_line",
              "The input begins with '" + word + "', which is neither a header nor a module.");
  diagnostic.arguments = {word};
  diagnostic.range = statement_on(input, line);
  diagnostic.label = "neither a method nor a module";
  diagnostic.record = RecordId::of(RecordKind::EasyToken, 0);
  diagnostic.help = {"remove what stands before the first module, or begin it with '#'"};
  return diagnostic;
}

Diagnostic no_input(const ParsedInput& input, std::size_t line) {
  Diagnostic diagnostic =
      finding("frame.no_input", "The text has neither a header nor a module: BDF cannot read it.");
  diagnostic.range = statement_on(input, line);
  diagnostic.label = "neither a header nor a module";
  diagnostic.record = input.line(line).record;
  diagnostic.help = {
      "begin with a header such as '#! name' and 'b3lyp/def2-svp', or with a module such as "
      "'$compass'"};
  return diagnostic;
}

std::size_t line_of(const Statement& statement) {
  return statement.location ? static_cast<std::size_t>(statement.location->line) : 0;
}

constexpr std::string_view setting_begin = "Module Setting";
constexpr std::string_view setting_end = "End Setting";

/// What a line outside modules that is no shell line, database or comment says.
enum class Outside { Nothing, ModuleEnd, SettingBegin, SettingEnd, Elided, Stray };

struct OutsideLine {
  Outside what = Outside::Nothing;
  bool is_misspelt = false;
};

bool is_near_word(std::string_view word, std::string_view wanted) {
  return core::spelling::slips_if_near(word, wanted).has_value();
}

// `End Settings`, `Modul Setting`, `EndSetting`. What a line is exactly is asked before.
bool is_near_setting(std::string_view text, std::string_view wanted) {
  std::string_view rest = text;
  const std::string_view first = core::text::take_word(rest);
  const std::string_view second = core::text::take_word(rest);
  std::string_view wanted_rest = wanted;
  const std::string_view wanted_first = core::text::take_word(wanted_rest);
  const std::string_view wanted_second = core::text::trim_view(wanted_rest);
  if (!is_blank(rest)) {
    return false;
  }
  return second.empty() ? core::text::equals_ignoring_case(
                              first, std::string(wanted_first) + std::string(wanted_second))
                        : is_near_word(first, wanted_first) && is_near_word(second, wanted_second);
}

bool says_setting(std::string_view text, std::string_view wanted) {
  std::string_view rest = text;
  std::string_view wanted_rest = wanted;
  return is_same_line(core::text::take_word(rest), core::text::take_word(wanted_rest)) &&
         is_same_line(core::text::take_word(rest), wanted_rest);
}

OutsideLine outside_of(const Statement& statement) {
  if (statement.kind != StatementKind::Raw) {
    return {};
  }
  const std::string_view text = core::text::trim_view(without_comment(statement.lines.front()));
  if (is_blank(text)) {
    return {};
  }
  if (is_module_end(text)) {
    return {Outside::ModuleEnd};
  }
  if (says_setting(text, setting_begin) || says_setting(text, setting_end)) {
    return {says_setting(text, setting_end) ? Outside::SettingEnd : Outside::SettingBegin};
  }
  if (is_near_setting(text, setting_begin) || is_near_setting(text, setting_end)) {
    return {is_near_setting(text, setting_end) ? Outside::SettingEnd : Outside::SettingBegin, true};
  }
  const bool is_elided = GeometryReader(false).kind_of(text) == GeometryLineKind::Elided;
  return {is_elided ? Outside::Elided : Outside::Stray};
}

Diagnostic misspelt_setting(const ParsedInput& input, std::size_t line, std::string_view meant) {
  const TextRange range = statement_on(input, line);
  const std::string text = core::unicode::abridged(input.source().text_of(range));
  const std::string wanted(meant);
  Diagnostic diagnostic =
      finding("frame.misspelt_setting",
              "'" + text + "' is no line of BDF; '" + wanted + "' bounds the settings of modules.");
  diagnostic.arguments = {text, wanted};
  diagnostic.range = range;
  diagnostic.label = "meant to be '" + wanted + "'?";
  diagnostic.record = input.line(line).record;
  diagnostic.help = {"did you mean '" + wanted + "'?"};
  diagnostic.suggestions = {wanted};
  offer_fix(diagnostic, "write '" + wanted + "'", range, wanted, true);
  return diagnostic;
}

Diagnostic missing_setting_end(const ParsedInput& input, std::size_t line) {
  Diagnostic diagnostic = finding("frame.missing_setting_end",
                                  "No line 'End Setting' follows behind 'Module Setting'.");
  diagnostic.range = statement_on(input, line);
  diagnostic.label = "has no end";
  diagnostic.record = input.line(line).record;
  diagnostic.help = {"add a line 'End Setting' behind the last module"};
  return diagnostic;
}

Diagnostic stray_lines_outside(const ParsedInput& input, std::size_t line) {
  const TextRange range = statement_on(input, line);
  const std::string text = core::unicode::abridged(input.source().text_of(range));
  Diagnostic diagnostic =
      finding("frame.stray_line", "The line '" + text + "' stands in no module.");
  diagnostic.severity = Severity::Warning;
  diagnostic.arguments = {text};
  diagnostic.range = range;
  diagnostic.label = "outside the modules";
  diagnostic.record = input.line(line).record;
  diagnostic.help = {"move it into the module that it belongs to, remove it, or begin it with '#'"};
  return diagnostic;
}

// The first line of a text that has no header and no module, though it says something that is no
// part of an input; 0 for any other text. A page may show no more than a database, or dots.
std::size_t find_foreign_line(const BDFData& data) {
  std::size_t first = 0;
  bool is_foreign = false;
  for (const Statement& statement : data.statements) {
    const Outside what = outside_of(statement).what;
    if (statement.kind == StatementKind::Database ||
        (what != Outside::Nothing && what != Outside::Stray)) {
      return 0;
    }
    is_foreign = is_foreign || what == Outside::Stray || statement.kind == StatementKind::Shell;
    if (first == 0 && is_foreign) {
      first = line_of(statement);
    }
  }
  return first;
}

}  // namespace

void tell_stray_lines(const ParsedInput& input, const DiagnosticSink& sink) {
  bool is_told = false;
  for (const Statement& statement : input.data().statements) {
    const Outside what = outside_of(statement).what;
    const std::size_t line = line_of(statement);
    if (what == Outside::Stray && line != 0) {
      if (!is_told) {
        sink(stray_lines_outside(input, line));
      }
      is_told = true;
    } else if (what != Outside::Nothing || statement.kind == StatementKind::Module) {
      is_told = false;
    }
  }
}

void tell_settings(const ParsedInput& input, const DiagnosticSink& sink) {
  std::size_t open = 0;
  bool is_elided = false;
  for (const Statement& statement : input.data().statements) {
    const auto [what, is_misspelt] = outside_of(statement);
    const std::size_t line = line_of(statement);
    const bool is_begin = what == Outside::SettingBegin;
    if (is_misspelt && line != 0) {
      sink(misspelt_setting(input, line, is_begin ? setting_begin : setting_end));
    }
    if (is_begin || what == Outside::SettingEnd) {
      open = is_begin ? line : 0;
    }
    is_elided = is_elided || what == Outside::Elided;
  }
  if (open != 0 && !is_elided) {
    sink(missing_setting_end(input, open));
  }
}

void tell_misspelt_borders(DiagnoseContext& context, const DiagnosticSink& sink) {
  const ParsedInput& input = context.input;
  for (const MisspeltBorder& border : input.misspelt_borders()) {
    sink(misspelt_border(border, context));
  }
  for (const Statement& statement : input.data().statements) {
    if (statement.kind == StatementKind::Raw && statement.location &&
        is_module_end(without_comment(statement.lines.front()))) {
      sink(stray_end(input, static_cast<std::size_t>(statement.location->line)));
    }
  }
}

std::optional<StrangeStart> find_strange_start(const ParsedInput& input) {
  const BDFData& data = input.data();
  if (data.mode == InputMode::Module && data.modules.empty()) {
    const std::size_t line = find_foreign_line(data);
    return line == 0 ? std::nullopt : std::optional(StrangeStart{no_input(input, line), true});
  }
  if (data.mode == InputMode::Module || data.has_geometry || has_method(data)) {
    return std::nullopt;
  }
  if (const std::size_t line = find_script_line(input); line != 0) {
    return StrangeStart{shell_script(input, line), true};
  }
  const std::size_t first = input.first_line(RecordId::of(RecordKind::EasyToken, 0));
  if (first == 0 || data.modules.empty() || has_known_word(data)) {
    return std::nullopt;
  }
  return StrangeStart{stray_lines(input, first), false};
}

}  // namespace kelp::input::bdf
