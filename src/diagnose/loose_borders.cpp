// Borders are read generously: `$ scf` and `$$scf` begin a module, `End Geometry.` ends a geometry,
// and the end of the text ends a database. BDF may read them otherwise.

#include "diagnose/loose_borders.hpp"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "diagnose/frame_faults.hpp"
#include "diagnose/offers.hpp"
#include "diagnose/outside_lines.hpp"
#include "kelp/core/text.hpp"
#include "kelp/core/unicode.hpp"
#include "source/geometry_line.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::string_view database_end = "&end";

Diagnostic read_as(const ParsedInput& input, std::size_t line, const RecordId& record,
                   std::string_view code, const std::string& meant, const std::string& why) {
  const TextRange range = statement_on(input, line);
  const std::string text = core::unicode::abridged(input.source().text_of(range));
  Diagnostic diagnostic = frame_finding(code, "'" + text + "' is read as '" + meant + "': " + why);
  diagnostic.arguments = {text, meant};
  diagnostic.range = range;
  diagnostic.label = "meant to be '" + meant + "'?";
  diagnostic.record = record;
  diagnostic.help = {"did you mean '" + meant + "'?"};
  diagnostic.suggestions = {meant};
  offer_fix(diagnostic, "write '" + meant + "'", range, meant, true);
  return diagnostic;
}

void tell_headers(DiagnoseContext& context, const DiagnosticSink& sink) {
  const ParsedInput& input = context.input;
  const std::vector<Module>& modules = input.data().modules;
  for (std::size_t i = 0; i < modules.size(); ++i) {
    const RecordId record = RecordId::of_module(i);
    const std::size_t line = input.first_line(record);
    const std::string_view text = input.source().text_of(statement_on(input, line));
    if (line == 0 || !modules[i].known || input.is_misspelt_border(line) || text.size() < 2 ||
        (text[1] != '$' && !core::text::is_space(text[1]))) {
      continue;
    }
    const std::size_t name = text.find_first_not_of("$ \t");
    Diagnostic diagnostic =
        read_as(input, line, record, "frame.spaced_header", "$" + std::string(text.substr(name)),
                "the name stands right behind one sign.");
    diagnostic.path = context.paths.path_of(record);
    sink(diagnostic);
  }
}

void tell_geometry_end(const ParsedInput& input, const DiagnosticSink& sink) {
  const RecordId record = RecordId::of(RecordKind::Geometry, 0);
  const std::size_t line = input.data().has_geometry ? input.end_line(record) : 0;
  if (line == 0 || input.is_misspelt_border(line)) {
    return;
  }
  const std::vector<std::string_view> words =
      words_of(input.source().text_of(statement_on(input, line)));
  const bool is_right = words.size() > 1 && core::text::equals_ignoring_case(words[1], "geometry");
  if (words.size() == 2 && is_right) {
    return;
  }
  Diagnostic diagnostic = read_as(input, line, record, "frame.misspelt_terminator", "End Geometry",
                                  "it ends the block, and more stands on its line.");
  if (is_right) {
    diagnostic.severity = Severity::Warning;
  }
  diagnostic.related.push_back({input.keyword_range(record), "begins here"});
  sink(diagnostic);
}

// `&edn`, `& end`, `end`, `/`, `$end`: what ends a database for other programs, or is near to it.
bool is_near_database_end(std::string_view text) {
  constexpr std::array<std::string_view, 6> near = {"end", "edn", "ned", "en", "nd", "enddatabase"};
  std::string letters;
  for (const char byte : text) {
    const char lower = core::text::to_lower(byte);
    if (lower >= 'a' && lower <= 'z') {
      letters += lower;
    } else if (byte != '&' && byte != '$' && byte != ' ' && byte != '/' && byte != '.') {
      return false;
    }
  }
  return text == "/" || std::find(near.begin(), near.end(), letters) != near.end();
}

// The index of the line that is nearly the end; 0 when there is none, as the first line begins it.
std::size_t near_end_of(const std::vector<std::string_view>& lines) {
  for (std::size_t i = 1; i < lines.size(); ++i) {
    if (is_near_database_end(lines[i])) {
      return i;
    }
    if (lines[i].starts_with('$')) {
      return 0;
    }
  }
  return 0;
}

std::vector<std::string_view> texts_of(const Statement& statement) {
  std::vector<std::string_view> lines;
  for (const std::string& line : statement.lines) {
    lines.push_back(is_remark(line) ? std::string_view()
                                    : core::text::trim_view(without_comment(line)));
  }
  return lines;
}

void tell_database_end(const ParsedInput& input, const Statement& statement, const RecordId& record,
                       const DiagnosticSink& sink) {
  const std::vector<std::string_view> lines = texts_of(statement);
  const GeometryReader reader(false);
  const bool is_ended = is_database_end(lines.back()) ||
                        std::any_of(lines.begin(), lines.end(), [&](std::string_view line) {
                          return reader.kind_of(line) == GeometryLineKind::Elided;
                        });
  const std::size_t first = line_of(statement);
  if (is_ended || first == 0) {
    return;
  }
  if (const std::size_t near = near_end_of(lines); near != 0) {
    sink(read_as(input, first + near, record, "frame.missing_database_end",
                 std::string(database_end), "it is to end '&database'."));
    return;
  }
  Diagnostic diagnostic =
      frame_finding("frame.missing_database_end", "No line '&end' follows behind '&database'.");
  diagnostic.range = statement_on(input, first);
  diagnostic.label = "has no end";
  diagnostic.record = record;
  diagnostic.help = {"add a line '&end' behind the last line of the database"};
  sink(diagnostic);
}

}  // namespace

void tell_loose_borders(DiagnoseContext& context, const DiagnosticSink& sink) {
  const ParsedInput& input = context.input;
  tell_headers(context, sink);
  tell_geometry_end(input, sink);
  const std::vector<Statement>& statements = input.data().statements;
  for (std::size_t i = 0; i < statements.size(); ++i) {
    if (statements[i].kind == StatementKind::Database && !statements[i].lines.empty()) {
      tell_database_end(input, statements[i], RecordId::of(RecordKind::Statement, i), sink);
    }
  }
}

}  // namespace kelp::input::bdf
