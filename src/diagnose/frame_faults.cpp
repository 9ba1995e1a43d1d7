// What bounds the parts of an input, and what stands around them. The reading has told which line
// was meant as which border, so that nothing has to be looked for.

#include "diagnose/frame_faults.hpp"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "diagnose/foreign_texts.hpp"
#include "diagnose/outside_lines.hpp"
#include "kelp/core/text.hpp"
#include "kelp/core/unicode.hpp"
#include "kelp/input/bdf/explain.hpp"
#include "model/method_specification.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {

Diagnostic frame_finding(std::string_view code, std::string message) {
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

Diagnostic misspelt_border(const MisspeltBorder& border, DiagnoseContext& context) {
  const ParsedInput& input = context.input;
  const BorderText text = text_of(border.fault);
  const TextRange range = statement_on(input, border.line);
  const std::string line = core::unicode::abridged(input.source().text_of(range));
  Diagnostic diagnostic = frame_finding(text.code, filled(text.message, line, border.meant));
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
      frame_finding("frame.stray_end", "'$end' stands behind no module and ends nothing.");
  diagnostic.range = statement_on(input, line);
  diagnostic.label = "ends nothing";
  diagnostic.record = input.line(line).record;
  diagnostic.help = {"remove the line, or write the header of the module that it is to end"};
  return diagnostic;
}

bool has_known_word(const BDFData& data) {
  return std::any_of(data.easy_tokens.begin(), data.easy_tokens.end(),
                     [](const EasyToken& token) { return token.known; });
}

Diagnostic stray_lines(const ParsedInput& input, std::size_t line) {
  const std::string word = core::unicode::abridged(input.data().easy_tokens.front().text);
  Diagnostic diagnostic =
      frame_finding("frame.stray_line", "The input begins with '" + word +
                                            "', which is neither a header nor a module.");
  diagnostic.arguments = {word};
  diagnostic.range = statement_on(input, line);
  diagnostic.label = "neither a method nor a module";
  diagnostic.record = RecordId::of(RecordKind::EasyToken, 0);
  diagnostic.help = {"remove what stands before the first module, or begin it with '#'"};
  return diagnostic;
}

Diagnostic no_input(const ParsedInput& input, std::size_t line) {
  Diagnostic diagnostic = frame_finding(
      "frame.no_input", "The text has neither a header nor a module: BDF cannot read it.");
  diagnostic.range = statement_on(input, line);
  diagnostic.label = "neither a header nor a module";
  diagnostic.record = input.line(line).record;
  diagnostic.help = {
      "begin with a header such as '#! name' and 'b3lyp/def2-svp', or with a module such as "
      "'$compass'"};
  return diagnostic;
}

}  // namespace

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
  if (auto foreign = find_foreign_text(input)) {
    return StrangeStart{std::move(*foreign), true};
  }
  if (data.mode == InputMode::Module && data.modules.empty()) {
    const std::size_t line = find_foreign_line(data);
    return line == 0 ? std::nullopt : std::optional(StrangeStart{no_input(input, line), true});
  }
  if (data.mode == InputMode::Module || data.has_geometry || has_method_specification(data)) {
    return std::nullopt;
  }
  const std::size_t first = input.first_line(RecordId::of(RecordKind::EasyToken, 0));
  if (first == 0 || data.modules.empty() || has_known_word(data)) {
    return std::nullopt;
  }
  return StrangeStart{stray_lines(input, first), false};
}

}  // namespace kelp::input::bdf
