// What stands outside the modules and the header. Shell lines, databases and comments may; of the
// other lines only those around the settings of modules are part of an input.

#include "diagnose/outside_lines.hpp"

#include <algorithm>
#include <string>
#include <string_view>

#include "diagnose/offers.hpp"
#include "kelp/core/spelling.hpp"
#include "kelp/core/text.hpp"
#include "kelp/core/unicode.hpp"
#include "source/geometry_line.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::string_view setting_begin = "Module Setting";
constexpr std::string_view setting_end = "End Setting";

bool is_near_word(std::string_view word, std::string_view wanted) {
  return core::spelling::slips_if_near(word, wanted).has_value();
}

// `EndSetting`, `End-Setting`
bool is_joined(std::string_view word, std::string_view first, std::string_view second) {
  const std::string_view tail = word.substr(std::min(word.size(), first.size()));
  const bool has_sign = tail.starts_with('-') || tail.starts_with('_');
  return core::text::equals_ignoring_case(word.substr(0, first.size()), first) &&
         core::text::equals_ignoring_case(tail.substr(has_sign ? 1 : 0), second);
}

// `End Settings`, `Modul Setting`, `EndSetting`. What a line is exactly is asked before.
bool is_near_setting(std::string_view text, std::string_view wanted) {
  std::string_view rest = text;
  const std::string_view first = core::text::take_word(rest);
  const std::string_view second = core::text::take_word(rest);
  std::string_view wanted_rest = wanted;
  const std::string_view wanted_first = core::text::take_word(wanted_rest);
  const std::string_view wanted_second = core::text::trim_view(wanted_rest);
  // `End Module`, `End Module Setting`: what ends is named otherwise.
  const bool ends_module =
      is_same_line(first, "end") && is_same_line(second, "module") && wanted == setting_end;
  if (ends_module && (is_blank(rest) || is_same_line(rest, "setting"))) {
    return true;
  }
  if (!is_blank(rest)) {
    return false;
  }
  return second.empty() ? is_joined(first, wanted_first, wanted_second)
                        : is_near_word(first, wanted_first) && is_near_word(second, wanted_second);
}

bool says_setting(std::string_view text, std::string_view wanted) {
  std::string_view rest = text;
  std::string_view wanted_rest = wanted;
  return is_same_line(core::text::take_word(rest), core::text::take_word(wanted_rest)) &&
         is_same_line(core::text::take_word(rest), wanted_rest);
}

Diagnostic misspelt_setting(const ParsedInput& input, std::size_t line, std::string_view meant) {
  const TextRange range = statement_on(input, line);
  const std::string text = core::unicode::abridged(input.source().text_of(range));
  const std::string wanted(meant);
  Diagnostic diagnostic =
      frame_finding("frame.misspelt_setting", "'" + text + "' is no line of BDF; '" + wanted +
                                                  "' bounds the settings of modules.");
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
  Diagnostic diagnostic = frame_finding("frame.missing_setting_end",
                                        "No line 'End Setting' follows behind 'Module Setting'.");
  diagnostic.range = statement_on(input, line);
  diagnostic.label = "has no end";
  diagnostic.record = input.line(line).record;
  diagnostic.help = {"add a line 'End Setting' behind the last module"};
  return diagnostic;
}

Diagnostic missing_setting_begin(const ParsedInput& input, std::size_t line) {
  Diagnostic diagnostic = frame_finding("frame.missing_setting_begin",
                                        "No line 'Module Setting' stands before 'End Setting'.");
  diagnostic.range = statement_on(input, line);
  diagnostic.label = "ends nothing";
  diagnostic.record = input.line(line).record;
  diagnostic.help = {"add a line 'Module Setting' before the first module, or remove this one"};
  return diagnostic;
}

Diagnostic stray_lines_outside(const ParsedInput& input, std::size_t line) {
  const TextRange range = statement_on(input, line);
  const std::string text = core::unicode::abridged(input.source().text_of(range));
  Diagnostic diagnostic =
      frame_finding("frame.stray_line", "The line '" + text + "' stands in no module.");
  diagnostic.severity = Severity::Warning;
  diagnostic.arguments = {text};
  diagnostic.range = range;
  diagnostic.label = "outside the modules";
  diagnostic.record = input.line(line).record;
  diagnostic.help = {"move it into the module that it belongs to, remove it, or begin it with '#'"};
  return diagnostic;
}

}  // namespace

std::size_t line_of(const Statement& statement) {
  return statement.location ? static_cast<std::size_t>(statement.location->line) : 0;
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
  // What begins the settings may be among lines that are told of, or in a geometry without end.
  bool is_doubtful = input.data().has_geometry && !input.data().geometry_terminated;
  const bool has_header = input.data().mode != InputMode::Module;
  for (const Statement& statement : input.data().statements) {
    const auto [what, is_misspelt] = outside_of(statement);
    const std::size_t line = line_of(statement);
    const bool is_begin = what == Outside::SettingBegin;
    if (is_misspelt && line != 0) {
      sink(misspelt_setting(input, line, is_begin ? setting_begin : setting_end));
    }
    if (what == Outside::SettingEnd && open == 0 && !is_doubtful && has_header && line != 0) {
      sink(missing_setting_begin(input, line));
    }
    if (is_begin || what == Outside::SettingEnd) {
      open = is_begin ? line : 0;
    }
    is_elided = is_elided || what == Outside::Elided;
    const bool is_unknown_module = statement.kind == StatementKind::Module &&
                                   !input.data().modules[statement.module_index].known;
    is_doubtful = is_doubtful || is_elided || is_unknown_module || what == Outside::Stray;
  }
  if (open != 0 && !is_elided) {
    sink(missing_setting_end(input, open));
  }
}

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

}  // namespace kelp::input::bdf
